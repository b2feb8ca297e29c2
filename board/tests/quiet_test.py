"""Runs without log levels: what is left on the stick, while no line tells how it went."""

from board.sticks import NOTES
from board.terminal import SERIAL
from board.tests.support.case import BoardTest
from tests.support import tool

EXPORT = tool.export_name(SERIAL)
FOLDER = f"{tool.FOLDER_ON_STICK}/"


class WithoutLogLevels(BoardTest):

    def run_quietly(self):
        """Runs the tool, which writes no line. Returns what its commands print."""
        errors = self.run_tool().errors
        self.assertEqual(self.output(), "")
        return errors

    def test_the_copy_is_empty(self):
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.assertEqual(self.run_quietly(), "")
        self.assertEqual(stick.files(1), [NOTES, FOLDER, EXPORT])
        self.assertEqual(stick.read(EXPORT, 1), b"")
        stick.check(1)

    def test_a_full_stick_stays_as_it_is(self):
        stick = self.stick(True)
        stick.fill(1)
        before = stick.files(1)
        self.terminal.plug(stick)
        self.assertIn("No space left on device", self.run_quietly())
        self.assertEqual(stick.files(1), before)

    def test_no_stick_and_one_that_is_refused_look_alike(self):
        self.assertEqual(self.run_quietly(), "")
        for stick in (self.stick(whole="ext4", mib=4, name="not_fat"),
                      self.stick(True, read_only=True, name="read_only")):
            with self.subTest(stick=stick.image.name):
                before = stick.image.read_bytes()
                self.terminal.plug(stick)
                self.assertEqual(self.run_quietly(), "")
                self.assertEqual(self.terminal.check(f"ls {tool.MOUNT_POINT}"), "")
                self.terminal.unplug()
                self.assertTrue(stick.image.read_bytes() == before, "it was written to")

    def test_a_wrong_partition_gets_the_copy(self):
        stick = self.stick(True, whole="fat16")
        self.terminal.plug(stick)
        self.assertEqual(self.run_quietly(), "")
        self.assertEqual(stick.files(1), [NOTES])
        self.assertEqual(stick.read(EXPORT), b"")
