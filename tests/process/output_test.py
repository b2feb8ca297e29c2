"""The output file, and what of it is in the copy."""

import os

from terminal import (FIRST_TICK, SECOND_TICK, STAMP, TerminalTest, kernel_version, read, tree,
                      write)
from tests.support import tool
from tests.support.tool import EXPORT_FOLDER, OUTPUT_FILE

COPY = f"{tool.MOUNT_POINT}/{tool.export_name('12345')}"


class Output(TerminalTest):
    def test_copy_holds_what_has_reached_the_file(self):
        self.run_tool("-d", "EIWD")
        self.assertEqual(read(COPY), kernel_version())

    def test_file_gets_the_rest_at_the_end(self):
        self.run_tool("-d", "EIWD")
        self.assertEqual(
            tool.shortened(read(OUTPUT_FILE), STAMP),
            kernel_version() + tool.LEVELS + tool.started("12345", FIRST_TICK, SECOND_TICK)
            + tool.RELEASED_NOTHING + tool.mounted("sda", 7639)
            + tool.exported("12345", tool.NO_SUCH_FILE))

    def test_order_of_repeated_levels(self):
        self.run_tool("-d", "", "-d", "")
        self.assertEqual(read(OUTPUT_FILE),
                         2 * kernel_version() + 2 * tool.LEVELS)
        self.assertEqual(read(COPY), 2 * kernel_version())

    def test_full_buffer_reaches_the_copy(self):
        disks = "".join(f"   8 0 1024 sd{number}\n" for number in range(100))
        self.set_partitions("header\n\n" + disks)
        self.mount_results = 99 * "-1," + "0"
        self.run_tool("-d", "EIWD")
        copy = read(COPY)
        output = read(OUTPUT_FILE)
        self.assertGreater(len(copy), len(kernel_version()) + 4000)
        self.assertLess(len(copy), len(output))
        self.assertTrue(output.startswith(copy))

    def test_without_levels_file_and_copy_are_empty(self):
        self.run_tool()
        self.assertEqual(read(OUTPUT_FILE), "")
        self.assertEqual(read(COPY), "")

    def test_file_is_rewritten_from_empty(self):
        write(OUTPUT_FILE, "old " * 5000)
        self.run_tool()
        self.assertEqual(read(OUTPUT_FILE), "")

    def test_second_run_overwrites_the_copy(self):
        self.run_tool("-d", "EIWD", "-d", "E")
        self.assertEqual(read(COPY), 2 * kernel_version())
        self.run_tool("-d", "E")
        self.assertEqual(read(COPY), kernel_version())
        self.assertEqual(os.listdir(EXPORT_FOLDER), ["12345.log"])

    def test_nothing_else_is_written(self):
        before = tree("/mnt")
        self.run_tool("-d", "EIWD")
        after = tree("/mnt")
        self.assertEqual(sorted(after.keys() - before.keys()),
                         [OUTPUT_FILE, EXPORT_FOLDER, COPY])
        self.assertEqual(before, {path: after[path] for path in before})
