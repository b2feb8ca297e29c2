"""The fixture of the board's rows: a promise that is broken on the terminal is reported.

The terminal is none. The stick is a real image, and a run of the tool does to it what a test says.
"""

import tempfile
import unittest
from pathlib import Path
from unittest import mock

from board import session
from board.fat import FAT12_BITS
from board.sticks import run
from board.terminal import SERIAL, Result
from board.tests.support import faults
from board.tests.support.case import BoardTest
from board.tests.support.faults import FaultTest
from tests.support import tool
from tests.support.faults import PROMISES, fault

VERSION = "Linux version 6.1\n"
MOUNTS = "tmpfs /mnt tmpfs rw 0 0\n"
OLD_FILE = "music/deep/song.mp3"
LOST_CLUSTER = 400  # behind the files: no chain leads there


class FakeTerminal:
    """A terminal whose run of the tool keeps every promise, but for what `change` does then."""

    def __init__(self, folder, change):
        self.folder = folder
        self.files = {"/proc/version": VERSION, "/proc/mounts": MOUNTS}
        self.status = 0
        self._change = change

    def set_serial_number(self, _):
        """Nobody reads it here."""

    def read(self, path):
        """The content of a file."""
        return self.files[path]

    def plug(self, stick):
        """Plugs in the stick that a change may damage."""
        self.stick = stick

    def run(self, *_, **__):
        """Runs the tool."""
        self.files[tool.OUTPUT_FILE] = VERSION + tool.LEVELS + tool.started(SERIAL)
        self._change(self)
        return Result(self.status, "", "")


def end_with_1(terminal):
    terminal.status = 1


def cut_the_output(terminal):
    terminal.files[tool.OUTPUT_FILE] = VERSION


def stay_mounted(terminal):
    terminal.files["/proc/mounts"] += f"/dev/sda {tool.MOUNT_POINT} vfat rw 0 0\n"


def lose_an_old_file(terminal):
    run("mdel", "-i", str(terminal.stick.image), f"::/{OLD_FILE}")


def lose_a_cluster(terminal):
    for table in terminal.stick.tables()[0]:
        terminal.stick.put(table + LOST_CLUSTER * FAT12_BITS // 8, b"\xFF\x0F")


def change_nothing(_):
    pass


BROKEN = {"exit": end_with_1, "output": cut_the_output, "mounts": stay_mounted,
          "files": lose_an_old_file, "volume": lose_a_cluster, "time": change_nothing}


class Promises(unittest.TestCase):
    def report_of(self, change=change_nothing, body=FaultTest.run_row, fixture=FaultTest,
                  **exceptions):
        """What a row reports: (promise, text) of each failure. Its stick is plugged in."""
        class Row(fixture):
            def test_row(self):
                self.plug(self.stick(whole="fat12", mib=1))
                body(self)
            test_row = fault("Media", "none of the catalogue", **exceptions)(test_row)
        result = unittest.TestResult()
        with tempfile.TemporaryDirectory(prefix="promises-") as folder:
            terminal = FakeTerminal(Path(folder), change)
            with mock.patch.object(session, "fresh_terminal", return_value=terminal):
                Row("test_row").run(result)
        self.assertEqual(result.testsRun, 1)
        return [(dict(getattr(test, "params", {})).get("promise"), text)
                for test, text in result.failures + result.errors]

    def broken(self, promise, **exceptions):
        """The promises that are reported when one is broken."""
        bound_s = 0 if promise == "time" else faults.BOUND_S
        with mock.patch.object(faults, "BOUND_S", bound_s):
            return [name for name, _ in self.report_of(BROKEN[promise], **exceptions)]

    def test_that_are_kept_are_not_reported(self):
        self.assertEqual(self.report_of(), [])

    def test_that_are_broken_are_reported_each(self):
        self.assertEqual(list(BROKEN), list(PROMISES))
        for promise in PROMISES:
            with self.subTest(promise=promise):
                self.assertEqual(self.broken(promise), [promise])

    def test_with_an_exception_are_not_reported(self):
        for promise in PROMISES:
            with self.subTest(promise=promise):
                self.assertEqual(self.broken(promise, **{promise: "it may"}), [])

    def test_that_no_row_checks_are_reported(self):
        (_, text), = self.report_of(body=lambda row: row.terminal.run())
        self.assertIn("this test is a row, and checks no promise", text)

    def test_without_the_fixture_are_reported(self):
        (_, text), = self.report_of(fixture=BoardTest)
        self.assertIn("a row of the fault catalogue stands in a FaultTest", text)


if __name__ == "__main__":
    unittest.main()
