"""Rows of the fault catalogue: sticks that are pulled out during a run."""

import hashlib
import random
import time
from collections import Counter

from board import figures, torn
from board.fat import Damaged, Volume
from board.terminal import SERIAL
from board.tests.support.case import HOLD_AFTER, HOLD_BEFORE
from board.tests.support.counts import counted
from board.tests.support.faults import EXPORT, FaultTest
from board.tests.support.media import log_of
from tests.support import tool
from tests.support.faults import fault

TOOL = "orvatool -d EIWD"
LONG_LOG = b"0123456789abcde\n" * (32 * 1024)
VERSION, LONG_VERSION = "/proc/version", "/tmp/version"
IO_ERROR = "Input/output error"
SEED = 20240507


class Pulled(FaultTest):

    def assert_repairable(self, stick, before):
        """What a power cut may do to a stick was done to it, and no more."""
        self.assertEqual(torn.examine_one(before, stick.image.read_bytes()).faults, [])

    def pull_out(self, hold, program="cp"):
        """Pulls the stick out while a command of the tool is held."""
        stick = self.stick(whole="fat12", mib=1)
        before = stick.image.read_bytes()
        self.plug(stick)
        self.begin()
        self.hold_tool_in(program, hold)
        self.terminal.unplug()
        self.terminal.wait_for("[ ! -e /sys/block/sda ]")
        self.terminal.check(">/tmp/go")
        self.assert_promises(self.terminal.finish(), tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT,
                             *log_of(stick, 0))
        self.assert_repairable(stick, before)

    @fault("Timing", "pulled out before the export folder is made",
           volume="the dirty bit stays set, as after a power cut")
    def test_pulled_out_before_the_folder(self):
        self.pull_out(HOLD_BEFORE.replace("/cp", "/mkdir"), "mkdir")

    @fault("Timing", "pulled out before the copy",
           volume="the folder may be there in part, as after a power cut")
    def test_pulled_out_before_the_copy(self):
        self.pull_out(HOLD_BEFORE)

    @fault("Timing", "pulled out after the copy and before its sync: the log may be empty or in"
                     " part on the stick, and nothing tells",
           volume="folder and log may be there in part, as after a power cut")
    def test_pulled_out_before_the_sync(self):
        self.pull_out(HOLD_AFTER)

    def outcomes(self, stick):
        """What the RAM-disk file may end with, whenever the stick is pulled out."""
        mounted = tool.mounted("sda", stick.mib())
        return {
            "no stick": tool.NO_STICK,
            "no disk": tool.RELEASED_NOTHING + tool.NOTHING_MOUNTED,
            "disk without answer": (tool.RELEASED_NOTHING + tool.refused("sda")
                                    + tool.NOTHING_MOUNTED),
            "mounted": tool.RELEASED_NOTHING + mounted + tool.exported(SERIAL, tool.NO_SUCH_FILE),
            "mounted without answer": (tool.RELEASED_NOTHING + mounted
                                       + tool.exported(SERIAL, IO_ERROR)),
        }

    def pull_out_after(self, stick, moment_s):
        """Runs the tool and pulls the stick out some time after its start. Tells the outcome."""
        self.terminal.plug(stick)
        self.begin()
        self.terminal.start(TOOL)
        time.sleep(moment_s)
        self.terminal.unplug()
        result = self.terminal.finish()
        self.terminal.wait_for("[ ! -e /sys/block/sda ]")
        found = [(name, end) for name, end in self.outcomes(stick).items()
                 if tool.without_times(self.output()).endswith(tool.started(SERIAL) + end)]
        name, end = found[0] if found else ("other", "")
        self.assert_promises(result, end)
        return name

    def log_on(self, stick):
        """How much of the log a stick holds."""
        try:
            entry = dict(Volume(stick.image.read_bytes()).entries()).get(EXPORT)
        except Damaged:
            return "log in part"
        if entry is None:
            return "no log"
        whole = hashlib.sha256(LONG_LOG).hexdigest()
        return "whole log" if entry.sha256 == whole else "log in part"

    @fault("Timing", "pulled out at random moments, 3 times (200 times in the long run), while a"
                     " log of 512 KiB is copied or shortly before or after",
           volume="folder and log may be there in part, as after a power cut")
    @counted(3, 200)
    def test_pulled_out_at_random_moments(self, count):
        self.terminal.write(LONG_VERSION, LONG_LOG)
        self.terminal.check(
            f"mkdir {tool.MOUNT_POINT} && mount --bind {LONG_VERSION} {VERSION}")
        self.addCleanup(self.terminal.check, f"umount {VERSION}")
        stick = self.stick(whole="fat12", mib=1)
        before = stick.image.read_bytes()
        self.remember(stick)
        self.terminal.plug(stick)
        self.terminal.run(TOOL)  # the first run takes longer than others
        began_s = time.monotonic()
        self.terminal.run(TOOL)
        run_s = time.monotonic() - began_s
        self.terminal.unplug()
        moments = random.Random(SEED)
        outcomes = Counter()
        for _ in range(count):
            stick.image.write_bytes(before)
            outcomes[self.pull_out_after(stick, moments.uniform(0, run_s))] += 1
            outcomes[self.log_on(stick)] += 1
            self.assert_repairable(stick, before)
        figures.write("pulled", {"sticks pulled out at random moments": count} | {
            f"sticks pulled out: {name}": number for name, number in sorted(outcomes.items())})
