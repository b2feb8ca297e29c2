"""What the board tests share: one terminal, reset before each test, and the run of the tool."""

import unittest

from board import session
from board.sticks import Stick
from board.terminal import SERIAL
from tests.support import tool

PROGRAMS = "/tmp/bin"  # stands in front of the real ones when the tool is held
# Two ways to hold the copy until `let_go`: before anything is copied, and before the copy's end.
HOLD_BEFORE = ">/tmp/held; until [ -e /tmp/go ]; do usleep 10000; done; exec /bin/cp $*"
HOLD_AFTER = "/bin/cp $*; >/tmp/held; until [ -e /tmp/go ]; do usleep 10000; done"


class BoardTest(unittest.TestCase):
    """A test on a fresh terminal: no stick, empty RAM disk, serial number stored."""

    maxDiff = None
    checks_promises = False

    def setUp(self):
        is_row = hasattr(getattr(self, self._testMethodName), "fault")
        self.assertTrue(self.checks_promises or not is_row,
                        "a row of the fault catalogue stands in a FaultTest")
        self.terminal = session.fresh_terminal()
        self.terminal.set_serial_number(SERIAL)

    def build(self, path):
        """A file of the ARM build folder."""
        return session.built(path)

    def stick(self, *partitions, name="stick", **options):
        """A new stick; see `Stick` for the words."""
        return Stick(self.terminal.folder / f"{name}.img", *partitions, **options)

    def mount(self, device):
        """Mounts a device where the tool does, as if an earlier run had left it there."""
        self.terminal.check(f"mkdir {tool.MOUNT_POINT}"
                            f" && mount -t vfat /dev/{device} {tool.MOUNT_POINT}")

    def assert_ended_well(self, result):
        """Whatever happened, the tool ends with status 0 and leaves nothing mounted."""
        self.assertEqual(result.status, 0, result.errors)
        self.assertNotIn(tool.MOUNT_POINT, self.terminal.read("/proc/mounts"))

    def run_tool(self, *words):
        """Runs the tool and checks that it ended well."""
        result = self.terminal.run(" ".join(["orvatool", *words]))
        self.assert_ended_well(result)
        self.assertEqual(result.output, "")
        return result

    def hold_tool_in(self, program, hold):
        """Runs the tool up to a program that it calls."""
        self.terminal.write(f"{PROGRAMS}/{program}", f"#!/bin/sh\n{hold}\n")
        self.terminal.check(f"chmod 755 {PROGRAMS}/{program}")
        self.terminal.start(f"PATH={PROGRAMS}:$PATH orvatool -d EIWD")
        self.terminal.wait_for("[ -e /tmp/held ]")

    def hold_tool_in_copy(self, hold):
        """Runs the tool up to its copy command."""
        self.hold_tool_in("cp", hold)

    def let_go(self):
        """Lets the tool that is held go on, and checks that it ends well."""
        self.terminal.check(">/tmp/go")
        self.assert_ended_well(self.terminal.finish())

    def version(self):
        """What a technician finds first in an export with log levels."""
        return self.terminal.read("/proc/version")

    def output(self):
        """The RAM-disk file."""
        return self.terminal.read(tool.OUTPUT_FILE)
