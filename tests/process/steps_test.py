"""The steps of a run, in their order."""

import os

import story
from terminal import ROOT, TerminalTest
from tests.support import tool


class Steps(TerminalTest):
    def test_export_with_all_levels(self):
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS + story.serial_steps("12345")
                         + story.MOUNT + story.export())
        self.assertEqual((run.stdout, run.stderr), ("", ""))

    def test_export_without_levels(self):
        run = self.run_tool()
        self.assertEqual(run.trace, story.REOPEN + story.quiet(
            story.serial_steps("12345") + story.MOUNT + story.export()))
        self.assertEqual((run.stdout, run.stderr), ("", ""))

    def test_no_disk(self):
        self.set_bus_devices()
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS + story.serial_steps("12345")
                         + story.LOOK_AT_BUS + story.NO_DISK + story.SYNC + story.EXIT)
        self.assertEqual(os.listdir(tool.MOUNT_POINT), [])

    def test_no_disk_without_levels(self):
        self.set_bus_devices()
        run = self.run_tool()
        self.assertEqual(run.trace, story.REOPEN + story.quiet(
            story.serial_steps("12345") + story.LOOK_AT_BUS + story.SYNC + story.EXIT))

    def test_no_bus_at_all(self):
        os.rmdir(ROOT + "/proc/scsi/usb-storage")
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS + story.serial_steps("12345")
                         + story.LOOK_AT_BUS + story.NO_DISK + story.SYNC + story.EXIT)

    def test_disk_that_shows_on_the_bus(self):
        self.set_bus_devices("002")
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS + story.serial_steps("12345")
                         + story.LOOK_AT_BUS + story.UMOUNT_FAILS
                         + story.good_attempt("sda", 7639) + story.export())

    def test_second_partition_is_the_one(self):
        self.mount_results = "-1,0"
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS + story.serial_steps("12345")
                         + story.LOOK + story.UMOUNT_FAILS + story.failed_attempt("sda")
                         + story.good_attempt("sda1", 7638) + story.export())

    def test_failing_mount(self):
        self.mount_results = "-1"
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS + story.serial_steps("12345")
                         + story.LOOK + story.UMOUNT_FAILS + story.failed_attempt("sda")
                         + story.failed_attempt("sda1") + story.MOUNTED_FAILED
                         + story.SYNC + story.EXIT)
        self.assertEqual(os.listdir(tool.MOUNT_POINT), [])

    def test_existing_export_folder(self):
        os.mkdir(tool.EXPORT_FOLDER)
        self.errno_of_commands = 28
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS + story.serial_steps("12345")
                         + story.MOUNT + story.SYNC + story.EXPORT_FOLDER_TEST
                         + story.copy("12345", error="No space left on device")
                         + story.UMOUNT + story.EXIT)

    def test_missing_mount_point_is_made_first(self):
        os.rmdir(tool.MOUNT_POINT)
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS + story.serial_steps("12345")
                         + story.LOOK + story.UMOUNT_FAILS + story.made_mount_point()
                         + story.mount_call("sda") + story.printed(tool.mounted("sda", 7639))
                         + story.export())
