"""Rows of the fault catalogue on this machine: every run of the tool keeps its row's promises.

The stick is a folder here: it holds files, but no FAT volume to check. That promise is the board's.
"""

import atexit
import itertools
import os
import shutil
import time
from pathlib import Path

import story
from terminal import TerminalTest, kernel_version, read, tree, write
from tests.support import tool
from tests.support.faults import BOUND_S, PROMISES, row_of

ELSEWHERE = "volume"
OLD_FILES = {"notes.txt": "mine\n", "photos/one.txt": "1" * 10000, "12345.log": "not yours\n"}
SANITIZER = b"__asan_init", b"__msan_init", b"__tsan_init"
COVERAGE = b"__llvm_profile_runtime", b"__gcov_"
START = story.REOPEN + story.LEVELS + story.serial_steps("12345")
WHOLE_RUN = START + story.MOUNT + story.export()
run_rows = set()  # whose promises were checked
BUFFER = 4096  # of the tool's standard output: what is longer is flushed before the end


def is_printed(line):
    """Whether a line of a trace is a text, and not a call."""
    return line.startswith("out ")


def calls(trace):
    """The calls of a trace, without what was printed in between."""
    return [line for line in trace if not is_printed(line) and line != "flush"]


def printed_text(told):
    """What the tool's lines in a trace leave in the RAM-disk file."""
    return "".join(line.removeprefix("out ") + "\n" for line in told if is_printed(line))


def output_text(told):
    """The RAM-disk file of a run: what commands print gets there first."""
    return told.count("system cat /proc/version") * kernel_version() + printed_text(told)


def stays_mounted(trace, mount_results, umount_results):
    """Whether the last call that did its work was a mount."""
    results = {name: itertools.chain(texts.split(","), itertools.repeat(texts.split(",")[-1]))
               for name, texts in (("mount", mount_results), ("umount", umount_results))}
    mounted = False
    for line in trace:
        name = line.split(" ")[0]
        if name in results and next(results[name]) == "0":
            mounted = name == "mount"
    return mounted


def add_figure(label, count):
    """Takes down how much was tried, when FIGURES names a file for it."""
    if file := os.environ.get("FIGURES"):
        with open(file, "a", encoding="utf-8") as figures:
            figures.write(f"{label}\t{count}\n")


atexit.register(lambda: add_figure("this machine, rows of the fault catalogue", len(run_rows)))


class FaultTest(TerminalTest):
    """A terminal whose stick holds files. A test that is a row must run the tool by `run_row`."""

    def setUp(self):
        super().setUp()
        for name, text in OLD_FILES.items():
            write(f"{tool.MOUNT_POINT}/{name}", text)
        self.kept = set(PROMISES) - {ELSEWHERE}
        self.is_checked = not self.is_row()
        if self.is_row():
            self.kept &= set(row_of(self).kept())

    def tearDown(self):
        self.assertTrue(self.is_checked, "this row of the catalogue has checked no run")

    def is_row(self):
        """Whether the running test is marked as a row."""
        return hasattr(getattr(self, self._testMethodName), "fault")

    def skipTest(self, reason):
        self.is_checked = True  # the reason says why not
        super().skipTest(reason)

    def skip_with(self, marks, reason):
        """Skips a test where the tool's executable has one of these marks of a special build."""
        program = Path(self.tool).read_bytes()
        if any(mark in program for mark in marks):
            self.skipTest(reason)

    def promise(self, name, test, *values):
        """Applies an assertion, unless the row says why the promise is not kept."""
        if name in self.kept:
            test(*values, f"the row promises {name}: {PROMISES[name]}")

    def run_row(self, told, *arguments):
        """Runs the tool, whose trace must be as told, and checks what the row promises."""
        return self.run_checked(lambda run: self.check_story(run, told), *arguments)

    def run_checked(self, check_story, *arguments):
        """Runs the tool and checks what the row promises; its output is for `check_story`."""
        self.is_checked = True
        if self.is_row():
            run_rows.add(self.id())
        shutil.rmtree(tool.EXPORT_FOLDER, ignore_errors=True)  # of the test's last run
        files, mounts, start = tree(tool.MOUNT_POINT), read("/proc/mounts"), time.monotonic()
        run = self.run_tool(*arguments)
        self.promise("time", self.assertLess, time.monotonic() - start, BOUND_S)
        self.promise("exit", self.assertEqual, self.status, 0)
        self.promise("mounts", self.assertEqual, read("/proc/mounts"), mounts)
        self.promise("mounts", self.assertFalse,
                     stays_mounted(run.trace, self.mount_results, self.umount_results))
        after = tree(tool.MOUNT_POINT)
        self.promise("files", self.assertEqual, {name: after.get(name) for name in files}, files)
        check_story(run)
        return run

    def check_story(self, run, told):
        """The run's calls and texts are those that are told, and the texts are in the file."""
        if len(printed_text(told)) < BUFFER:
            self.assertEqual(run.trace, told)
        else:  # the probe does not see what the stream flushes on the way
            self.assertEqual(calls(run.trace), calls(told))
        if "output" in self.kept:
            self.promise("output", self.assertEqual,
                       tool.shortened(read(tool.OUTPUT_FILE)), output_text(told))
