"""What a project tells Python is what it tells the command line."""
import math
import subprocess
import sys
import unittest

import mrl
import numpy as np
from mrl._project import FACTORS
from support import SAMPLES, ProjectTest, answer

NAMES = {"Gamu": "gamu", "Gamf": "gamf", "Gama": "gama", "Psi0": "psi0", "Psi1": "psi1", "Psi2": "psi2"}
NAMES |= {"Psi1s": "psi1s", "DLX": "dlx", "DLY": "dly", "DLZ": "dlz"}
SAMPLE_FILES = sorted(SAMPLES.glob("*.cdb"))


class Reading(ProjectTest):
    def test_an_action_has_the_shortest_decimals_and_words(self):
        with mrl.open(self.roof) as project:
            wind = project.actions["W"]
        self.assertEqual(wind.psi0, 0.6)
        self.assertEqual(str(wind.psi0), "0.6")
        self.assertIs(wind.superposition, mrl.Superposition.EXCL)
        self.assertEqual(wind.partition, "Q")

    def test_a_factor_that_follows_the_action_is_none_and_tells_its_source(self):
        with mrl.open(self.roof) as project:
            case = project.cases[3]
            self.assertIsNone(case.psi0)
            self.assertEqual(case.effective.psi0, 0.6)
            self.assertEqual(case.effective.source, "W")

    def test_a_load_case_of_its_own_has_no_source(self):
        with mrl.open(self.roof, "rw") as project:
            with project.edit() as edit:
                edit.create_case(7, action="", gamu=1.5, gamf=0, gama=1, psi0=0.7, psi1=0, psi2=0, psi1s=0)
            case = project.cases[7]
        self.assertEqual((case.action, case.psi0, case.effective.psi0), (None, 0.7, 0.7))
        self.assertIsNone(case.effective.source)

    def test_mappings_know_what_is_not_there(self):
        with mrl.open(self.roof) as project:
            self.assertEqual(list(project.cases), [1, 2, 3])
            self.assertNotIn(9, project.cases)
            self.assertNotIn("Q", project.actions)
            self.assertRaises(KeyError, project.cases.__getitem__, 9)

    def test_a_closed_project_says_so(self):
        with mrl.open(self.roof) as project:
            pass
        self.assertRaisesRegex(mrl.Error, "closed", lambda: list(project.cases))

    def test_what_cannot_be_opened_is_an_error_with_the_file(self):
        self.assertRaisesRegex(mrl.Error, "none.cdb", mrl.open, self.path("none.cdb"))
        self.assertRaises(ValueError, mrl.open, self.roof, "w")

    def test_samples_answer_as_the_command_line_does(self):
        for file in SAMPLE_FILES:
            with self.subTest(file=file.name), mrl.open(file) as project:
                for told in answer("action", "list", file):
                    action = project.actions[told["name"]]
                    for key in ("title", "partition", "superposition", *NAMES):
                        name = NAMES.get(key, key)
                        if key in told:
                            self.assertEqual(getattr(action, name), told[key], (told["name"], key))
                own = [told for told in answer("case", "list", file) if told["title"] is not None]
                self.assertEqual([told["number"] for told in own], list(project.cases))
                for told in own:
                    case = project.cases[told["number"]]
                    for key in ("title", "action", "factor", *NAMES):
                        self.assertEqual(getattr(case, NAMES.get(key, key)), told[key], (told["number"], key))

    def test_findings_are_those_of_the_check(self):
        for file in SAMPLE_FILES:
            with self.subTest(file=file.name), mrl.open(file) as project:
                found = [vars(finding) for finding in project.check()]
                self.assertEqual(found, answer("check", file)["findings"])

    def test_codes_are_those_of_the_command_line(self):
        self.assertEqual([code.name for code in mrl.codes()], [told["name"] for told in answer("codes")])

    def test_no_window_library_is_loaded(self):
        program = "import mrl; print(open('/proc/self/maps').read())"
        maps = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, check=True).stdout
        self.assertIn("libQt5Core", maps)
        for library in ("libQt5Gui", "libQt5Widgets", "libmrl_hostui", "libmrl_loadcase.so"):
            self.assertNotIn(library, maps)


class Arrays(ProjectTest):
    def test_one_buffer_holds_all_load_cases(self):
        with mrl.open(SAMPLES / "frame.cdb") as project:
            rows = project.cases.to_numpy()
            self.assertEqual(list(rows["number"]), list(project.cases))
            for row in rows:
                case = project.cases[int(row["number"])]
                self.assertEqual((row["title"], row["action"]), (case.title, case.action or ""))
                for place, name in enumerate(FACTORS):
                    value = getattr(case, name)
                    self.assertEqual(row["follows"][place], value is None)
                    self.assertTrue(math.isnan(row[name]) if value is None else row[name] == np.float32(value))
        self.assertFalse(rows.flags.owndata, "handed over uncopied")
        self.assertEqual(rows["number"].base is rows or rows["number"].base is rows.base, True)

    def test_the_buffer_outlives_the_project(self):
        with mrl.open(SAMPLES / "frame.cdb") as project:
            numbers = project.cases.to_numpy()["number"]
        del project
        self.assertEqual(numbers[0], 1)
        self.assertEqual(numbers[-1], 92)

    def test_a_title_is_whole_also_beyond_the_basic_plane(self):
        title = "𝛾" * 16
        with mrl.open(self.roof, "rw") as project:
            with project.edit() as edit:
                edit.set_case(1, title=title)
            self.assertEqual(project.cases.to_numpy()["title"][0], title)
            self.assertEqual(project.cases[1].title, title)

    def test_pandas_has_nullable_factors_that_go_back_as_they_came(self):
        with mrl.open(self.sample("frame"), "rw") as project:
            frame = project.cases.to_pandas()
            self.assertTrue(frame.loc[11, "psi0"] is frame.loc[12, "psi0"])
            self.assertEqual(str(frame["psi0"].dtype), "Float32")
            with project.edit("nothing") as edit:
                edit.update_from(frame)
                self.assertEqual({row.outcome for row in edit.preview().rows}, {"unchanged"})
            frame.loc[11, "title"] = "Changed"
            with project.edit("a title") as edit:
                edit.update_from(frame)
                self.assertEqual([row.name for row in edit.preview().changed], ["11"])
            self.assertEqual(project.cases[11].title, "Changed")


if __name__ == "__main__":
    unittest.main()
