"""Serial numbers that are hard on a format, on a buffer, or missing."""

from board import log
from board.case import BoardTest

FALLBACK = "no-serial-number"
PARTITION_MIB = 16
LONGEST = "ABCDEFGHIJKLMNOPQRSTUVW"  # 23 characters


class SerialNumber(BoardTest):

    def assert_exported(self, stored, logged, name, command_name=None):
        """Runs the tool; the log shows two forms of the serial number, the stick a third."""
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.terminal.set_serial_number(stored)
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(f"tesmar_debug/{name}.log", 1).decode(), self.version())
        stick.check(1)
        output = log.shortened(self.output())
        self.assertIn(log.LEVELS + log.started(logged), output)
        self.assertTrue(output.endswith(
            log.mounted("sda1", PARTITION_MIB)
            + log.exported(name if command_name is None else command_name, log.NO_SUCH_FILE)))

    def test_row_of_text_conversions(self):
        self.assert_exported("%s%s%s%s", "%s%s%s%s", "%s%s%s%s")

    def test_conversion_that_writes(self):
        self.assert_exported("%n", "%n", "%n")

    def test_error_text_conversion_keeps_its_effect(self):
        self.assert_exported("a%mb", "a%mb", "a%mb", f"a{log.NO_SUCH_FILE}b")

    def test_doubled_percent_keeps_its_effect(self):
        self.assert_exported("a%%b", "a%%b", "a%%b", "a%b")

    def test_percent_at_the_end(self):
        self.assert_exported("50%", "50%", "50%")

    def test_longest(self):
        self.assert_exported(LONGEST, LONGEST, LONGEST)

    def test_too_long_is_cut(self):
        self.assert_exported(LONGEST + "XYZ", LONGEST, LONGEST)

    def test_empty_gets_a_visible_name(self):
        self.assert_exported("", "", FALLBACK)

    def test_missing_option_store(self):
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.terminal.check("rm /mnt/mtdblock/options.txt")
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(f"tesmar_debug/{FALLBACK}.log", 1).decode(), self.version())
