"""The scripts of docs/python run as they stand."""
import doctest
import importlib.util
import os
import subprocess
import sys
import unittest

import mrl
import numpy as np
from support import SAMPLES, SOURCE, ProjectTest

FRAME = SAMPLES / "frame.cdb"
SCRIPTS = SOURCE / "docs" / "python"


class Examples(ProjectTest):
    def run_script(self, name, *arguments):
        command = [sys.executable, SCRIPTS / name, *arguments]
        run = subprocess.run(list(map(str, command)), capture_output=True, text=True, check=False)
        self.assertEqual(run.returncode, 0, run.stderr)
        return run.stdout

    def test_the_examples_of_the_page_give_what_they_say(self):
        self.sample("frame")
        before = os.getcwd()
        os.chdir(self.path("."))
        try:
            result = doctest.testfile(str(SOURCE / "docs" / "python.md"), module_relative=False)
        finally:
            os.chdir(before)
        self.assertEqual(result.failed, 0)
        self.assertGreater(result.attempted, 10)

    def test_an_envelope_is_drawn(self):
        picture = self.path("envelope.png")
        said = self.run_script("envelope.py", FRAME, SOURCE / "samples" / "frame-moments.csv", picture)
        self.assertIn("  M girder 1, midspan: 118.5 to 437.7\n", said)
        self.assertTrue(picture.read_bytes().startswith(b"\x89PNG"))

    def check_many(self, *options):
        matrix, out = self.path("matrix.npy"), self.path("out.npy")
        with mrl.open(FRAME) as project:
            rows = np.random.default_rng(1).normal(size=(45000, len(project.cases)))
            np.save(matrix, rows)
            whole = project.envelope(rows)
        said = self.run_script("many_responses.py", FRAME, matrix, out, *options)
        self.assertRegex(said, r"^45000 responses, \d+ a second on one core\n$")
        np.testing.assert_array_equal(np.load(out), np.column_stack((whole.min, whole.max)))

    def test_many_responses_are_valued_by_processes(self):
        self.check_many()

    @unittest.skipUnless(importlib.util.find_spec("distributed"), "python3-distributed is not installed")
    def test_many_responses_are_valued_by_a_cluster(self):
        self.check_many("--dask")


if __name__ == "__main__":
    unittest.main()
