"""How steps are shown: in one line with their time, and whole when they fail."""

import contextlib
import io
import os
import re
import signal
import time
import unittest

from board.step import step
from tests.script.commands import CommandTest
from tests.support import fake_commands

LINE = r"building {5,8}\d+\.\d s\n"
FAILED = "building     failed\n"


class QuietlyTest(CommandTest):
    def quietly(self, text):
        (self.folder / "build").mkdir()
        fake_commands.write(self.folder, {"step": text})
        return self.run_command(". script/steps; Quietly building ./step; echo next")

    def test_a_step_is_one_line(self):
        status, output = self.quietly("echo much; echo more >&2")
        self.assertEqual(status, 0)
        self.assertRegex(output, rf"^{LINE}next\n$")

    def test_a_failing_step_shows_all_it_printed_and_ends_the_command(self):
        status, output = self.quietly("echo much; echo more >&2; exit 3")
        self.assertEqual((status, output), (3, f"{FAILED}much\nmore\n"))

    def test_what_is_said_in_a_commands_own_name_shows(self):
        _, output = self.quietly("echo much; echo 'script/setup: going on' >&2")
        self.assertRegex(output, rf"^{LINE}script/setup: going on\nnext\n$")

    def test_a_step_ends_with_the_command(self):
        (self.folder / "build").mkdir()
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        process = self.start(". script/steps; Quietly waiting sh -c 'echo $$ >pipe; exec sleep 60'")
        number = int(pipe.read_text())
        os.kill(process.pid, signal.SIGKILL)
        process.wait()
        for _ in range(6000):
            if not os.path.exists(f"/proc/{number}"):
                return
            time.sleep(0.01)
        self.fail("the step goes on without the command")


class StepTest(CommandTest):
    def test_shows_what_is_done_and_at_the_end_how_long_it_took(self):
        status, output = self.run_command(". script/steps; Step echo one; Step true; StepTimes")
        self.assertEqual((status, re.sub(r"\d+ s", "N s", output)), (
            0, "\n== echo one\none\n\n== true\n\n    N s  echo one\n    N s  true\n"))

    def test_a_failing_step_ends_the_command(self):
        status, output = self.run_command(". script/steps; Step false; Step echo one")
        self.assertEqual((status, output), (1, "\n== false\n"))


class PythonStep(unittest.TestCase):
    """In Python a step looks as it does in bash."""

    def test_is_one_line(self):
        with contextlib.redirect_stdout(io.StringIO()) as shown:
            with step("building"):
                pass
        self.assertRegex(shown.getvalue(), rf"^{LINE}$")

    def test_that_fails_says_so(self):
        with contextlib.redirect_stdout(io.StringIO()) as shown:
            with self.assertRaises(ValueError):
                with step("building"):
                    raise ValueError
        self.assertEqual(shown.getvalue(), FAILED)


if __name__ == "__main__":
    unittest.main()
