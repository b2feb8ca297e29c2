"""The export onto sticks that work."""

from board.sticks import NOTES
from board.terminal import SERIAL
from board.tests.support.case import HOLD_BEFORE, BoardTest
from tests.support import tool

EXPORT = tool.export_name(SERIAL)
FOLDER = f"{tool.FOLDER_ON_STICK}/"
PARTITION_MIB, WHOLE_MIB = 16, 17


class Export(BoardTest):

    def test_partition(self):
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.assertEqual(self.run_tool("-d", "EIWD").errors, "")
        self.assertEqual(stick.files(1), [NOTES, FOLDER, EXPORT])
        self.assertEqual(stick.read(EXPORT, 1).decode(), self.version())
        stick.check(1)
        self.assertEqual(
            tool.without_times(self.output()),
            self.version() + tool.LEVELS + tool.started(SERIAL) + tool.RELEASED_NOTHING
            + tool.MADE_MOUNT_POINT + tool.refused("sda") + tool.mounted("sda1", PARTITION_MIB)
            + tool.exported(SERIAL, tool.NO_SUCH_FILE))

    def test_without_log_levels(self):
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.assertEqual(self.run_tool().errors, "")
        self.assertEqual(stick.files(1), [NOTES, FOLDER, EXPORT])
        self.assertEqual(stick.read(EXPORT, 1), b"")
        self.assertEqual(self.output(), "")
        stick.check(1)

    def test_stick_without_partition_table(self):
        stick = self.stick()
        self.terminal.plug(stick)
        self.terminal.check(f"mkdir {tool.MOUNT_POINT}")
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(EXPORT).decode(), self.version())
        stick.check()
        self.assertEqual(
            tool.without_times(self.output()),
            self.version() + tool.LEVELS + tool.started(SERIAL) + tool.RELEASED_NOTHING
            + tool.mounted("sda", WHOLE_MIB) + tool.exported(SERIAL, tool.NO_SUCH_FILE))

    def test_second_partition_is_the_first_fat_one(self):
        stick = self.stick(False, True)
        self.terminal.plug(stick)
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(EXPORT, 2).decode(), self.version())
        stick.check(2)
        self.assertIn(tool.refused("sda") + tool.refused("sda1")
                      + tool.mounted("sda2", PARTITION_MIB), tool.without_times(self.output()))

    def test_two_sticks(self):
        first, second = self.stick(True), self.stick(True, name="second")
        self.terminal.plug(first)
        self.terminal.plug(second)
        self.run_tool("-d", "EIWD")
        self.assertEqual(first.files(1), [NOTES, FOLDER, EXPORT])
        self.assertEqual(second.files(1), [NOTES])
        self.assertNotIn("sdb", self.output())

    def test_first_of_two_sticks_is_not_fat(self):
        first, second = self.stick(False), self.stick(name="second")
        self.terminal.plug(first)
        self.terminal.plug(second)
        self.run_tool("-d", "EIWD")
        self.assertEqual(second.read(EXPORT).decode(), self.version())
        self.assertIn(tool.refused("sda") + tool.refused("sda1") + tool.mounted("sdb", WHOLE_MIB),
                      tool.without_times(self.output()))

    def test_later_runs_overwrite(self):
        stick = self.stick(True)
        self.terminal.plug(stick)
        for words, content in (("-d", "EIWD"), self.version()), ((), ""):
            self.run_tool(*words)
            self.assertEqual(stick.files(1), [NOTES, FOLDER, EXPORT])
            self.assertEqual(stick.read(EXPORT, 1).decode(), content)
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(EXPORT, 1).decode(), self.version())
        self.assertTrue(tool.without_times(self.output()).endswith(
            tool.mounted("sda1", PARTITION_MIB) + tool.exported(SERIAL, tool.INVALID)))

    def test_releases_what_was_mounted_before(self):
        stick, other = self.stick(), self.stick(name="other")
        self.terminal.plug(stick)
        self.terminal.plug(other)
        self.mount("sdb")
        self.run_tool("-d", "EIWD")
        self.assertTrue(tool.without_times(self.output()).startswith(
            self.version() + tool.LEVELS + tool.started(SERIAL) + tool.RELEASED
            + tool.mounted("sda", WHOLE_MIB)))
        self.assertEqual(stick.files(), [NOTES, FOLDER, EXPORT])
        self.assertEqual(other.files(), [NOTES])

    def test_mounts_for_reading_and_writing_without_programs(self):
        self.terminal.plug(self.stick(True))
        self.hold_tool_in_copy(HOLD_BEFORE)
        mounts = self.terminal.read("/proc/mounts")
        self.assertIn(f"/dev/sda1 {tool.MOUNT_POINT} vfat rw,noexec,relatime,", mounts)
        self.let_go()

    def test_repeated_option_adds_levels(self):
        self.terminal.plug(self.stick(True))
        self.run_tool("-d", "I", "-d", "W")
        self.assertTrue(tool.without_times(self.output()).startswith(
            self.version() * 2 + tool.LEVELS * 2 + tool.started(SERIAL) + tool.RELEASED_NOTHING))
