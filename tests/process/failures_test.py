"""What fails on the platform: the run goes on, ends with status 0, and leaves nothing mounted."""

import os
import subprocess

import story
from c_library import IO_ERROR, NO_ERROR, unknown_option, without_output
from faults import START, FaultTest
from terminal import ROOT, read, tree, write
from tests.support import tool
from tests.support.faults import fault
from tests.support.tool import EXPORT_FOLDER


class Failures(FaultTest):
    def expect_story(self, run, told):
        self.assertEqual(run.trace, START + told)

    @fault("Inputs", "RAM disk missing", output="there is no place for it")
    def test_missing_ram_disk_loses_the_output_alone(self):
        os.rmdir(tool.RAM_DISK)
        before = tree("/mnt")
        run = self.run_row(story.REOPEN + without_output(
            story.LEVELS + story.serial_steps("12345") + story.MOUNT + story.export()),
            "-d", "EIWD")
        after = tree("/mnt")
        self.assertEqual(after.pop(EXPORT_FOLDER, "missing"), None)  # a folder
        self.assertEqual(after, before)
        self.assertEqual(run.stdout, "")
        self.assertNotIn("orvatool", run.stderr)

    def test_missing_ram_disk_and_wrong_option(self):
        os.rmdir(tool.RAM_DISK)
        run = self.run_tool("-x")
        self.assertEqual(run.trace, story.REOPEN + without_output(story.USAGE) + story.EXIT)
        self.assertEqual(run.stdout, "")
        self.assertRegex(run.stderr, rf"^.*orvatool: {unknown_option('x')}\n$")

    @fault("Inputs", "partition list missing")
    def test_no_partition_list(self):
        os.remove(ROOT + "/proc/partitions")
        unreadable = story.printed(tool.line(
            "Warning", "udiskdetection", "readPartitionList", "failed to open /proc/partitions"))
        self.run_row(START + story.LOOK[:1] + unreadable + story.LOOK[1:] + story.UMOUNT_FAILS
                     + story.MOUNTED_FAILED + story.SYNC + story.EXIT, "-d", "EIWD")

    @fault("Inputs", "partition list with a blank line between two disks")
    def test_garbage_behind_a_candidate(self):
        self.set_partitions("header\n\n 8 0 2048 sda\n\n 8 16 4096 sdb\n")
        invalid = story.printed(tool.disk_line("Info", "readPartitionList",
                                               "invalid line in /proc/partitions: ''"))
        self.run_row(START + story.LOOK[:1] + invalid + story.LOOK[1:] + story.UMOUNT_FAILS
                     + story.good_attempt("sda", 2) + story.export(), "-d", "EIWD")

    def test_read_only_disk(self):
        subprocess.run(["mount", "-t", "tmpfs", "-o", "ro", "tmpfs", tool.MOUNT_POINT],
                       check=True)
        run = self.run_tool("-d", "EIWD")
        self.expect_story(run, story.MOUNT + story.export())
        self.assertIn("Read-only file system", run.stderr)

    def test_copy_that_cannot_be_made(self):
        write(EXPORT_FOLDER, "a file")
        self.errno_of_commands = 20
        run = self.run_tool("-d", "EIWD")
        self.expect_story(run, story.MOUNT + story.SYNC + story.EXPORT_FOLDER_TEST
                          + story.copy("12345", error="Not a directory")
                          + story.UMOUNT + story.EXIT)
        self.assertEqual(read(EXPORT_FOLDER), "a file")

    def test_unmount_that_is_refused(self):
        self.umount_results = "-1"
        run = self.run_tool("-d", "EIWD")
        told = story.export()
        self.expect_story(run, story.MOUNT + told[:-len(story.UMOUNT + story.EXIT)]
                          + story.UMOUNT_FAILS + story.EXIT)

    def test_error_text_is_that_of_the_copy(self):
        for number, text in ((0, NO_ERROR), (5, IO_ERROR)):
            with self.subTest(errno=number):
                self.errno_of_commands = number
                run = self.run_tool("-d", "EIWD")
                line, = story.printed(tool.main_line(text))
                at = run.trace.index(line)
                self.assertEqual(run.trace[at - 1:at], story.copy_call("12345"))
                self.assertEqual(run.trace[at + 1:at + 2], story.UMOUNT_CALL)
