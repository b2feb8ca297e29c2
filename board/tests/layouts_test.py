"""Rows of the fault catalogue: file systems and partition tables of all kinds."""

import random

from board.sticks import MIB
from board.terminal import SERIAL
from board.tests.support.faults import EXPORT, FaultTest
from tests.support import tool
from tests.support.faults import fault


class Layouts(FaultTest):

    def assert_exported(self, stick, partition, *refused):
        """Runs the tool: these devices are refused, then a partition of the stick gets the log."""
        self.plug(stick)
        device = f"sda{partition or ''}"
        self.assertEqual(self.run_row(
            tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT, *map(tool.refused, refused),
            tool.mounted(device, stick.mib(partition)),
            tool.exported(SERIAL, tool.NO_SUCH_FILE)).errors, "")
        self.assertEqual(stick.read(EXPORT, partition).decode(), self.version())

    def assert_refused(self, stick, *refused):
        """Runs the tool: no device is mounted."""
        self.plug(stick)
        self.run_row(tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT, *map(tool.refused, refused),
                     tool.NOTHING_MOUNTED)

    @fault("Media", "FAT12 on the whole stick")
    def test_fat12(self):
        self.assert_exported(self.stick(whole="fat12", mib=1), 0)

    @fault("Media", "FAT16 on the whole stick")
    def test_fat16(self):
        self.assert_exported(self.stick(whole="fat16"), 0)

    @fault("Media", "FAT32 on the whole stick")
    def test_fat32(self):
        self.assert_exported(self.stick(whole="fat32", mib=33), 0)

    @fault("Media", "old partition table (MBR) with one FAT partition")
    def test_one_partition(self):
        self.assert_exported(self.stick(True), 1, "sda")

    @fault("Media", "old partition table (MBR) with two FAT partitions: the first gets the log")
    def test_two_partitions(self):
        self.assert_exported(self.stick(True, True), 1, "sda")

    @fault("Media", "GUID partition table (GPT)")
    def test_gpt(self):
        self.assert_exported(self.stick(True, gpt=True), 1, "sda")

    @fault("Media", "first partition ext4, second FAT")
    def test_ext4_before_fat(self):
        self.assert_exported(self.stick("ext4", True), 2, "sda", "sda1")

    @fault("Media", "first partition NTFS, second FAT")
    def test_ntfs_before_fat(self):
        self.assert_exported(self.stick("ntfs", True), 2, "sda", "sda1")

    @fault("Media", "16 candidates: a disk with 15 partitions, of which the last one is FAT")
    def test_16_candidates(self):
        stick = self.stick(*["zeros"] * 14, "fat12", gpt=True, mib=1)
        self.assert_exported(stick, 15, "sda", *(f"sda{number}" for number in range(1, 15)))

    @fault("Media", "exFAT on the whole stick")
    def test_exfat(self):
        self.assert_refused(self.stick(whole="exfat", mib=4), "sda")

    @fault("Media", "ext4 on the whole stick")
    def test_ext4(self):
        self.assert_refused(self.stick(whole="ext4", mib=4), "sda")

    @fault("Media", "nothing but zeros on the stick")
    def test_zeros(self):
        self.assert_refused(self.stick(whole="zeros", mib=1), "sda")

    @fault("Media", "random bytes on the whole stick")
    def test_random_bytes(self):
        stick = self.stick(whole="zeros", mib=1)
        stick.put(0, random.Random(10).randbytes(stick.mib() * MIB))
        self.assert_refused(stick, "sda")
