"""Partition lists that are not as they should be: the disks before the damage are tried."""

import story
from c_library import CUTS_WIDE_NUMBERS
from faults import START, FaultTest
from terminal import EMULATOR
from tests.support import tool
from tests.support.faults import fault

HEADER = "major minor  #blocks  name\n\n"
LARGEST = 2**31 - 1
LINE = 255  # characters that are read at a time
NO_DISK = story.MOUNTED_FAILED + story.SYNC + story.EXIT


def look(invalid=None):
    """The steps to the list's end, which may be a line that does not scan."""
    told = story.printed(tool.disk_line(
        "Info", "readPartitionList", f"invalid line in /proc/partitions: '{invalid}'"))
    return (START + story.LOOK[:1] + (told if invalid is not None else []) + story.LOOK[1:]
            + story.UMOUNT_FAILS)


def one_disk(size_mib, device="sda"):
    """The steps with a disk that mounts, to the end."""
    return story.good_attempt(device, size_mib) + story.export()


class PartitionList(FaultTest):
    def check_list(self, text, told):
        self.set_partitions(text)
        self.run_row(told, "-d", "EIWD")

    @fault("Inputs", "partition list empty, or no more than its header")
    def test_without_lines(self):
        for text in "", "header", "header\n", HEADER, "header\nno empty line\n":
            with self.subTest(text=text):
                self.check_list(text, look() + NO_DISK)

    @fault("Inputs", "partition list cut in the middle of a line")
    def test_cut(self):
        self.check_list(HEADER + "   8        0    78", look("   8        0    7") + NO_DISK)
        self.check_list(HEADER + " 8 0 2048 sda\n 8 1 20\n",
                        look(" 8 1 20") + one_disk(2))

    @fault("Inputs", "partition list that begins with a blank line")
    def test_blank_line_first(self):
        self.check_list(HEADER + "\n 8 0 2048 sda\n", look("") + NO_DISK)

    @fault("Inputs", "partition list with lines of 300 characters")
    def test_long_lines(self):
        line = " 8 0 2048 sda".ljust(300)
        self.check_list(HEADER + line + "\n 8 16 2048 sdb\n",
                        look(" " * (300 - LINE)) + one_disk(2))
        line = " 8 0 2048 sd".ljust(300, "x")
        name = line[:LINE].split()[-1]
        self.mount_results = "-1"
        self.check_list(HEADER + line + "\n",
                        look("x" * (300 - LINE)) + story.failed_attempt(name) + NO_DISK)

    @fault("Inputs", "partition list with sizes of 0, below it and at the end of 32 bits")
    def test_wild_sizes(self):
        self.check_list(HEADER + " 8 0 0 sda\n 8 1 -1 sda1\n 8 2 -2147483648 sda2\n"
                        f" 8 3 {LARGEST} sda3\n", look() + one_disk(LARGEST >> 10, "sda3"))

    @fault("Inputs", "partition list with a size beyond 32 bits, which is cut to them or, where"
                     " `long` has 32 bits, to the largest")
    def test_sizes_too_wide(self):
        for size, cut in (2**31, None), (2**32 + 2048, 2), (2**32 - 1, None), (10**30, None):
            with self.subTest(size=size):
                told = one_disk(cut) if cut else NO_DISK
                if EMULATOR and not CUTS_WIDE_NUMBERS:
                    told = one_disk(LARGEST >> 10)
                self.check_list(HEADER + f" 8 0 {size} sda\n", look() + told)

    @fault("Inputs", "partition list with NUL bytes")
    def test_zero_bytes(self):
        self.check_list(HEADER + " 8 0 2048 sda\0 and more\n 8 16 4096 sdb\n",
                        look() + one_disk(2))
        self.check_list(HEADER + " 8 0 2048 sda\n\0 8 16 4096 sdb\n", look("") + one_disk(2))

    @fault("Inputs", "partition list without a final newline")
    def test_no_final_newline(self):
        self.check_list(HEADER + " 8 0 2048 sda", look() + one_disk(2))

    @fault("Inputs", "partition list of 10,000 lines, of which the last is the disk that mounts")
    def test_ten_thousand_lines(self):
        count = 10000
        names = [f"sd{number}" for number in range(count)]
        self.mount_results = "-1," * (count - 1) + "0"
        told = [line for name in names[:-1] for line in story.failed_attempt(name)]
        self.check_list(HEADER + "".join(f" 8 0 2048 {name}\n" for name in names),
                        look() + told + one_disk(2, names[-1]))
