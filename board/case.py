"""What the board tests share: one terminal, reset before each test, and the run of the tool."""

import unittest
from pathlib import Path

from board.machine import MachineGone
from board.sticks import Stick
from board.terminal import Terminal

BUILD = None  # the ARM build folder; set before the tests run
SERIAL = "4711-0815"
OUTPUT = "/mnt/ramdisk/output.txt"
COPY = "/tmp/bin/cp"  # stands in front of the real one when the tool is held
# Two ways to hold the copy until `let_go`: before anything is copied, and before the copy's end.
HOLD_BEFORE = ">/tmp/held; until [ -e /tmp/go ]; do usleep 10000; done; exec /bin/cp $*"
HOLD_AFTER = "/bin/cp $*; >/tmp/held; until [ -e /tmp/go ]; do usleep 10000; done"
_terminals = []  # the last one is in use; another one is booted when it died


def clean_up():
    """Switches every terminal off."""
    while _terminals:
        _terminals.pop().clean_up()


def fresh_terminal():
    """A terminal in its state after the boot."""
    if _terminals:
        try:
            _terminals[-1].reset()
            return _terminals[-1]
        except (MachineGone, AssertionError):  # another test has ruined it: here is a new one
            _terminals[-1].end()
    _terminals.append(Terminal(BUILD))
    return _terminals[-1]


class BoardTest(unittest.TestCase):
    """A test on a fresh terminal: no stick, empty RAM disk, serial number stored."""

    maxDiff = None

    def setUp(self):
        self.terminal = fresh_terminal()
        self.terminal.set_serial_number(SERIAL)

    def build(self, path):
        """A file of the ARM build folder."""
        return Path(BUILD) / path

    def stick(self, *partitions, name="stick", **options):
        """A new stick; see `Stick` for the words."""
        return Stick(self.terminal.folder / f"{name}.img", *partitions, **options)

    def assert_ended_well(self, result):
        """Whatever happened, the tool ends with status 0 and leaves nothing mounted."""
        self.assertEqual(result.status, 0, result.errors)
        self.assertNotIn("/mnt/removable", self.terminal.read("/proc/mounts"))

    def run_tool(self, *words):
        """Runs the tool and checks that it ended well."""
        result = self.terminal.run(" ".join(["orvatool", *words]))
        self.assert_ended_well(result)
        self.assertEqual(result.output, "")
        return result

    def hold_tool_in_copy(self, hold):
        """Runs the tool up to its copy command."""
        self.terminal.write(COPY, f"#!/bin/sh\n{hold}\n")
        self.terminal.check(f"chmod 755 {COPY}")
        self.terminal.start("PATH=/tmp/bin:$PATH orvatool -d EIWD")
        self.terminal.wait_for("[ -e /tmp/held ]")

    def let_go(self):
        """Lets the tool that is held go on, and checks that it ends well."""
        self.terminal.check(">/tmp/go")
        self.assert_ended_well(self.terminal.finish())

    def version(self):
        """What a technician finds first in an export with log levels."""
        return self.terminal.read("/proc/version")

    def output(self):
        """The RAM-disk file."""
        return self.terminal.read(OUTPUT)
