"""Rows of the fault catalogue: FAT sticks that are full, damaged, or hold what is in the way."""

import random
import struct

from board.tests.support.faults import EXPORT
from board.tests.support.media import MediaTest
from tests.support import tool
from tests.support.faults import fault

STATE = 0x25         # in the boot sector of FAT12 and FAT16
DIRTY = 1
ROOT_ENTRIES = 32
LONGER = b"an older and longer log\n" * 1000
NO_SPACE, IO_ERROR = "No space left on device", "Input/output error"


class DamagedSticks(MediaTest):

    @fault("Media", "a full stick")
    def test_full(self):
        stick = self.stick(True)
        stick.fill(1)
        before = stick.files(1)
        self.assertIn(NO_SPACE, self.run_on(stick).errors)
        self.assertEqual(stick.files(1), before)

    @fault("Media", "a stick that is full but for its empty export folder")
    def test_full_but_for_the_folder(self):
        stick = self.stick(True)
        stick.make_folder(tool.FOLDER_ON_STICK, 1)
        stick.fill(1)
        self.assertIn(NO_SPACE, self.run_on(stick, error=tool.INVALID).errors)

    @fault("Media", "one free cluster: the folder gets it, the log stays empty")
    def test_one_free_cluster(self):
        stick = self.stick(True)
        stick.fill(1, but_clusters=1)
        self.assertIn(NO_SPACE, self.run_on(stick).errors)
        self.assertEqual(stick.read(EXPORT, 1), b"")

    @fault("Media", "a full root folder")
    def test_full_root_folder(self):
        stick = self.stick(whole="fat16", options=("-r", str(ROOT_ENTRIES), "-a", "-s", "1"))
        with self.assertRaisesRegex(AssertionError, "No directory slots"):
            for number in range(ROOT_ENTRIES):
                stick.write(f"{number}.txt", b"")
        self.assertIn(NO_SPACE, self.run_on(stick, 0).errors)

    @fault("Media", "a stick that was not unmounted in order: the dirty bit stays set")
    def test_dirty_bit(self):
        stick = self.stick(True)
        stick.put(STATE, bytes([DIRTY]), 1)
        self.assert_exported(stick)
        self.assertEqual(stick.get(STATE, 1, 1), bytes([DIRTY]))

    @fault("Media", "the clusters of the export folder run in a circle",
           volume="the kernel finds the circle and leaves its dirty bit set")
    def test_chain_loop_in_the_export_folder(self):
        # The kernel gives up after 4 GiB: with large clusters that is soon.
        stick = self.stick(whole="fat12", mib=3, options=("-s", "64"))
        stick.make_folder(tool.FOLDER_ON_STICK)
        cluster = stick.first_cluster(tool.FOLDER_ON_STICK)
        for table in stick.tables()[0]:
            pair = table + cluster * 3 // 2  # 12 bits for each cluster
            number, = struct.unpack("<H", stick.get(pair, 2))
            number = number & 0x000F | cluster << 4 if cluster % 2 else number & 0xF000 | cluster
            stick.put(pair, struct.pack("<H", number))
        self.run_on(stick, 0, error=IO_ERROR)

    @fault("Media", "random numbers in the tables of clusters")
    def test_random_tables_of_clusters(self):
        stick = self.stick(True)
        tables, size = stick.tables(1)
        for table in tables:
            stick.put(table + 4, random.Random(10).randbytes(size - 4), 1)
        self.assertIn(NO_SPACE, self.run_on(stick).errors)

    @fault("Media", "a boot sector left over from before the stick was partitioned")
    def test_leftover_boot_sector(self):
        stick = self.stick(True, whole="fat16")
        self.assert_exported(stick, 0)
        self.assertNotIn(EXPORT, stick.files(1))

    @fault("Media", "a file system that is larger than its stick")
    def test_file_system_larger_than_the_stick(self):
        stick = self.stick(whole="fat16")
        stick.truncate(8)
        self.assert_exported(stick, 0)

    @fault("Media", "the export folder is a file")
    def test_export_folder_is_a_file(self):
        stick = self.stick(True)
        stick.write(tool.FOLDER_ON_STICK, b"a file", 1)
        self.assertIn("cp: can't stat", self.run_on(stick, error=tool.INVALID).errors)

    @fault("Media", "the log's name is a folder: the log is in it")
    def test_log_name_is_a_folder(self):
        stick = self.stick(True)
        stick.make_folder(tool.FOLDER_ON_STICK, 1)
        stick.make_folder(EXPORT, 1)
        self.assertEqual(self.run_on(stick, error=tool.INVALID).errors, "")
        self.assertEqual(stick.read(f"{EXPORT}/output.txt", 1).decode(), self.version())

    def stick_with_log(self):
        """A stick with a longer log of an earlier run, and one of another terminal."""
        stick = self.stick(True)
        stick.make_folder(tool.FOLDER_ON_STICK, 1)
        stick.write(EXPORT, LONGER, 1)
        stick.write(tool.export_name("other"), LONGER, 1)
        return stick

    @fault("Media", "an earlier log that is longer")
    def test_longer_log(self):
        self.assert_exported(self.stick_with_log(), error=tool.INVALID)

    @fault("Media", "an earlier log with the read-only attribute")
    def test_read_only_log(self):
        stick = self.stick_with_log()
        stick.set_read_only(EXPORT, 1)
        self.assert_exported(stick, error=tool.INVALID)

    @fault("Media", "the kernel's code page module is missing: no FAT can be mounted")
    def test_no_code_page(self):
        self.terminal.check("rmmod nls_cp437")
        self.addCleanup(self.terminal.check, "insmod /modules/*nls_cp437*")
        self.assert_refused(self.stick(True), "sda", "sda1")
