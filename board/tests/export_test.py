"""The export onto sticks that work."""

from board import log
from board.case import HOLD_BEFORE, SERIAL, BoardTest
from board.sticks import NOTES

EXPORT = f"tesmar_debug/{SERIAL}.log"
FOLDER = "tesmar_debug/"
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
            log.shortened(self.output()),
            self.version() + log.LEVELS + log.started(SERIAL) + log.RELEASED_NOTHING
            + log.MADE_MOUNT_POINT + log.refused("sda") + log.mounted("sda1", PARTITION_MIB)
            + log.exported(SERIAL, log.NO_SUCH_FILE))

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
        self.terminal.check("mkdir /mnt/removable")
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(EXPORT).decode(), self.version())
        stick.check()
        self.assertEqual(
            log.shortened(self.output()),
            self.version() + log.LEVELS + log.started(SERIAL) + log.RELEASED_NOTHING
            + log.mounted("sda", WHOLE_MIB) + log.exported(SERIAL, log.NO_SUCH_FILE))

    def test_second_partition_is_the_first_fat_one(self):
        stick = self.stick(False, True)
        self.terminal.plug(stick)
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(EXPORT, 2).decode(), self.version())
        stick.check(2)
        self.assertIn(log.refused("sda") + log.refused("sda1")
                      + log.mounted("sda2", PARTITION_MIB), log.shortened(self.output()))

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
        self.assertIn(log.refused("sda") + log.refused("sda1") + log.mounted("sdb", WHOLE_MIB),
                      log.shortened(self.output()))

    def test_later_runs_overwrite(self):
        stick = self.stick(True)
        self.terminal.plug(stick)
        for words, content in (("-d", "EIWD"), self.version()), ((), ""):
            self.run_tool(*words)
            self.assertEqual(stick.files(1), [NOTES, FOLDER, EXPORT])
            self.assertEqual(stick.read(EXPORT, 1).decode(), content)
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(EXPORT, 1).decode(), self.version())
        self.assertTrue(log.shortened(self.output()).endswith(
            log.mounted("sda1", PARTITION_MIB) + log.exported(SERIAL, log.INVALID)))

    def test_releases_what_was_mounted_before(self):
        stick, other = self.stick(), self.stick(name="other")
        self.terminal.plug(stick)
        self.terminal.plug(other)
        self.terminal.check("mkdir /mnt/removable && mount -t vfat /dev/sdb /mnt/removable")
        self.run_tool("-d", "EIWD")
        self.assertTrue(log.shortened(self.output()).startswith(
            self.version() + log.LEVELS + log.started(SERIAL) + log.RELEASED
            + log.mounted("sda", WHOLE_MIB)))
        self.assertEqual(stick.files(), [NOTES, FOLDER, EXPORT])
        self.assertEqual(other.files(), [NOTES])

    def test_mounts_for_reading_and_writing_without_programs(self):
        self.terminal.plug(self.stick(True))
        self.hold_tool_in_copy(HOLD_BEFORE)
        mounts = self.terminal.read("/proc/mounts")
        self.assertIn("/dev/sda1 /mnt/removable vfat rw,noexec,relatime,", mounts)
        self.let_go()

    def test_repeated_option_adds_levels(self):
        self.terminal.plug(self.stick(True))
        self.run_tool("-d", "I", "-d", "W")
        self.assertTrue(log.shortened(self.output()).startswith(
            self.version() * 2 + log.LEVELS * 2 + log.started(SERIAL) + log.RELEASED_NOTHING))
