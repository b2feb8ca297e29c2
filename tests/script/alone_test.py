"""Of two commands that build in one tree, the second waits; what one starts does not."""

import os
import re
import signal
import unittest

from tests.script.commands import ROOT, CommandTest

TAKE = ". script/alone; "
BUILDS = re.compile(r"^[^#\n]*\bcmake (--preset|--build|-S)", re.MULTILINE)


class Alone(CommandTest):
    def setUp(self):
        super().setUp()
        for name in "taken", "go":
            os.mkfifo(self.folder / name)

    def hold(self):
        """Starts a command that has the tree until something comes out of the pipe `go`."""
        process = self.start(f"set some words; {TAKE} echo >taken; read -r _ <go")
        (self.folder / "taken").read_text()
        return process

    def test_the_second_waits_for_the_first_and_names_it(self):
        first = self.hold()
        second = self.start(f"{TAKE} echo taken")
        self.assertEqual(second.stdout.readline(),
                         f"script/some: waiting for script/some some words (process {first.pid}),"
                         " which runs in this folder\n")
        (self.folder / "go").write_text("\n")
        self.assertEqual((second.stdout.read(), second.wait()), ("taken\n", 0))

    def test_what_a_command_starts_is_a_part_of_it(self):
        nested = f"timeout 60 bash -c '{TAKE} echo inside'"
        self.assertEqual(self.run_command(f"{TAKE} {nested}; echo on"), (0, "inside\non\n"))

    def test_another_tree_is_another_matter(self):
        self.hold()
        (self.folder / "other").mkdir()
        (self.folder / "other/script").symlink_to(self.folder / "script")
        self.assertEqual(self.run_command(f"cd other; {TAKE} echo taken"), (0, "taken\n"))

    def test_a_command_that_was_killed_keeps_nobody_waiting(self):
        first = self.hold()
        os.kill(first.pid, signal.SIGKILL)
        first.wait()
        self.assertEqual(self.run_command(f"{TAKE} echo taken"), (0, "taken\n"))


class Commands(unittest.TestCase):
    def test_each_that_builds_takes_the_tree(self):
        texts = {path.name: path.read_text(encoding="utf-8")
                 for path in (ROOT / "script").iterdir() if path.name != "packages.lock"}
        building = {name for name, text in texts.items() if BUILDS.search(text)}
        self.assertLess({"test", "process", "analyse"}, building)
        for name in sorted(building):
            with self.subTest(command=name):
                self.assertRegex(texts[name], r"(?m)^ *\. script/alone$")


if __name__ == "__main__":
    unittest.main()
