"""Serial numbers that are hard on a format, on a buffer, or missing."""

from board.terminal import OPTIONS
from board.tests.support.case import BoardTest
from tests.support import tool

PARTITION_MIB = 16
LONGEST = "ABCDEFGHIJKLMNOPQRSTUVW"  # 23 characters


class SerialNumber(BoardTest):

    def assert_exported(self, stored, logged, name, command_name=None):
        """Runs the tool; the log shows two forms of the serial number, the stick a third."""
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.terminal.set_serial_number(stored)
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(tool.export_name(name), 1).decode(), self.version())
        stick.check(1)
        output = tool.without_times(self.output())
        self.assertIn(tool.LEVELS + tool.started(logged), output)
        self.assertTrue(output.endswith(
            tool.mounted("sda1", PARTITION_MIB)
            + tool.exported(name if command_name is None else command_name, tool.NO_SUCH_FILE)))

    def test_row_of_text_conversions(self):
        self.assert_exported("%s%s%s%s", "%s%s%s%s", "%s%s%s%s")

    def test_conversion_that_writes(self):
        self.assert_exported("%n", "%n", "%n")

    def test_error_text_conversion_keeps_its_effect(self):
        self.assert_exported("a%mb", "a%mb", "a%mb", f"a{tool.NO_SUCH_FILE}b")

    def test_doubled_percent_keeps_its_effect(self):
        self.assert_exported("a%%b", "a%%b", "a%%b", "a%b")

    def test_percent_at_the_end(self):
        self.assert_exported("50%", "50%", "50%")

    def test_longest(self):
        self.assert_exported(LONGEST, LONGEST, LONGEST)

    def test_too_long_is_cut(self):
        self.assert_exported(LONGEST + "XYZ", LONGEST, LONGEST)

    def test_empty_gets_a_visible_name(self):
        self.assert_exported("", "", tool.NAME_WITHOUT_SERIAL)

    def test_missing_option_store(self):
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.terminal.check(f"rm {OPTIONS}")
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(tool.export_name(tool.NAME_WITHOUT_SERIAL), 1).decode(),
                         self.version())
