"""A folder in which a command runs that uses the files of script/."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).parents[2]


class CommandTest(unittest.TestCase):
    """Each test has a folder of its own, with script/ in it."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="command ")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        (self.folder / "script").symlink_to(ROOT / "script")

    def start(self, text):
        """Starts a command of bash in the folder, as no part of the one that runs this test."""
        process = subprocess.Popen(
            ["bash", "-c", f"set -eu\n{text}", "script/some"], cwd=self.folder, text=True,
            env={name: value for name, value in os.environ.items() if name != "ORVATOOL_ALONE"},
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def run_command(self, text):
        """Runs it to its end. Returns its status and its output."""
        process = self.start(text)
        output = process.stdout.read()
        return process.wait(), output
