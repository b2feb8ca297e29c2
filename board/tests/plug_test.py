"""The tool is started by plugging a stick in, as examples/plug has it for mdev."""

from pathlib import Path

from board.terminal import SERIAL
from board.tests.support.case import HOLD_BEFORE, PROGRAMS, BoardTest
from tests.support import tool

PLUG = Path(__file__).parents[2] / "examples/plug"
SCRIPT = "orvatool-plugged"
STARTS = "/tmp/starts"  # for which devices mdev ran the script
TOOLS = "/tmp/tools"  # the processes that are started in the tool's place
EXPORT = tool.export_name(SERIAL)
PARTITION_MIB = 16
# Between the device files of the disk and of its partitions: waits until the script waits for
# these, or until the tool has ended without them.
LATE_PARTITIONS = ("-sd[a-z] 0:0 660 @until pidof sleep ||"
                   f" {{ [ -e {tool.OUTPUT_FILE} ] && ! pidof orvatool; }};"
                   " do usleep 10000; done\n")
# So that of two which look at once, neither sees what the other starts.
SLOW_PIDOF = "/bin/pidof $*; status=$?; sleep 1; exit $status"
# In mounts of its own: an empty /dev, in which mdev makes all files.
IN_EMPTY_DEV = ("unshare -m sh -c"
                " 'mount -t tmpfs dev /dev && mknod /dev/null c 1 3 && mdev -d'")


class Plug(BoardTest):

    def setUp(self):
        super().setUp()
        self.terminal.install(PLUG / SCRIPT, f"/tmp/{SCRIPT}")
        self.terminal.write(f"/usr/sbin/{SCRIPT}",
                            f"#!/bin/sh\necho $MDEV >>{STARTS}\nexec /tmp/{SCRIPT}\n")
        self.terminal.check(f"chmod 755 /usr/sbin/{SCRIPT}")

    def start_mdev(self, command="mdev -d", more=""):
        """Starts mdev with the line of the example, and further ones, until the test ends."""
        self.terminal.write("/etc/mdev.conf", (PLUG / "mdev.conf").read_text() + more)
        self.terminal.check(f"{command} </dev/null >/dev/null 2>&1")  # waits for its first scan
        self.addCleanup(self.terminal.wait_for, "! pidof mdev >/dev/null")
        self.addCleanup(self.terminal.check, "kill $(pidof mdev)")

    def wait_for_the_end(self):
        """Waits until the tool was started and has ended."""
        self.terminal.wait_for(f"[ -e {tool.OUTPUT_FILE} ] && ! pidof orvatool >/dev/null")

    def assert_ran_once(self, stick, *lines):
        """The log of one run is on the stick, with these lines after those of every run."""
        self.wait_for_the_end()
        self.assertEqual(tool.without_times(self.output()), "".join(
            (self.version(), tool.LEVELS, tool.started(SERIAL)) + lines))
        self.assertEqual(stick.read(EXPORT, 1).decode(), self.version())
        stick.check(1)

    def test_mdev_starts_the_tool(self):
        self.start_mdev()
        stick = self.stick(True)
        self.terminal.plug(stick)
        made = (tool.refused("sda"), tool.mounted("sda1", PARTITION_MIB))
        self.assert_ran_once(stick, tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT, *made,
                             tool.exported(SERIAL, tool.NO_SUCH_FILE))
        self.terminal.check(f"rm {tool.OUTPUT_FILE}")
        self.terminal.unplug()
        self.terminal.plug(stick)
        self.assert_ran_once(stick, tool.RELEASED_NOTHING, *made,
                             tool.exported(SERIAL, tool.INVALID))
        self.assertEqual(self.terminal.read(STARTS), "sda\n" * 2)

    def test_mdev_starts_the_tool_once_there_are_device_files(self):
        self.start_mdev(IN_EMPTY_DEV, LATE_PARTITIONS)
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.assert_ran_once(stick, tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT,
                             tool.refused("sda"), tool.mounted("sda1", PARTITION_MIB),
                             tool.exported(SERIAL, tool.NO_SUCH_FILE))

    def test_a_disk_that_comes_meanwhile_starts_no_second_tool(self):
        self.terminal.plug(self.stick(True))
        self.hold_tool_in_copy(HOLD_BEFORE)
        before = self.terminal.check("pidof orvatool")
        self.terminal.check(f"MDEV=sda {SCRIPT}")
        self.terminal.wait_for(f"! ps | grep -q '[/]{SCRIPT}'")
        self.assertEqual(self.terminal.check("pidof orvatool"), before)
        self.let_go()

    def test_disks_that_come_at_once_start_one_tool(self):
        for name, text in ("pidof", SLOW_PIDOF), ("orvatool", f"echo $$ >>{TOOLS}"):
            self.terminal.write(f"{PROGRAMS}/{name}", f"#!/bin/sh\n{text}\n")
            self.terminal.check(f"chmod 755 {PROGRAMS}/{name}")
        for expected in 1, 2:  # the second time, after the first has ended
            self.terminal.check(f"for MDEV in sda sdb; do export MDEV;"
                                f" PATH={PROGRAMS}:$PATH {SCRIPT}; done")
            self.terminal.wait_for(f"! ps | grep -q '[/]{SCRIPT}'")
            self.assertEqual(len(self.terminal.read(TOOLS).splitlines()), expected)
