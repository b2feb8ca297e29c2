"""Rows of the fault catalogue: sticks that are pulled out during a run."""

import hashlib
import random
import time
from collections import Counter

from board import figures, session, torn
from board.fat import Damaged, Volume
from board.terminal import BACKGROUND, SERIAL
from board.tests.support.case import HOLD_AFTER, HOLD_BEFORE
from board.tests.support.counts import counted
from board.tests.support.faults import EXPORT, FaultTest
from board.tests.support.media import log_of
from tests.support import tool
from tests.support.faults import fault

TOOL = "orvatool -d EIWD"
LONG_LOG = b"0123456789abcde\n" * (32 * 1024)
VERSION, LONG_VERSION = "/proc/version", "/tmp/version"
HALF = len(LONG_LOG) // 2
# Copies half of a long log, onto the stick itself, and then goes on as the others do.
HOLD_HALFWAY = f"head -c {HALF} $1 >$2; sync; {HOLD_BEFORE}"
IO_ERROR = "Input/output error"
SEED = 20240507
# From where a moment counts: the start of the tool, and that of its copy if it is not over yet.
START, COPY = "true", f"[ -e {tool.MOUNT_POINT}/{EXPORT} ] || [ -e {BACKGROUND}.status ]"
# What a moment too late does to the next ones, and any other moment: half of them are too late.
SOONER, LATER = 0.9, 1.1
MET = "mounted", "no log", "log in part", "whole log"  # in the long run, each of them


class Pulled(FaultTest):

    def assert_repairable(self, stick, before):
        """What a power cut may do to a stick was done to it, and no more."""
        self.assertEqual(torn.examine_one(before, stick.image.read_bytes()).faults, [])

    def make_log_long(self):
        """From here on a run exports LONG_LOG."""
        self.terminal.write(LONG_VERSION, LONG_LOG)
        self.terminal.check(f"mount --bind {LONG_VERSION} {VERSION}")
        self.addCleanup(self.terminal.check, f"umount {VERSION}")

    def pull_out(self, hold, program="cp"):
        """Pulls the stick out while a command of the tool is held. Returns the stick."""
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
        return stick

    @fault("Timing", "pulled out before the export folder is made",
           volume="the dirty bit stays set, as after a power cut")
    def test_pulled_out_before_the_folder(self):
        self.pull_out(HOLD_BEFORE.replace("/cp", "/mkdir"), "mkdir")

    @fault("Timing", "pulled out before the copy",
           volume="the folder may be there in part, as after a power cut")
    def test_pulled_out_before_the_copy(self):
        self.pull_out(HOLD_BEFORE)

    @fault("Timing", "pulled out in the middle of the copy, with half of the log on the stick",
           volume="folder and log may be there in part, as after a power cut")
    def test_pulled_out_in_the_middle_of_the_copy(self):
        self.make_log_long()
        stick = self.pull_out(HOLD_HALFWAY)
        self.assertEqual(self.log_on(stick), "log in part")
        self.assertTrue(stick.read(EXPORT) == LONG_LOG[:HALF], "another part of the log")

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

    def pull_out_after(self, stick, condition, moment_s):
        """Runs the tool and pulls the stick out some time after that. Tells the outcome."""
        self.terminal.plug(stick)
        self.begin()
        self.terminal.start(TOOL)
        self.terminal.wait_for(condition)
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

    def time_after(self, condition):
        """How long a run goes on after the condition."""
        self.terminal.start(TOOL)
        self.terminal.wait_for(condition)
        began_s = time.monotonic()
        self.terminal.finish()
        return time.monotonic() - began_s

    def windows(self, stick, before):
        """How long a run goes on after its start, and after that of its copy."""
        for condition in START, COPY:
            stick.image.write_bytes(before)
            self.terminal.plug(stick)
            yield condition, self.time_after(condition)
            self.terminal.unplug()

    @fault("Timing", "pulled out at random moments, 3 times (200 times in the long run), while a"
                     " log of 512 KiB is copied or shortly before or after",
           volume="folder and log may be there in part, as after a power cut")
    @counted(3, 200)
    def test_pulled_out_at_random_moments(self, count):
        self.terminal.check(f"mkdir {tool.MOUNT_POINT}")
        self.make_log_long()
        stick = self.stick(whole="fat12", mib=1)
        before = stick.image.read_bytes()
        self.remember(stick)
        self.terminal.plug(stick)
        self.terminal.run(TOOL)  # the first run takes longer than others
        self.terminal.unplug()
        windows = dict(self.windows(stick, before))
        moments = random.Random(SEED)
        outcomes = Counter()
        for number in range(count):
            stick.image.write_bytes(before)
            condition = (START, COPY)[number % 2]
            moment_s = moments.uniform(0, windows[condition])
            outcomes[self.pull_out_after(stick, condition, moment_s)] += 1
            log = self.log_on(stick)
            outcomes[log] += 1
            windows[condition] *= SOONER if log == "whole log" else LATER
            self.assert_repairable(stick, before)
        figures.write("pulled", {"sticks pulled out at random moments": count} | {
            f"sticks pulled out: {name}": number for name, number in sorted(outcomes.items())})
        if session.is_long():
            self.assertEqual([name for name in MET if not outcomes[name]], [], "never met")
