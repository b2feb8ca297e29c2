"""The judge of power cuts: each thing that must not happen to a stick is reported."""

import tempfile
import unittest
from pathlib import Path

from board import torn
from board.fat import FAT12_BITS, FAT32_BITS, Volume
from board.recording import replayed
from board.sticks import NOTES, SECTOR, Stick
from tests.support.tool import FOLDER_ON_STICK

LARGE, NEW = "large.bin", "new.txt"
LARGE_BYTES = bytes(range(256)) * 64
LABEL = 43, 71         # places in the boot sector that only people read: FAT12 and FAT16, FAT32
NO_BOOT_CODE = 0x80    # a place in it that is zero
SIZE = 28              # of a file, in its record
END_MARK = b"\xFF" * 4   # in a table of clusters
TORN, AFTER = "state 1: ", "state 1: after the repair: "  # what a fault begins with


def sectors_between(before, after):
    """(place, content) of each sector that is another one."""
    return [(place, after[place:place + SECTOR]) for place in range(0, len(before), SECTOR)
            if before[place:place + SECTOR] != after[place:place + SECTOR]]


class TornTest(unittest.TestCase):
    """A stick with an old file of more than a cluster. Each test writes one sector to it."""

    form, mib = "fat12", 1

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="torn-test-")
        self.addCleanup(folder.cleanup)
        self.stick = Stick(Path(folder.name) / "stick.img", whole=self.form, mib=self.mib)
        self.stick.write(LARGE, LARGE_BYTES)
        self.before = self.stick.image.read_bytes()
        self.volume = Volume(self.before)
        self.large = dict(self.volume.entries())[LARGE]

    def place(self, cluster):
        """Where a cluster begins."""
        return self.volume.data_start + (cluster - 2) * self.volume.cluster

    def root(self):
        """Where the root folder begins."""
        return self.before.index(b"NOTES   TXT") // SECTOR * SECTOR

    def sectors(self, change):
        """The sectors that `change` alone makes different on the stick."""
        self.stick.image.write_bytes(self.before)
        change()
        return sectors_between(self.before, self.stick.image.read_bytes())

    def sector(self, place, data):
        """The sector that gets these bytes at a place."""
        (first, content), = self.sectors(lambda: self.stick.put(place, data))
        return first, content

    def shortened(self, table):
        """The sector of a table that ends the old file at its second cluster."""
        cluster = self.large.clusters[1]
        place = self.stick.tables()[0][table] + cluster * self.volume.bits // 8
        if self.volume.bits != FAT12_BITS:
            return self.sector(place, END_MARK[:self.volume.bits // 8])
        first, second = self.before[place:place + 2]  # a half of one is the other cluster's
        return self.sector(place, bytes([first | 0xF0, 0xFF] if cluster % 2
                                        else [0xFF, second | 0x0F]))

    def faults(self, *written, **words):
        """What is reported of these sectors."""
        found = torn.examine(self.before, list(written), **words)
        self.assertEqual(found.states, len(written) + 1)
        self.assertEqual(found.faulty, len({fault.split(":")[0] for fault in found.faults
                                            if fault.startswith("state ")}))
        return found.faults

    def make_folder(self):
        """Makes the export folder, with a log in it."""
        self.stick.make_folder(FOLDER_ON_STICK)
        self.stick.write(f"{FOLDER_ON_STICK}/1.log", b"log" * SECTOR)


class Twelve(TornTest):
    def test_a_sector_that_stays_the_same_is_no_fault(self):
        self.assertEqual(self.faults((0, self.before[:SECTOR])), [])

    def test_the_export_in_the_kernels_order_is_no_fault(self):
        written = self.sectors(self.make_folder)
        root = [each for each in written if each[0] == self.root()]
        self.assertEqual(len(root), 1)
        in_order = [each for each in written if each not in root] + root
        self.assertEqual(self.faults(*in_order), [])

    def test_a_byte_of_an_old_file_is_a_fault(self):
        place = self.place(self.large.clusters[1])
        self.assertEqual(self.faults(self.sector(place, b"\xFF")),
                         [TORN + LARGE, AFTER + LARGE])

    def test_an_old_file_that_ends_early_is_a_fault(self):
        faults = self.faults(self.shortened(table=0))
        self.assertRegex(faults[0], f"{LARGE}: 2 clusters for {len(LARGE_BYTES)} bytes")

    def test_a_link_in_the_second_table_is_a_fault(self):
        self.assertIn(TORN + "the links of old files", self.faults(self.shortened(table=1)))

    def test_the_boot_sector_is_a_fault(self):
        label = LABEL[self.volume.bits == FAT32_BITS]
        for place in label, NO_BOOT_CODE:
            with self.subTest(place=place):
                self.assertIn(TORN + "the boot sector", self.faults(self.sector(place, b"x")))

    def test_a_new_record_in_the_root_folder_is_a_fault(self):
        written = self.sectors(lambda: self.stick.write(NEW, b""))
        self.assertEqual([place for place, _ in written], [self.root()])
        self.assertEqual(self.faults(*written), [TORN + NEW, AFTER + NEW])

    def test_a_changed_record_of_an_old_file_is_a_fault(self):
        size = self.before.index(b"NOTES   TXT") + SIZE
        self.assertEqual(self.faults(self.sector(size, b"\3")),
                         [TORN + NOTES, AFTER + NOTES])

    def test_what_fsck_finds_outside_the_export_folder_is_a_fault(self):
        size = self.before.index(b"LARGE   BIN") + SIZE
        self.assertIn(TORN + "/LARGE.BIN", self.faults(self.sector(size, b"\3\0")))

    def test_what_two_repairs_leave_is_a_fault(self):
        written = [each for each in self.sectors(self.make_folder) if each[0] == self.root()]
        faults = self.faults(*written)
        self.assertEqual(len(faults), 1, faults)
        self.assertRegex(faults[0], "^state 1: not repaired: ")
        self.assertEqual(self.faults(*written, repairs=torn.REPAIRS_ANY_ORDER), [])

    def test_one_state_alone_is_judged_the_same(self):
        written = [self.sector(self.place(self.large.clusters[0]), b"\xFF")]
        after = replayed(self.before, written)
        self.assertEqual(torn.examine_one(self.before, self.before).faults, [])
        self.assertIn(f"state 0: {LARGE}", torn.examine_one(self.before, after).faults)


class Sixteen(Twelve):
    form, mib = "fat16", 8


class ThirtyTwo(Twelve):
    form, mib = "fat32", 33


if __name__ == "__main__":
    unittest.main()
