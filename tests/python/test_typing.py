"""The package's types hold, and its examples run."""
import doctest
import os
import pathlib
import subprocess
import sys
import unittest

import mrl
import mrl._words
from support import SAMPLES

PACKAGE = pathlib.Path(mrl.__file__).parent


class Types(unittest.TestCase):
    def test_mypy_finds_nothing_in_strict_mode(self):
        command = [sys.executable, "-m", "mypy", "--strict", "--cache-dir", os.devnull, "--package", "mrl"]
        run = subprocess.run(command, capture_output=True, text=True, cwd=PACKAGE.parent, check=False)
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)

    def test_stubs_tell_what_the_module_has(self):
        command = [sys.executable, "-m", "mypy.stubtest", "mrl._core", "--ignore-positional-only"]
        run = subprocess.run(command, capture_output=True, text=True, cwd=PACKAGE.parent, check=False)
        missing = [line for line in run.stdout.splitlines() if "is not present" in line]
        self.assertEqual(missing, [], run.stdout)

    def test_the_package_says_that_it_is_typed(self):
        self.assertTrue((PACKAGE / "py.typed").exists())

    def test_every_name_of_the_package_is_there(self):
        for name in mrl.__all__:
            self.assertEqual(getattr(mrl, name).__name__, name)
            self.assertIn(name, dir(mrl))
        with self.assertRaisesRegex(AttributeError, "no attribute 'close'"):
            mrl.close

    def test_examples_give_what_they_say(self):
        before = os.getcwd()
        os.chdir(SAMPLES)
        try:
            for module in (mrl, mrl._words):
                self.assertEqual(doctest.testmod(module).failed, 0)
                self.assertGreater(doctest.testmod(module).attempted, 0)
        finally:
            os.chdir(before)


if __name__ == "__main__":
    unittest.main()
