"""The kernel's `mount` and `umount` refuse: the tool tries the next one, and ends."""

from board.terminal import SERIAL
from board.tests.support.case import PROGRAMS
from board.tests.support.faults import FaultTest
from tests.support import tool
from tests.support.faults import BOUND_S, fault

USERS = "/etc/passwd"
AS_NOBODY = "start-stop-daemon -S -c nobody -x /usr/bin/orvatool -- -d EIWD"


class RefusedMounts(FaultTest):

    def setUp(self):
        super().setUp()
        self.small = self.stick(whole="fat12", mib=1)
        self.plug(self.small)

    def run_refused(self, *lines):
        """Runs the tool, which can mount nothing."""
        self.run_row(tool.RELEASED_NOTHING, *lines, tool.refused("sda"), tool.NOTHING_MOUNTED)

    @fault("Failing system calls", "`mount`: the mount point is a file (ENOTDIR)")
    def test_mount_point_that_is_a_file(self):
        self.terminal.write(tool.MOUNT_POINT, "a file")
        self.run_refused()
        self.assertEqual(self.terminal.read(tool.MOUNT_POINT), "a file")

    @fault("Failing system calls", "`mount`: the mount point is a dangling link (ENOENT)")
    def test_mount_point_that_is_a_dangling_link(self):
        self.terminal.check(f"ln -s nowhere {tool.MOUNT_POINT}")
        self.run_refused(tool.MADE_MOUNT_POINT)
        self.assertEqual(self.terminal.check("ls /mnt"), "mtdblock\nramdisk\nremovable\n")

    @fault("Failing system calls", "`mount`: the disk has no device file (ENOENT)")
    def test_no_device_file(self):
        self.terminal.check("rm /dev/sda")
        self.run_refused(tool.MADE_MOUNT_POINT)

    @fault("Failing system calls", "`mount`: the device file is an ordinary file (ENOTBLK)")
    def test_device_file_that_is_none(self):
        self.terminal.check("echo mine >/tmp/file && mount --bind /tmp/file /dev/sda")
        try:
            self.run_refused(tool.MADE_MOUNT_POINT)
            self.assertEqual(self.terminal.read("/tmp/file"), "mine\n")
        finally:
            self.terminal.check("umount /dev/sda")

    @fault("Failing system calls", "`mount` and `umount`: not root, and an earlier run's disk is"
                                   " mounted (EPERM)")
    def test_not_root(self):
        self.terminal.write(USERS, "nobody:x:65534:65534::/:/bin/sh\n")
        self.mount("sda")
        self.begin()
        result = self.terminal.run(AS_NOBODY, bound_s=BOUND_S)
        self.terminal.check(f"rm {USERS} && umount {tool.MOUNT_POINT}")  # so it was mounted still
        self.assert_promises(result, tool.RELEASED_NOTHING, tool.refused("sda"),
                             tool.NOTHING_MOUNTED)

    @fault("Failing system calls", "`umount`: somebody else has unmounted the disk during the copy"
                                   " (EINVAL)")
    def test_unmounted_by_another(self):
        copy = f"{PROGRAMS}/cp"
        self.terminal.write(copy, f"#!/bin/sh\numount {tool.MOUNT_POINT}\nexec /bin/cp $*\n")
        self.terminal.check(f"chmod 755 {copy}")
        self.begin()
        result = self.terminal.run(f"PATH={PROGRAMS}:$PATH orvatool -d EIWD", bound_s=BOUND_S)
        exported = tool.mounted("sda", self.small.mib()) + tool.exported(SERIAL, tool.NO_SUCH_FILE)
        self.assert_promises(result, tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT,
                             exported.removesuffix(tool.RELEASED), tool.RELEASED_NOTHING)
        self.assertEqual(self.terminal.check(f"ls {tool.MOUNT_POINT}"), "")
