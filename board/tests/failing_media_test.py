"""Rows of the fault catalogue: no stick, and sticks that cannot be read or written, or slowly."""

import time

from board.machine import SLOW_AT_ONCE, SLOW_PER_S
from board.partition_tables import SECTOR
from board.tests.support.faults import EXPORT
from board.tests.support.media import MediaTest, log_of
from tests.support import tool
from tests.support.faults import fault

IO_ERROR = 5
READS, WRITES = 0, 4  # columns of a disk's counts


def failing_reads(**where):
    """Reading fails, or reading a sector."""
    return {"inject-error": [{"event": "none", "iotype": "read", "errno": IO_ERROR, **where}]}


def failing_writes(first):
    """Writing fails from this write on."""
    error = {"event": "pwritev", "iotype": "write", "errno": IO_ERROR, "state": first}
    steps = [{"event": "pwritev", "state": number, "new_state": number + 1}
             for number in range(1, first)]
    return {"inject-error": [error], **({"set-state": steps} if steps else {})}


class FailingMedia(MediaTest):

    @fault("Media", "no stick")
    def test_no_stick(self):
        self.run_row(tool.NO_STICK)
        self.assertEqual(self.terminal.run(f"ls {tool.MOUNT_POINT}").output, "")

    @fault("Media", "a card reader without a card")
    def test_reader_without_card(self):
        stick = self.stick()
        self.remember(stick)
        self.terminal.plug_in_reader(stick)
        self.terminal.wait_for("[ -b /dev/sda ]")
        self.run_row(tool.RELEASED_NOTHING, tool.NOTHING_MOUNTED)

    @fault("Media", "a write-protected stick")
    def test_write_protected(self):
        self.assert_refused(self.stick(True, read_only=True), "sda", "sda1")

    @fault("Media", "reading fails everywhere")
    def test_unreadable(self):
        self.assert_refused(self.stick(fault=failing_reads()), "sda")

    # This kernel goes on behind that sector, where others see the end of the folder.
    @fault("Media", "reading fails in one sector of the root folder: others do not see the log")
    def test_unreadable_root_folder(self):
        stick = self.stick()
        stick.fault = failing_reads(sector=stick.root_folder() // SECTOR)
        self.assertEqual(self.run_on(stick, 0).errors, "")
        self.assertNotIn(EXPORT, stick.files())

    @fault("Media", "writing fails from the n-th write on; n is 1, 2, 3, 4, 6",
           volume="what could not be written is missing: the dirty bit or clusters stay behind")
    def test_failing_writes(self):
        self.terminal.check(f"mkdir {tool.MOUNT_POINT}")
        for first in 1, 2, 3, 4, 6:
            with self.subTest(first=first):
                stick = self.stick(True, fault=failing_writes(first))
                self.plug(stick)
                self.run_row(tool.RELEASED_NOTHING, *log_of(stick))
                is_whole = not stick.findings() and EXPORT in stick.files(1)
                self.assertFalse(is_whole, "no write failed")
                self.unplug()

    def operations(self):
        """How many reads and writes of the first disk the kernel has counted."""
        counts = self.terminal.read("/sys/block/sda/stat").split()
        return int(counts[READS]) + int(counts[WRITES])

    @fault("Media", "a slow stick: 30 reads and writes in a second")
    def test_slow(self):
        stick = self.stick(True, slow=True)
        self.plug(stick)
        before, began_s = self.operations(), time.monotonic()
        self.assertEqual(self.run_mounting(*log_of(stick)).errors, "")
        took_s, count = time.monotonic() - began_s, self.operations() - before
        self.assert_log_on(stick, 1)
        self.assertGreater(count, SLOW_PER_S, "too few to show that the stick is slow")
        self.assertGreaterEqual(took_s, (count - SLOW_AT_ONCE) / SLOW_PER_S)
