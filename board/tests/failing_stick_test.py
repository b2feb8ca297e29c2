"""Sticks that are not there, not readable, full, or pulled out: nothing is lost or left behind."""

from board.sticks import NOTES
from board.terminal import SERIAL
from board.tests.support.case import HOLD_AFTER, HOLD_BEFORE, BoardTest
from tests.support import tool

EXPORT = tool.export_name(SERIAL)
PARTITION_MIB, WHOLE_MIB = 16, 17
READ_FAULT = {"event": "none", "iotype": "read", "errno": 5}
WRITE_FAULT = {"event": "none", "iotype": "write", "errno": 5}
NEVER_S = 100000


class FailingStick(BoardTest):

    def assert_whole_output(self, *lines):
        """The RAM-disk file holds what every run writes, then these lines, and no more."""
        self.assertEqual(tool.without_times(self.output()), "".join(
            (self.version(), tool.LEVELS, tool.started(SERIAL)) + lines))

    def assert_not_mounted(self, *devices):
        """Each device was tried and refused, on a mount point that was missing at first."""
        self.assert_whole_output(tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT,
                                 *map(tool.refused, devices), tool.NOTHING_MOUNTED)
        self.assertEqual(self.terminal.check(f"ls {tool.MOUNT_POINT}"), "")

    def assert_tried_to_export(self, error):
        """The partition was mounted and unmounted; before the copy, errno told this error."""
        self.assert_whole_output(
            tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT, tool.refused("sda"),
            tool.mounted("sda1", PARTITION_MIB), tool.exported(SERIAL, error))

    def test_no_stick(self):
        self.run_tool("-d", "EIWD")
        self.assert_whole_output(tool.NO_STICK)
        self.assertEqual(self.terminal.run(f"ls {tool.MOUNT_POINT}").output, "")

    def test_stick_that_is_not_yet_a_disk(self):
        self.terminal.check(f"echo {NEVER_S} >/sys/module/usb_storage/parameters/delay_use")
        self.terminal.plug_in(self.stick(True))
        self.terminal.wait_for("[ $(ls /proc/bus/usb/001 | wc -l) = 2 ]")
        self.run_tool("-d", "EIWD")
        self.assert_whole_output(tool.RELEASED_NOTHING, tool.NOTHING_MOUNTED)

    def test_no_fat(self):
        self.terminal.plug(self.stick(False, False))
        self.run_tool("-d", "EIWD")
        self.assert_not_mounted("sda", "sda1", "sda2")

    def test_unreadable(self):
        stick = self.stick(fault=READ_FAULT)
        self.terminal.plug(stick)
        self.run_tool("-d", "EIWD")
        self.assert_not_mounted("sda")

    def test_write_protected(self):
        stick = self.stick(True, read_only=True)
        self.terminal.plug(stick)
        self.run_tool("-d", "EIWD")
        self.assert_not_mounted("sda", "sda1")
        self.assertEqual(stick.files(1), [NOTES])

    def test_full(self):
        stick = self.stick(True)
        stick.fill(1)
        before = stick.files(1)
        self.terminal.plug(stick)
        self.assertIn("No space left on device", self.run_tool("-d", "EIWD").errors)
        self.assert_tried_to_export(tool.NO_SUCH_FILE)
        stick.check(1)
        self.assertEqual(stick.files(1), before)

    def test_full_but_for_the_folder(self):
        stick = self.stick(True)
        stick.make_folder(tool.FOLDER_ON_STICK, 1)
        stick.fill(1)
        self.terminal.plug(stick)
        self.assertIn("No space left on device", self.run_tool("-d", "EIWD").errors)
        self.assert_tried_to_export(tool.INVALID)
        stick.check(1)

    def test_failing_writes(self):
        self.terminal.plug(self.stick(True, fault=WRITE_FAULT))
        self.run_tool("-d", "EIWD")
        self.assert_tried_to_export(tool.NO_SUCH_FILE)

    def pull_out_during_copy(self, hold):
        """Pulls the stick out while the tool's copy command is held."""
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.hold_tool_in_copy(hold)
        self.terminal.unplug()
        self.terminal.wait_for("[ ! -e /sys/block/sda ]")
        self.let_go()
        self.assert_tried_to_export(tool.NO_SUCH_FILE)
        return stick

    def test_pulled_out_before_the_copy(self):
        stick = self.pull_out_during_copy(HOLD_BEFORE)
        self.assertNotIn(EXPORT, stick.files(1))

    def test_pulled_out_after_the_copy_and_before_its_sync(self):
        stick = self.pull_out_during_copy(HOLD_AFTER)
        self.assertEqual(stick.read(NOTES, 1), b"mine")

    def test_mount_point_in_use(self):
        self.terminal.plug(self.stick())
        self.mount("sda")
        self.terminal.start(f"cd {tool.MOUNT_POINT} && exec sleep 1000")
        self.terminal.wait_for(f'[ "$(readlink /proc/$(pidof sleep)/cwd)" = {tool.MOUNT_POINT} ]')
        self.assertEqual(self.terminal.run("orvatool -d EIWD").status, 0)
        self.assert_whole_output(tool.RELEASED_NOTHING, tool.refused("sda"), tool.NOTHING_MOUNTED)
        self.terminal.check("kill $(pidof sleep)")
        self.terminal.finish()
        self.run_tool("-d", "EIWD")
        self.assert_whole_output(tool.RELEASED, tool.mounted("sda", WHOLE_MIB),
                                 tool.exported(SERIAL, tool.NO_SUCH_FILE))
