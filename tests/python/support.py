"""Projects for the tests, made by the command line."""
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

MRL_LC = os.environ["MRL_LC"]
SAMPLES = pathlib.Path(os.environ["MRL_SAMPLES"])
SOURCE = pathlib.Path(os.environ["MRL_SOURCE"])


def mrl_lc(*arguments):
    run = subprocess.run([MRL_LC, *map(str, arguments)], capture_output=True, text=True, check=False)
    if run.returncode not in (0, 1):
        raise AssertionError(run.stderr)
    return run.stdout


def answer(*arguments):
    return json.loads(mrl_lc(*arguments, "--json"))


class ProjectTest(unittest.TestCase):
    """A folder for one test with copies of the samples, and a roof: weight, snow and wind with a load case each."""

    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.addCleanup(self._folder.cleanup)
        self.roof = self.path("roof.cdb")
        mrl_lc("new", self.roof, "--code", "en1990")
        for number, action in enumerate("GSW", start=1):
            mrl_lc("action", "create", self.roof, action)
            mrl_lc("case", "create", self.roof, number, "--action", action)

    def path(self, name):
        return pathlib.Path(self._folder.name) / name

    def sample(self, name):
        return pathlib.Path(shutil.copy(SAMPLES / f"{name}.cdb", self._folder.name))
