"""Rows of the fault catalogue: file systems and partition tables of all kinds."""

import random

from board.sticks import MIB
from board.tests.support.faults import EXPORT
from board.tests.support.media import MediaTest, log_of
from tests.support.faults import fault


class Layouts(MediaTest):

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
        self.assert_exported(self.stick(True))

    @fault("Media", "old partition table (MBR) with two FAT partitions: the first gets the log")
    def test_two_partitions(self):
        self.assert_exported(self.stick(True, True))

    @fault("Media", "GUID partition table (GPT)")
    def test_gpt(self):
        self.assert_exported(self.stick(True, gpt=True))

    @fault("Media", "first partition ext4, second FAT")
    def test_ext4_before_fat(self):
        self.assert_exported(self.stick("ext4", True), 2, refused=("sda", "sda1"))

    @fault("Media", "first partition NTFS, second FAT")
    def test_ntfs_before_fat(self):
        self.assert_exported(self.stick("ntfs", True), 2, refused=("sda", "sda1"))

    @fault("Media", "16 candidates: a disk with 15 partitions, of which the last one is FAT")
    def test_16_candidates(self):
        stick = self.stick(*["zeros"] * 14, "fat12", gpt=True, mib=1)
        self.assert_exported(stick, 15, refused=stick.names("sda")[:-1])

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

    @fault("Media", "two sticks: the first gets the log")
    def test_two_sticks(self):
        first, second = self.stick(True), self.stick(True, name="second")
        self.plug(first)
        self.plug(second)
        self.run_mounting(*log_of(first))
        self.assert_log_on(first, 1)
        self.assertNotIn(EXPORT, second.files(1))

    @fault("Media", "two sticks, the first unusable: the second gets the log")
    def test_first_of_two_sticks_is_not_fat(self):
        first, second = self.stick(False), self.stick(name="second")
        self.plug(first)
        self.plug(second)
        self.run_mounting(*log_of(second, 0, disk="sdb", refused=first.names("sda")))
        self.assert_log_on(second, 0)
