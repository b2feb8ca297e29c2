"""What the packaging commands say when they are called wrongly, or lack a tool.

Called with the folder of the sources.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

root = pathlib.Path(sys.argv[1])


def call(command, *words, **options):
    """(status, complaints) of a command."""
    run = subprocess.run([command, *words], capture_output=True, text=True, check=False, **options)
    return run.returncode, run.stderr


class Words(unittest.TestCase):
    def test_wrong_words_are_answered_with_the_usage(self):
        for command, words, usage in (
                ("script/package", ["riscv64"], "usage: script/package [build]\n"),
                ("script/package", ["build", "x"], "usage: script/package [build]\n"),
                ("script/reproduce", ["x"], "usage: script/reproduce\n"),
                ("packaging/build_debian", [],
                 "usage: packaging/build_debian ARCHITECTURE FOLDER, where ARCHITECTURE is amd64 or"
                 " armel\n"),
                ("packaging/build_debian", ["riscv64", "x"],
                 "usage: packaging/build_debian ARCHITECTURE FOLDER, where ARCHITECTURE is amd64 or"
                 " armel\n")):
            with self.subTest(command=command, words=words):
                self.assertEqual(call(root / command, *words), (2, usage))


class MissingTool(unittest.TestCase):
    """A tree of script/package alone, where script/setup cannot install anything."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "script").mkdir()
        for name in ("package", "alone"):
            shutil.copy(root / "script" / name, self.folder / "script")
        (self.folder / "script/setup").write_text("#!/bin/sh\nexit 1\n", encoding="ascii")
        (self.folder / "script/setup").chmod(0o755)
        (self.folder / "bin").mkdir()
        for name in ("bash", "sh", "dirname", "xargs", "mkdir", "flock", "cat", "echo"):
            os.symlink(shutil.which(name), self.folder / "bin" / name)

    def test_is_named_with_its_package(self):
        text = (root / "script/package").read_text(encoding="ascii")
        needed = re.findall(r'^needed="(.*?)"$', text, re.MULTILINE | re.DOTALL)[0].split()
        self.assertIn("lintian:lintian", needed)
        for pair in needed:
            (self.folder / "bin" / pair.partition(":")[0]).symlink_to("/bin/true")
        for pair in needed:
            command, _, package = pair.partition(":")
            (self.folder / "bin" / command).unlink()
            with self.subTest(command=command):
                self.assertEqual(call(self.folder / "script/package",
                                      env={"PATH": str(self.folder / "bin")}),
                                 (1, f"script/package: missing: {package}; install that from"
                                  " Debian, or run `script/setup arm proof` as root\n"))
            (self.folder / "bin" / command).symlink_to("/bin/true")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
