"""What fails on the platform: the run goes on, ends with status 0, and leaves nothing mounted."""

import os
import subprocess

import story
from terminal import ROOT, TerminalTest, tree, write
from tests.support import tool
from tests.support.tool import EXPORT_FOLDER


class Failures(TerminalTest):
    def expect_story(self, run, told):
        self.assertEqual(run.trace,
                         story.REOPEN + story.LEVELS + story.serial_steps("12345") + told)

    def test_missing_ram_disk_loses_the_output_alone(self):
        os.rmdir(tool.RAM_DISK)
        before = tree("/mnt")
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + ["system cat /proc/version"] + story.quiet(
            story.serial_steps("12345") + story.MOUNT + story.export()))
        after = tree("/mnt")
        self.assertEqual(after.pop(EXPORT_FOLDER, "missing"), None)  # a folder
        self.assertEqual(after, before)
        self.assertEqual(run.stdout, "")
        self.assertNotIn("orvatool", run.stderr)

    def test_missing_ram_disk_and_wrong_option(self):
        os.rmdir(tool.RAM_DISK)
        run = self.run_tool("-x")
        self.assertEqual(run.trace, story.REOPEN + story.EXIT)
        self.assertEqual(run.stdout, "")
        self.assertRegex(run.stderr, r"^\S*orvatool: invalid option -- 'x'\n$")

    def test_no_partition_list(self):
        os.remove(ROOT + "/proc/partitions")
        run = self.run_tool("-d", "EIWD")
        unreadable = story.printed(tool.line(
            "Warning", "udiskdetection", "readPartitionList", "failed to open /proc/partitions"))
        self.expect_story(run, story.LOOK[:1] + unreadable + story.LOOK[1:] + story.UMOUNT_FAILS
                          + story.MOUNTED_FAILED + story.SYNC + story.EXIT)

    def test_garbage_behind_a_candidate(self):
        self.set_partitions("header\n\n 8 0 2048 sda\n\n 8 16 4096 sdb\n")
        run = self.run_tool("-d", "EIWD")
        invalid = story.printed(tool.disk_line("Info", "readPartitionList",
                                               "invalid line in /proc/partitions: ''"))
        self.expect_story(run, story.LOOK[:1] + invalid + story.LOOK[1:] + story.UMOUNT_FAILS
                          + story.good_attempt("sda", 2) + story.export())

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
        self.assertEqual(tree(tool.MOUNT_POINT), {EXPORT_FOLDER: "a file"})

    def test_unmount_that_is_refused(self):
        self.umount_results = "-1"
        run = self.run_tool("-d", "EIWD")
        told = story.export()
        self.expect_story(run, story.MOUNT + told[:-len(story.UMOUNT + story.EXIT)]
                          + story.UMOUNT_FAILS + story.EXIT)

    def test_error_text_is_that_of_the_copy(self):
        for number, text in ((0, "Success"), (5, "Input/output error")):
            with self.subTest(errno=number):
                self.errno_of_commands = number
                run = self.run_tool("-d", "EIWD")
                line, = story.printed(tool.main_line(text))
                at = run.trace.index(line)
                self.assertEqual(run.trace[at - 1:at], story.copy_call("12345"))
                self.assertEqual(run.trace[at + 1:at + 2], story.UMOUNT_CALL)
