"""Mount points that nothing can be mounted on. The kernel's answers are those of the terminal."""

import os
import shutil

import story
from faults import START, FaultTest
from terminal import read, write
from tests.support import tool
from tests.support.faults import fault

NOTHING_MOUNTED = story.MOUNTED_FAILED + story.SYNC + story.EXIT


class MountPoint(FaultTest):
    def setUp(self):
        super().setUp()
        shutil.rmtree(tool.MOUNT_POINT)
        self.mount_results = "-1"

    def check_attempts(self, *attempts):
        self.run_row(START + story.LOOK + story.UMOUNT_FAILS + sum(attempts, [])
                     + NOTHING_MOUNTED, "-d", "EIWD")

    @fault("Inputs", "mount point missing: it is made")
    def test_missing(self):
        self.check_attempts(story.made_mount_point() + story.mount_call("sda")
                            + story.printed(tool.refused("sda")), story.failed_attempt("sda1"))
        self.assertTrue(os.path.isdir(tool.MOUNT_POINT))

    @fault("Inputs", "mount point that is a file")
    def test_file(self):
        write(tool.MOUNT_POINT, "a file")
        self.check_attempts(story.failed_attempt("sda"), story.failed_attempt("sda1"))
        self.assertEqual(read(tool.MOUNT_POINT), "a file")

    @fault("Inputs", "mount point that is a dangling link")
    def test_dangling_link(self):
        os.symlink("nowhere", tool.MOUNT_POINT)
        self.check_attempts(*(story.made_mount_point() + story.mount_call(name)
                              + story.printed(tool.refused(name)) for name in ("sda", "sda1")))
        self.assertEqual(os.readlink(tool.MOUNT_POINT), "nowhere")
