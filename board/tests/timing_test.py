"""Rows of the fault catalogue: sticks on their way, mounts in the way, two runs at once."""

import re

from board.terminal import SERIAL
from board.tests.support.case import HOLD_BEFORE
from board.tests.support.counts import counted
from board.tests.support.faults import EXPORT, FaultTest
from tests.support import tool
from tests.support.faults import fault

TOOL = "orvatool -d EIWD"
NEVER_S = 100000
OUTPUTS = "/tmp/outputs"
# Runs without a pause, until a stick got the log.
RUNS = (f"until tail -n 2 {tool.OUTPUT_FILE} | grep -q successfully;"
        f" do {TOOL} || exit 1; cat {tool.OUTPUT_FILE} >>{OUTPUTS}; done")
OUTCOMES = ["Insert udisk please", "mounted failed", "mount successful"]
ELSEWHERE = "/mnt/elsewhere"


class Timing(FaultTest):

    def small_stick(self):
        """A stick that is one file system, `sda`."""
        return self.stick(whole="fat12", mib=1)

    def exported(self, stick):
        """The lines of a successful run, from the mount on."""
        return tool.mounted("sda", stick.mib()) + tool.exported(SERIAL, tool.NO_SUCH_FILE)

    def assert_exported(self, stick):
        """The stick has the log, as it was when it was copied."""
        self.assertEqual(stick.read(EXPORT).decode(), self.version())

    @fault("Timing", "run before the stick has an entry on the USB bus; the next run exports")
    def test_run_before_the_bus_entry(self):
        stick = self.small_stick()
        self.run_row(tool.NO_STICK)
        self.plug(stick)
        self.run_row(tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT, self.exported(stick))
        self.assert_exported(stick)

    @fault("Timing", "run after the bus entry and before the disk; the next run exports")
    def test_run_before_the_disk(self):
        stick = self.small_stick()
        self.remember(stick)
        self.terminal.check(f"echo {NEVER_S} >/sys/module/usb_storage/parameters/delay_use")
        self.terminal.plug_in(stick)
        self.terminal.wait_for("[ $(ls /proc/bus/usb/001 | wc -l) = 2 ]")
        self.run_row(tool.RELEASED_NOTHING, tool.NOTHING_MOUNTED)
        self.terminal.unplug()
        self.terminal.check("echo 0 >/sys/module/usb_storage/parameters/delay_use")
        self.plug(stick)
        self.run_row(tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT, self.exported(stick))
        self.assert_exported(stick)

    @fault("Timing", "run at the moment at which the kernel lists the disk")
    def test_run_at_the_moment_of_the_disk(self):
        stick = self.small_stick()
        self.remember(stick)
        self.begin()
        self.terminal.start(f"until grep -q sda /proc/partitions; do :; done; {TOOL}")
        self.terminal.plug_in(stick)
        self.assert_promises(self.terminal.finish(), tool.RELEASED_NOTHING,
                             tool.MADE_MOUNT_POINT, self.exported(stick))
        self.assert_exported(stick)

    @fault("Timing", "runs without a pause while a stick is plugged in: they find no stick, then"
                     " no disk, then the disk")
    def test_runs_while_the_stick_comes_up(self):
        stick = self.small_stick()
        self.remember(stick)
        self.terminal.check(f"mkdir {tool.MOUNT_POINT}")
        self.begin()
        self.terminal.start(RUNS)
        self.terminal.wait_for(f"grep -qs please {OUTPUTS}")
        self.terminal.plug_in(stick)
        self.assert_promises(self.terminal.finish(), tool.RELEASED_NOTHING, self.exported(stick))
        seen = re.findall("|".join(OUTCOMES), self.terminal.read(OUTPUTS))
        self.assertEqual(seen, sorted(seen, key=OUTCOMES.index))
        self.assert_exported(stick)

    @fault("Timing", "mounted already, by an earlier run that did not come to its end")
    def test_mounted_already(self):
        stick = self.small_stick()
        self.plug(stick)
        self.mount("sda")
        self.run_row(tool.RELEASED, self.exported(stick))
        self.assert_exported(stick)

    @fault("Timing", "the mount point is in use, with an earlier run's mount: nothing is exported;"
                     " the next run releases it")
    def test_mount_point_in_use(self):
        stick = self.small_stick()
        self.plug(stick)
        self.mount("sda")
        self.use_mount_point()
        self.begin()
        self.assertEqual(self.terminal.run(TOOL).status, 0)
        self.assertTrue(tool.without_times(self.output()).endswith(
            tool.RELEASED_NOTHING + tool.refused("sda") + tool.NOTHING_MOUNTED))
        self.terminal.check("kill $(pidof sleep)")
        self.terminal.wait_for("! pidof sleep")
        self.run_row(tool.RELEASED, self.exported(stick))
        self.assert_exported(stick)

    @fault("Timing", "the mount point comes into use during the copy",
           mounts="the kernel refuses to unmount; the next run releases the stick")
    def test_mount_point_in_use_at_the_end(self):
        stick = self.small_stick()
        self.plug(stick)
        self.hold_tool_in_copy(HOLD_BEFORE)
        self.use_mount_point()
        self.terminal.check(">/tmp/go")
        self.assertEqual(self.terminal.finish().status, 0)
        self.assertTrue(tool.without_times(self.output()).endswith(
            tool.main_line(tool.NO_SUCH_FILE) + tool.RELEASED_NOTHING))
        self.note_lines()
        self.assertIn(tool.MOUNT_POINT, self.terminal.read("/proc/mounts"))
        self.terminal.check("kill $(pidof sleep)")
        self.terminal.wait_for("! pidof sleep")
        self.run_row(tool.RELEASED, self.exported(stick))
        self.assertNotIn(tool.MOUNT_POINT, self.terminal.read("/proc/mounts"))
        self.assert_exported(stick)

    def use_mount_point(self):
        """A process works in the mount point until it is killed."""
        self.terminal.check(f"cd {tool.MOUNT_POINT} && sleep 1000 >/dev/null 2>&1 &")
        self.terminal.wait_for(f'[ "$(readlink /proc/$(pidof sleep)/cwd)" = {tool.MOUNT_POINT} ]')

    @fault("Timing", "another file system on the mount point: it is unmounted")
    def test_other_file_system_on_the_mount_point(self):
        stick = self.small_stick()
        self.plug(stick)
        self.terminal.check(f"mkdir {tool.MOUNT_POINT} && mount -t tmpfs none {tool.MOUNT_POINT}")
        self.run_row(tool.RELEASED, self.exported(stick))
        self.assert_exported(stick)

    @fault("Timing", "another file system stacked on an earlier run's mount of the same stick: only"
                     " the upper one is unmounted, nothing is exported; the next run exports")
    def test_other_file_system_stacked_on_the_stick(self):
        stick = self.small_stick()
        self.plug(stick)
        self.mount("sda")
        self.terminal.check(f"mount -t tmpfs none {tool.MOUNT_POINT}")
        self.begin()
        self.assertEqual(self.terminal.run(TOOL).status, 0)
        self.assertTrue(tool.without_times(self.output()).endswith(
            tool.RELEASED + tool.refused("sda") + tool.NOTHING_MOUNTED))
        self.run_row(tool.RELEASED, self.exported(stick))
        self.assert_exported(stick)

    @fault("Timing", "the same partition mounted elsewhere: it stays so, and gets the log")
    def test_mounted_elsewhere(self):
        stick = self.small_stick()
        self.plug(stick)
        self.terminal.check(f"mkdir {ELSEWHERE} && mount -t vfat /dev/sda {ELSEWHERE}")
        self.begin()
        result = self.terminal.run(TOOL)
        self.terminal.check(f"umount {ELSEWHERE}")  # the dirty bit is set until then
        self.assert_promises(result, tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT,
                             self.exported(stick))
        self.assert_exported(stick)

    @fault("Timing", "the same partition mounted elsewhere, for reading only: it is refused")
    def test_mounted_elsewhere_for_reading(self):
        self.plug(self.small_stick())
        self.terminal.check(f"mkdir {ELSEWHERE} && mount -r -t vfat /dev/sda {ELSEWHERE}")
        self.run_row(tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT, tool.refused("sda"),
                     tool.NOTHING_MOUNTED)
        self.terminal.check(f"umount {ELSEWHERE}")

    @fault("Timing", "a second run while the first one copies: it takes the stick from the first",
           output="both runs write it: it begins with what the second wrote, and the first one's"
                  " last lines stand in it as well")
    def test_second_run_during_the_copy(self):
        stick = self.small_stick()
        self.plug(stick)
        self.begin()
        self.hold_tool_in_copy(HOLD_BEFORE)
        self.assertEqual(self.terminal.run(TOOL).status, 0)
        self.assert_exported(stick)
        self.terminal.check(">/tmp/go")
        self.assert_promises(self.terminal.finish())

    @fault("Timing", "two runs at once, 5 times (100 times in the long run)",
           output="both runs write it, each over the other's lines")
    @counted(5, 100)
    def test_two_runs_at_once(self, count):
        stick = self.small_stick()
        self.plug(stick)
        for _ in range(count):
            self.begin()
            result = self.terminal.run(f"({TOOL}; echo $? >/tmp/other) & {TOOL}; status=$?;"
                                       " wait; read other </tmp/other; exit $((status + other))")
            self.assert_promises(result)
