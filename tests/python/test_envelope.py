"""Envelopes by Python are those of the command line."""
import csv
import threading
import unittest

import mrl
import numpy as np
from support import SAMPLES, SOURCE, ProjectTest, answer, mrl_lc


class Envelopes(ProjectTest):
    def test_values_and_keys_are_worked_by_hand(self):
        with mrl.open(self.roof) as project:
            envelope = project.envelope([[10, 5, -2], [1, 2, 4]])
        np.testing.assert_allclose(envelope.max, [21, 8.85])  # 13.5 + 7.5; 1.35 + 0.75 * 2 + 6
        np.testing.assert_allclose(envelope.min, [7, 1])  # 10 - 3
        self.assertEqual(envelope.governing_max(0), mrl.Governing("1.35*1+1.5*2", "S", None))
        self.assertEqual(envelope.governing_min(0).key, "1*1+1.5*3")
        self.assertRaises(IndexError, envelope.governing_max, 2)

    def test_the_frame_answers_as_the_command_line_does(self):
        file = SAMPLES / "frame.cdb"
        responses = SOURCE / "samples" / "frame-moments.csv"
        with responses.open() as table:
            head, *rows = list(csv.reader(table))
        numbers = [int(number) for number in head[2:]]
        matrix = np.array([[float(value) for value in row[2:]] for row in rows])
        told = answer("envelope", file, responses)
        with mrl.open(file) as project:
            situations = {entry["situation"] for entry in told}
            for name in situations:
                envelope = project.envelope(matrix, name, numbers)
                for row, entry in enumerate(each for each in told if each["situation"] == name):
                    for word, values, governing in (
                        ("max", envelope.max, envelope.governing_max(row)),
                        ("min", envelope.min, envelope.governing_min(row)),
                    ):
                        self.assertAlmostEqual(values[row], entry[word]["value"], delta=1e-9)
                        expected = {key: entry[word][key] for key in ("key", "leading", "expression")}
                        self.assertEqual(vars(governing), expected)

    def test_counts_are_those_of_the_frame(self):
        with mrl.open(SAMPLES / "frame.cdb") as project:
            persistent = project.situations["persistent"]
            self.assertEqual((persistent.count, persistent.distinct), (15233672, 8501576))
            self.assertTrue(any("imperfection" in line for line in persistent.left_out))
            self.assertRaisesRegex(mrl.Error, "15233672 combinations", persistent.combinations)

    def test_combinations_are_listed(self):
        with mrl.open(self.roof) as project:
            keys = [each.key for each in project.situations["persistent"].combinations()]
            self.assertEqual(len(keys), 10)
            self.assertIn("1.35*1+1.5*2+0.9*3", keys)
            self.assertRaises(KeyError, project.envelope, [[1, 2, 3]], "winter")

    def test_combinations_go_out_as_the_command_line_writes_them(self):
        responses = self.path("responses.csv")
        responses.write_text("name,1,2,3\nM,10,5,-2\nV,-1,0,7\n")
        matrix = [[10, 5, -2], [-1, 0, 7]]
        with mrl.open(self.roof) as project:
            situation = project.situations["persistent"]
            for name in ("c.csv", "c.json", "c.tsv"):
                with self.subTest(name=name):
                    told, all_, governing = self.path(f"told-{name}"), self.path(name), self.path(f"few-{name}")
                    command = ("export", self.roof, "--what", "combinations", "-o", told)
                    mrl_lc(*command)
                    situation.export(all_)
                    self.assertEqual(all_.read_bytes(), told.read_bytes())
                    mrl_lc(*command, "--keep", responses)
                    situation.export(governing, matrix=matrix)
                    self.assertEqual(governing.read_bytes(), told.read_bytes())
                    self.assertLess(governing.stat().st_size, all_.stat().st_size)
            self.assertRaisesRegex(mrl.Error, "10 combinations, more than 9", situation.export, all_, limit=9)

    def test_what_is_missing_or_no_number_is_refused_with_its_place(self):
        with mrl.open(self.roof) as project:
            self.assertRaisesRegex(ValueError, "no column for load case 2", project.envelope, [[1, 2]], numbers=[1, 3])
            self.assertRaisesRegex(ValueError, "row 1, load case 2", project.envelope, [[1, 2, 3], [1, np.inf, 3]])
            self.assertRaisesRegex(ValueError, "a column for each", project.envelope, [[1, 2]])

    def test_other_threads_run_meanwhile(self):
        ticks = []
        done = threading.Event()

        def tick():
            while not done.is_set():
                ticks.append(1)
                done.wait(0.001)

        numbers = list(range(1, 4))
        matrix = np.random.default_rng(1).normal(size=(200000, 3))
        with mrl.open(self.roof) as project:
            thread = threading.Thread(target=tick)
            thread.start()
            before = len(ticks)
            envelope = project.envelope(matrix, numbers=numbers, threads=1)
            during = len(ticks) - before
            done.set()
            thread.join()
        self.assertEqual(len(envelope), 200000)
        self.assertGreater(during, 3)


if __name__ == "__main__":
    unittest.main()
