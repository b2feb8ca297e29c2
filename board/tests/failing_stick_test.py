"""Sticks that are not yet there, pulled out, or in use: nothing is lost or left behind."""

from board.sticks import NOTES
from board.terminal import SERIAL
from board.tests.support.case import HOLD_AFTER, HOLD_BEFORE, BoardTest
from tests.support import tool

EXPORT = tool.export_name(SERIAL)
PARTITION_MIB, WHOLE_MIB = 16, 17
NEVER_S = 100000


class FailingStick(BoardTest):

    def assert_whole_output(self, *lines):
        """The RAM-disk file holds what every run writes, then these lines, and no more."""
        self.assertEqual(tool.without_times(self.output()), "".join(
            (self.version(), tool.LEVELS, tool.started(SERIAL)) + lines))

    def assert_tried_to_export(self, error):
        """The partition was mounted and unmounted; before the copy, errno told this error."""
        self.assert_whole_output(
            tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT, tool.refused("sda"),
            tool.mounted("sda1", PARTITION_MIB), tool.exported(SERIAL, error))

    def test_stick_that_is_not_yet_a_disk(self):
        self.terminal.check(f"echo {NEVER_S} >/sys/module/usb_storage/parameters/delay_use")
        self.terminal.plug_in(self.stick(True))
        self.terminal.wait_for("[ $(ls /proc/bus/usb/001 | wc -l) = 2 ]")
        self.run_tool("-d", "EIWD")
        self.assert_whole_output(tool.RELEASED_NOTHING, tool.NOTHING_MOUNTED)

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
