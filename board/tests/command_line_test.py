"""The command line, and the RAM disk that everything is written to."""

from board.sticks import NOTES
from board.terminal import SERIAL
from board.tests.support.case import BoardTest
from tests.support import tool


class CommandLine(BoardTest):

    def assert_usage(self, *words):
        """The tool complains, writes its usage into the RAM-disk file and touches no stick."""
        stick = self.stick(True)
        before = stick.image.read_bytes()
        self.terminal.plug(stick)
        result = self.run_tool(*words)
        self.assertIn("orvatool: ", result.errors)
        self.terminal.unplug()
        self.assertEqual(stick.image.read_bytes(), before)
        self.assertEqual(self.terminal.run(f"ls -d {tool.MOUNT_POINT}").output, "")
        return self.output()

    def test_unknown_option(self):
        self.assertEqual(self.assert_usage("-x"), tool.USAGE)

    def test_option_without_letters(self):
        self.assertEqual(self.assert_usage("-d"), tool.USAGE)

    def test_unknown_option_behind_levels(self):
        self.assertEqual(self.assert_usage("-d", "I", "-x"),
                         self.version() + tool.LEVELS + tool.USAGE)

    def test_empty_letters_enable_nothing(self):
        self.run_tool("-d", "''")
        self.assertEqual(self.output(), self.version() + tool.LEVELS)

    def test_other_words_are_ignored(self):
        self.run_tool("word", "-d", "I", "other")
        self.assertEqual(tool.without_times(self.output()),
                         self.version() + tool.LEVELS + tool.started(SERIAL) + tool.NO_STICK)

    def test_output_file_is_rewritten(self):
        self.terminal.write(tool.OUTPUT_FILE, "old\n" * 1000)
        self.run_tool()
        self.assertEqual(self.output(), "")

    def test_times_and_ticks(self):
        earliest_s = int(self.terminal.check("date +%s"))
        self.run_tool("-d", "I")
        latest_s = int(self.terminal.check("date +%s"))
        init, _, begin = self.output().splitlines()[2:5]
        stamp = init[len("[orvatool:"):init.index("]")]
        stamp_s = int(self.terminal.check(f"date -D %Y-%m-%dT%H:%M:%S -d {stamp} +%s"))
        self.assertTrue(earliest_s <= stamp_s <= latest_s, (earliest_s, stamp, latest_s))
        # The tick is the wall clock in milliseconds, cut to 32 bits.
        passed_ms = [(int(line.split("time:")[1].split()[0]) - earliest_s * 1000) % 2**32
                     for line in (init, begin)]
        self.assertEqual(passed_ms, sorted(passed_ms))
        self.assertLess(passed_ms[1], (latest_s + 1 - earliest_s) * 1000)

    def test_no_ram_disk(self):
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.terminal.check(f"umount {tool.RAM_DISK} && rmdir {tool.RAM_DISK}")
        result = self.run_tool("-d", "EIWD")
        self.assertIn(tool.OUTPUT_FILE, result.errors)
        self.assertEqual(stick.files(1), [NOTES, f"{tool.FOLDER_ON_STICK}/"])
        stick.check(1)
