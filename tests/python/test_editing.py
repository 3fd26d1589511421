"""Changes by Python: one transaction, judged by the rules of the dialog."""
import subprocess
import unittest

import mrl
from hypothesis import HealthCheck, given, settings
from hypothesis import strategies as st
from support import MRL_LC, ProjectTest, answer

FACTOR = st.floats(min_value=0, max_value=1, width=32)
TITLE = st.text(st.characters(min_codepoint=32, max_codepoint=0x2FF, blacklist_categories=["Cc", "Cs"]), max_size=33)


class Editing(ProjectTest):
    def setUp(self):
        super().setUp()
        self.project = mrl.open(self.roof, "rw")
        self.addCleanup(self.project.close)

    def test_an_edit_is_seen_by_the_command_line(self):
        with self.project.edit("wind of variant B") as edit:
            number = edit.create_case(action="W", title="Wind -X")
            edit.set_action("W", psi0=0.5)
            edit.remove_case(2)
            edit.create_action("T")
        self.project.close()
        self.assertEqual(number, 4)
        told = {case["number"]: case for case in answer("case", "list", self.roof)}
        self.assertEqual(sorted(told), [1, 3, 4])
        self.assertEqual((told[4]["title"], told[4]["action"]), ("Wind -X", "W"))
        self.assertEqual(answer("action", "show", self.roof, "W")["Psi0"], 0.5)
        self.assertEqual(answer("action", "show", self.roof, "T")["name"], "T")

    def test_an_action_that_nothing_uses_is_removed(self):
        with self.project.edit() as edit:
            with self.assertRaisesRegex(mrl.Error, "load cases use the action S: 2$"):
                edit.remove_action("S")
            edit.remove_case(2)
            edit.remove_action("s")
            self.assertRaises(KeyError, edit.remove_action, "S")
            self.assertEqual(edit.removed, [2, "s"])
            edit.create_action("S", psi0=0.6)
            edit.remove_action("S")
        self.project.close()
        self.assertEqual([told["name"] for told in answer("action", "list", self.roof)], ["G", "W"])

    def test_an_action_in_use_is_refused_in_the_words_of_the_command_line(self):
        with self.project.edit() as edit, self.assertRaises(mrl.Error) as caught:
            edit.remove_action("W")
        self.project.close()
        run = subprocess.run([MRL_LC, "action", "remove", self.roof, "W"], capture_output=True, text=True, check=False)
        self.assertEqual(run.returncode, 1)
        self.assertIn(str(caught.exception), run.stderr)

    def test_an_exception_rolls_everything_back(self):
        before = answer("case", "list", self.roof)
        with self.assertRaises(ZeroDivisionError):
            with self.project.edit() as edit:
                edit.set_case(1, title="Gone")
                edit.remove_case(3)
                self.assertEqual(list(self.project.cases), [1, 2], "seen within the edit")
                1 / 0
        self.assertEqual(self.project.cases[1].title, before[0]["title"])
        self.project.close()
        self.assertEqual(answer("case", "list", self.roof), before)

    def test_a_refused_change_names_row_field_and_rule(self):
        with self.assertRaises(mrl.Refused) as caught:
            with self.project.edit() as edit:
                edit.set_action("W", psi0=1.5)
        self.assertEqual((caught.exception.row, caught.exception.field), ("W", "Psi0"))
        self.assertTrue(caught.exception.rule.startswith("psi0-"), caught.exception.rule)
        self.assertIsInstance(caught.exception, mrl.Error)
        self.assertEqual(self.project.actions["W"].psi0, 0.6)

    def test_a_preview_tells_added_changed_and_refused(self):
        with self.project.edit() as edit:
            edit.create_case(9, action="S")
            edit.set_case(1, title="New")
            with self.assertRaises(mrl.Refused):
                edit.set_case(2, action="NONE?")
            preview = edit.preview()
        self.assertEqual([row.name for row in preview.added], ["9"])
        self.assertEqual(preview.changed[0].changes, [("title", "Loadcase 1", "New")])
        rule, _, field = preview.refused[0].reasons[0]
        self.assertEqual((rule, field), ("action-missing", "action"))
        self.assertEqual(self.project.cases[1].title, "New", "the others stay")

    def test_what_is_not_there_is_a_key_error(self):
        with self.project.edit() as edit:
            self.assertRaises(KeyError, edit.set_case, 9, title="x")
            self.assertRaises(KeyError, edit.remove_case, 9)
            self.assertRaises(KeyError, edit.set_action, "Q", psi0=0.5)
            self.assertRaisesRegex(mrl.Error, "exists already", edit.create_case, 1)
            self.assertRaisesRegex(mrl.Error, "is not known", edit.set_case, 1, colour="red")
            self.assertRaises(TypeError, edit.set_case, 1, factor=[])

    def test_a_refused_name_is_told_as_the_field(self):
        with self.project.edit() as edit, self.assertRaises(mrl.Refused) as caught:
            edit.create_action("YY", partition="Q", superposition="EXCL", gamu=1.5)
        self.assertEqual((caught.exception.field, caught.exception.rule), ("name", "new-name-begins-with-y"))

    def test_a_project_opened_for_reading_is_not_edited(self):
        with mrl.open(self.sample("frame")) as project:
            with self.assertRaisesRegex(mrl.Error, "reading only"):
                with project.edit():
                    pass

    def test_tables_go_out_and_in(self):
        for name in ("t.csv", "t.json", "t.xlsx"):
            with self.subTest(name=name):
                file = self.path(name)
                self.project.export(file)
                self.assertEqual({row.outcome for row in self.project.import_(file).rows}, {"unchanged"})
        table = self.path("n.csv")
        table.write_text("number,action\n5,W\n6,XX\n")
        self.assertEqual(len(self.project.import_(table, dry_run=True).refused), 1)
        self.assertRaises(mrl.Refused, self.project.import_, table)
        self.assertNotIn(5, self.project.cases)
        table.write_text("number,action\n5,W\n")
        self.assertEqual(len(self.project.import_(table).added), 1)
        self.assertIn(5, self.project.cases)

    def test_rows_of_a_table_are_found_by_their_titles(self):
        table = self.path("titles.csv")
        table.write_text("title,action\nLoadcase 2,W\nGusts,W\n")
        told = answer("import", self.roof, table, "--match", "title", "--dry-run")
        preview = self.project.import_(table, match="title", dry_run=True)
        self.assertEqual([row.outcome for row in preview.rows], [row["outcome"] for row in told["rows"]])
        self.project.import_(table, match="title")
        self.assertEqual((self.project.cases[2].action, self.project.cases[4].title), ("W", "Gusts"))
        self.assertRaises(ValueError, self.project.import_, table, match="action")

    def test_a_difference_names_the_value(self):
        copy = self.sample("frame")
        with mrl.open(copy, "rw") as changed, mrl.open(self.sample_of_build("frame")) as before:
            with changed.edit() as edit:
                edit.set_case(11, title="Other")
            (difference,) = mrl.diff(before, changed)
        self.assertEqual((difference.kind, difference.subject, difference.name), ("changed", "loadcase", "11"))
        self.assertEqual(difference.values[0][0::2], ("title", "Other"))

    def sample_of_build(self, name):
        from support import SAMPLES

        return SAMPLES / f"{name}.cdb"

    @settings(max_examples=60, deadline=None, suppress_health_check=[HealthCheck.function_scoped_fixture])
    @given(title=TITLE, psi=st.lists(FACTOR, min_size=3, max_size=3), weight=st.floats(width=32, allow_nan=False))
    def test_what_is_written_is_read(self, title, psi, weight):
        psi2, psi1, psi0 = sorted(psi)
        accepted = True
        try:
            with self.project.edit() as edit:
                edit.set_action("W", psi0=psi0, psi1=psi1, psi2=psi2)
                edit.set_case(3, title=title, dlx=weight)
        except mrl.Refused:
            accepted = False
        if accepted:
            case, action = self.project.cases[3], self.project.actions["W"]
            self.assertEqual(case.title, title.rstrip("\0"))
            self.assertEqual((action.psi0, action.psi2), tuple(float(str(self.shortest(x))) for x in (psi0, psi2)))

    @staticmethod
    def shortest(value):
        import numpy

        return numpy.float32(value)


if __name__ == "__main__":
    unittest.main()
