"""What script/setup asks apt for, and the machines that it refuses."""

import os
import re
import subprocess
import unittest

from tests.script.commands import ROOT, CommandTest
from tests.support import fake_commands, private_mounts

FAKES = {
    "dpkg": "echo amd64",
    "dpkg-query": "exit 1",     # nothing is installed
    "id": "echo 0",
    "apt-get": 'case "$*" in *" install "*) echo "$*" >asked ;; esac',
    "python3": 'echo "$*" >>fetched',
}
NOT_HERE = ("script/setup: this is {} on {}, but script/packages lists what Debian 12 has for"
            " amd64: take such a machine, or a container of debian:12; the tool alone is built anywhere,"
            " with g++, cmake and make alone (README.md)\n")


class SetupTest(CommandTest):
    """Runs script/setup where every command that it uses for packages is a fake."""

    def setUp(self):
        super().setUp()
        fake_commands.write(self.folder / "fakes", FAKES)

    def set_up(self, words=""):
        return self.run_command(f"PATH=$PWD/fakes:$PATH; script/setup {words}")

    def asked(self, words):
        """The packages that apt is asked for when none is there."""
        status, output = self.set_up(words)
        self.assertEqual(status, 0, output)
        _, _, names = (self.folder / "asked").read_text().partition(" install ")
        return set(names.split())


class Packages(SetupTest):
    def test_the_quick_loop_gets_no_more_than_it_needs(self):
        names = self.asked("host")
        self.assertLessEqual({"g++", "cmake", "googletest", "strace"}, names)
        others = [name for name in names if re.search("^clang$|-19|arm|qemu|valgrind|bench", name)]
        self.assertEqual(others, [])

    def test_words_add_up(self):
        self.assertEqual(self.asked("arm bench"), self.asked("arm") | self.asked("bench"))
        self.assertNotEqual(self.asked("arm"), self.asked("bench"))

    def test_without_a_word_it_is_what_the_short_run_needs(self):
        self.assertEqual(self.asked(""), self.asked("host arm fuzz analyse"))
        self.assertEqual(self.asked("lock"), self.asked(""))

    def test_the_terminals_own_are_not_installed(self):
        self.assertEqual([name for name in self.asked("") if ":" in name], [])

    def test_the_terminals_own_are_got_for_arm(self):
        for words in "host", "fuzz proof", "arm", "", "lock":
            self.set_up(words)
        self.assertEqual((self.folder / "fetched").read_text(), "-B -m board.packages\n" * 2
                         + "-B -m board.packages lock\n")

    def test_unknown_words_are_refused(self):
        for words in "nonsense", "hos", "host lock", "-x", "host ''":
            status, output = self.set_up(words)
            self.assertEqual(status, 2)
            self.assertRegex(output, r"^usage: script/setup \[lock \| WORD\.\.\.\], .*\bhost\b.*\n")

    def test_commands_ask_for_known_words(self):
        for path in sorted((ROOT / "script").iterdir()):
            text = path.read_text()
            for words in re.findall(r"^ *(?:Quietly .*)?script/setup\b(.*)", text, re.MULTILINE):
                if '"' not in words:
                    with self.subTest(command=path.name, words=words):
                        self.assertEqual(self.set_up(words)[0], 0)


class Machines(SetupTest):
    def test_another_architecture_is_refused(self):
        fake_commands.write(self.folder / "fakes", {"dpkg": "echo arm64"})
        status, output = self.set_up("host")
        self.assertEqual(status, 1)
        self.assertRegex(output, "^" + re.escape(NOT_HERE).replace(r"\{\}", ".*", 1).replace(
            r"\{\}", "arm64") + "$")
        self.assertFalse((self.folder / "asked").exists())

    def test_another_system_is_refused(self):
        release = self.folder / "os-release"
        for name in "Ubuntu 24.04 LTS", "Debian GNU/Linux 13 (trixie)", "no Debian":
            release.write_text("" if name == "no Debian" else f'PRETTY_NAME="{name}"\nID=some\n')
            run = subprocess.run(
                [ROOT / "tests/process/private_mounts", "sh", "-c",
                 'mount --bind "$1" /etc/os-release && PATH=$PWD/fakes:$PATH && script/setup host',
                 "sh", release], cwd=self.folder, capture_output=True, text=True, check=False)
            private_mounts.skip_where_refused(self, run)
            self.assertEqual((run.returncode, run.stdout, run.stderr),
                             (1, "", NOT_HERE.format(name, "amd64")))


if __name__ == "__main__":
    unittest.main()
