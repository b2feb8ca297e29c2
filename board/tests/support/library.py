"""What the tests of the library share: calls from a program that lives in the tool's process."""

import shlex

from board.tests.support.case import BoardTest
from tests.support import tool

CALLER = "/usr/lib/libboard_caller.so"


class LibraryTest(BoardTest):
    """A test that calls exported functions, by the scenarios of board/programs/caller*.c."""

    def call(self, scenario, *words, errors=""):
        """Runs a scenario, with all log levels. Returns what it printed and logged."""
        command = shlex.join(["orvatool", "-d", "EIWD", "--", scenario, *map(str, words)])
        result = self.terminal.run(f"LD_PRELOAD={CALLER} {command} && cat {tool.OUTPUT_FILE}")
        self.assertEqual((result.status, result.errors), (0, errors))
        _, calling, called = tool.without_times(result.output).partition("calling\n")
        self.assertEqual(calling, "calling\n")
        return called
