"""System calls of the tool that fail: each of them once, with each of five errors.

INJECT is how many failures each test tries, unset: a few, `all`: all. FIGURES, when set, is the
file that their number is added to.
"""

import os
import random
import re
import shutil
import subprocess
from dataclasses import dataclass

import story
from faults import COVERAGE, SANITIZER, add_figure
from outcomes import OutcomeTest, outcomes
from terminal import EMULATOR, read
from tests.support import tool
from tests.support.faults import fault

ERRORS = "EINTR", "EIO", "EMFILE", "ENOMEM", "EACCES"
CALLS = "/mnt/test/calls.txt"
CALL = re.compile(r"^(\w+)\((.*)$", re.MULTILINE)
MAIN = "write(100, \"freopen "
# What the probe does, and the end itself, which cannot fail.
NOT_OURS = re.compile(r"write\(100,|fcntl\(\d+, F_GETFD|exit_group\(")
COUNT = os.environ.get("INJECT", "50")
SEED = 20240305


@dataclass(frozen=True)
class Call:
    """A system call of a run: the `number`-th of its name, counted from the process's start."""
    name: str
    number: int
    text: str

    def failure(self, error):
        """How it fails. A break that cannot be moved shows by the address alone, too low a one."""
        return "retval=0" if self.name == "brk" else f"error={error}"

    def is_output(self):
        """Whether the RAM-disk file depends on it."""
        return tool.OUTPUT_FILE in self.text or self.text.startswith(("write(1,", "dup3("))


def calls_of_main(log):
    """The tool's own calls since the entry of `main`."""
    counts = {}
    in_main = False
    for found in CALL.finditer(log):
        name, text = found[1], found[0]
        counts[name] = counts.get(name, 0) + 1
        in_main = in_main or text.startswith(MAIN)
        if in_main and not NOT_OURS.match(text):
            yield Call(name, counts[name], text)


class Injection(OutcomeTest):
    def setUp(self):
        super().setUp()
        if EMULATOR:
            self.skipTest("an emulator would have its own system calls fail")
        self.skip_with(SANITIZER + COVERAGE, "an instrumented tool makes calls of its own")
        refused = subprocess.run(["strace", "-o", CALLS, "true"], check=False,
                                 capture_output=True).returncode
        if refused:
            self.skipTest("ptrace is refused here")
        self.is_mount_point_missing = False

    def wrap(self, *words):
        self.wrapper = ["strace", "-o", CALLS, *words]

    def prepare_stick(self):
        """The state before each run."""
        if self.is_mount_point_missing:
            shutil.rmtree(tool.MOUNT_POINT, ignore_errors=True)

    def check_failures(self, expected):
        """Lets each call of a whole run fail once."""
        self.prepare_stick()
        self.wrap()
        self.run_tool("-d", "EIWD")
        cases = [(call, error) for call in calls_of_main(read(CALLS)) for error in ERRORS]
        if COUNT != "all":
            cases = random.Random(SEED).sample(cases, int(COUNT))
        add_figure(f"failing system calls, {self._testMethodName}", len(cases))
        for call, error in cases:
            with self.subTest(call=call.text, number=call.number, error=error):
                self.prepare_stick()
                self.wrap("-e", f"trace={call.name}", "-e",
                          f"inject={call.name}:{call.failure(error)}:when={call.number}")
                self.run_checked(lambda run: self.check_outcome(run, call, expected),
                                 "-d", "EIWD")

    def check_outcome(self, run, call, expected):
        """The run is one of those expected, and the call is the one that failed."""
        self.assertEqual(read(CALLS).count("(INJECTED)"), 1)
        self.assert_known(run, expected, has_output=not call.is_output())

    @fault("Failing system calls", "each call from the entry of `main` to the end fails once with"
           " EINTR, EIO, EMFILE, ENOMEM and EACCES, in an export to the first disk",
           output="lost where the failing call opens or writes it")
    def test_export(self):
        self.check_failures(outcomes(story.good_attempt("sda", 7639)))

    @fault("Failing system calls", "each call fails once with each of these errors, in an export to"
           " a partition of a disk that shows on the bus alone, without mount point",
           output="lost where the failing call opens or writes it")
    def test_second_attempt(self):
        self.set_bus_devices("002")
        self.is_mount_point_missing = True
        self.mount_results = "-1,0"
        self.check_failures(outcomes(story.failed_attempt("sda"),
                                     story.good_attempt("sda1", 7638)))
