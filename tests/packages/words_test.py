"""What the packaging commands say when they are called wrongly, or lack a tool.

Called with the folder of the sources.
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

from tests.support import fake_commands

root = pathlib.Path(sys.argv[1])
COPIED = ("script/package", "script/alone", "packaging/build_debian", "packaging/needed")
# The tools, and Debian's packages of them: for any build, for each architecture, for the trials.
BUILD = {"dpkg-buildpackage": "dpkg-dev", "dh": "debhelper", "cmake": "cmake", "make": "make",
         "python3": "python3"}
AMD64 = {"g++": "g++"}
ARMEL = {"arm-linux-gnueabi-g++": "g++-arm-linux-gnueabi",
         "arm-linux-gnueabi-gcc": "gcc-arm-linux-gnueabi"}
TRY = {"lintian": "lintian", "dpkg-scanpackages": "dpkg-dev", "kconfig-conf": "kconfig-frontends"}


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


class Machine(unittest.TestCase):
    """A tree of the commands alone, where script/setup cannot install anything."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        for name in COPIED:
            (self.folder / name).parent.mkdir(exist_ok=True)
            shutil.copy(root / name, self.folder / name)
        (self.folder / "script/setup").write_text("#!/bin/sh\nexit 1\n", encoding="ascii")
        (self.folder / "script/setup").chmod(0o755)
        (self.folder / "packaging/debian").mkdir()
        self.bin = self.folder / "bin"
        self.bin.mkdir()
        for name in ("bash", "sh", "dirname", "xargs", "mkdir", "flock", "cat", "echo", "realpath",
                     "rm", "cp", "tar", "find"):
            (self.bin / name).symlink_to(shutil.which(name))

    def call(self, command, *words):
        """(status, complaints) of a command that finds the commands of this machine only."""
        return call(self.folder / command, *words, env={"PATH": str(self.bin)})

    def assert_names_each_missing(self, needed, command, *words):
        """Of the tools, one at a time is missing."""
        for name in needed:
            (self.bin / name).symlink_to("/bin/true")
        for name, package in needed.items():
            (self.bin / name).unlink()
            with self.subTest(missing=name):
                self.assertEqual(self.call(command, *words),
                                 (1, f"{command}: missing: {package}; install that from Debian, or"
                                  " run `script/setup arm proof` as root\n"))
            (self.bin / name).symlink_to("/bin/true")

    def test_a_missing_tool_is_named_with_its_package(self):
        self.assert_names_each_missing(BUILD | AMD64 | ARMEL | TRY, "script/package")

    def test_building_for_one_architecture_asks_for_its_tools_alone(self):
        for architecture, tools in ("amd64", AMD64), ("armel", ARMEL):
            with self.subTest(architecture=architecture):
                folder = self.folder / architecture
                self.assert_names_each_missing(BUILD | tools, "packaging/build_debian",
                                               architecture, folder)
                self.assertFalse(folder.exists())
                for name in BUILD | tools:
                    (self.bin / name).unlink()

    def test_a_foreign_machine_is_told_with_the_way_out(self):
        fake_commands.write(self.bin, {"dpkg": "echo arm64"})
        refusal = (1, "packaging/build_debian: this machine is arm64, and the packages for amd64"
                   " are built on amd64: take such a machine, or for armel alone"
                   " packaging/build_debian armel FOLDER\n")
        # Before a tool is missed, which would be got in vain.
        self.assertEqual(self.call("packaging/build_debian", "amd64", self.folder / "out"), refusal)
        fake_commands.write(self.bin, dict.fromkeys(BUILD | AMD64 | ARMEL | TRY, ""))
        self.assertEqual(self.call("script/package", "build"), refusal)
        self.assertFalse((self.folder / "out").exists())

    def test_the_terminals_packages_are_built_on_a_foreign_machine(self):
        fake_commands.write(self.bin, {"dpkg": "echo arm64", **dict.fromkeys(BUILD | ARMEL, ""),
                                       "dpkg-buildpackage": "pwd >../built"})
        self.assertEqual(self.call("packaging/build_debian", "armel", self.folder / "out"), (0, ""))
        self.assertTrue((self.folder / "out/built").is_file())

    def test_sources_that_cannot_be_read_are_not_built(self):
        fake_commands.write(self.bin, dict.fromkeys(BUILD | ARMEL, ""))
        (self.bin / "tar").unlink()  # it leads to the real one
        fake_commands.write(self.bin, {"dpkg-buildpackage": "echo >../built",
                                       "tar": 'case $1 in -c) exit 2 ;; esac'})
        status, _ = self.call("packaging/build_debian", "armel", self.folder / "out")
        self.assertNotEqual(status, 0)
        self.assertFalse((self.folder / "out/built").exists())

    def test_a_folder_in_the_tree_is_not_copied_into_itself(self):
        listing = "find . >../listing"
        fake_commands.write(self.bin, dict.fromkeys(BUILD | ARMEL, "")
                            | {"dpkg-buildpackage": listing})
        for folder in ".", "out", "an [o]ut", "out/in":
            with self.subTest(folder=folder):
                place = self.folder / folder
                self.assertEqual(self.call("packaging/build_debian", "armel", place), (0, ""))
                copied = (place / "listing").read_text(encoding="utf-8").splitlines()
                self.assertIn("./packaging/needed", copied)
                self.assertEqual([name for name in copied if name.endswith("-source")], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
