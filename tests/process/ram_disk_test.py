"""RAM disks that take no output: the export of what they have goes on."""

import os
import subprocess

import story
from c_library import without_output
from faults import START, WHOLE_RUN, FaultTest
from terminal import kernel_version, read, write
from tests.support import tool
from tests.support.faults import fault

COPY = f"{tool.MOUNT_POINT}/{tool.export_name('12345')}"


class RamDisk(FaultTest):
    def mount_ram_disk(self, options):
        subprocess.run(["mount", "-t", "tmpfs", "-o", options, "tmpfs", tool.RAM_DISK],
                       check=True)

    @fault("Inputs", "RAM disk read-only, with the file of an earlier run",
           output="it stays that of the earlier run, which is exported anew")
    def test_read_only(self):
        self.mount_ram_disk("size=64k")
        write(tool.OUTPUT_FILE, "earlier\n")
        self.mount_ram_disk("remount,ro")
        self.run_row(story.REOPEN + without_output(
            WHOLE_RUN[len(story.REOPEN):]), "-d", "EIWD")
        self.assertEqual(read(tool.OUTPUT_FILE), "earlier\n")
        self.assertEqual(read(COPY), "earlier\n")

    @fault("Inputs", "RAM disk full", output="it is empty: there is no block for it")
    def test_full(self):
        self.mount_ram_disk("size=4k")
        write(f"{tool.RAM_DISK}/other", "x" * 4096)
        run = self.run_row(WHOLE_RUN, "-d", "EIWD")
        self.assertIn("No space left on device", run.stderr)
        self.assertEqual(os.stat(tool.OUTPUT_FILE).st_size, 0)
        self.assertEqual(read(COPY), "")

    @fault("Inputs", "RAM disk with room for one block of the output",
           output="it is cut at the end of the block")
    def test_nearly_full(self):
        self.mount_ram_disk("size=4k")
        count = 100
        self.set_partitions("header\n\n" + " 8 0 1024 sda\n" * count)
        self.mount_results = "-1"
        self.run_row(START + story.LOOK + story.UMOUNT_FAILS + count * story.failed_attempt("sda")
                     + story.MOUNTED_FAILED + story.SYNC + story.EXIT, "-d", "EIWD")
        output = read(tool.OUTPUT_FILE)
        self.assertEqual(len(output), 4096)
        self.assertTrue(output.startswith(kernel_version() + tool.LEVELS))

    @fault("Inputs", "RAM-disk file that is a link: what it leads to is written over")
    def test_link(self):
        elsewhere = "/mnt/test/elsewhere.txt"
        write(elsewhere, "somebody's\n" * 1000)
        os.symlink(elsewhere, tool.OUTPUT_FILE)
        self.run_row(WHOLE_RUN, "-d", "EIWD")
        self.assertTrue(os.path.islink(tool.OUTPUT_FILE))
        self.assertTrue(read(elsewhere).startswith(kernel_version() + tool.LEVELS))
        self.assertNotIn("somebody's", read(elsewhere))
