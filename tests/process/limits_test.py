"""Limits of the process, as low as they let the loader reach the tool's first step."""

import fcntl
import os
import resource
import shutil
import signal

import story
from faults import COVERAGE, SANITIZER, WHOLE_RUN, calls, printed_text
from outcomes import OutcomeTest, outcomes, without_error
from terminal import EMULATOR, kernel_version, read
from tests.support import tool
from tests.support.faults import fault

TRACE = 100  # the probe's descriptor
TRACE_SIZE = 1 << 18
PAGE = resource.getpagesize()
STARTS = 50
COUNTS = "the counts of an instrumented tool would not fit either"
PAGES_STEP = 8
PAGES_ABOVE = 64  # of the lowest limit: there commands can be started, and lists read


class Limits(OutcomeTest):
    """The trace goes through a pipe, which no limit is for."""

    def start_tool(self, *arguments):
        """Repeats a start that the loader ends: it depends on where the kernel places things."""
        for _ in range(STARTS):
            run, trace = self.start_once(*arguments)
            if trace:
                break
        return run, trace

    def start_once(self, *arguments):
        self.reader, writer = os.pipe()
        fcntl.fcntl(writer, fcntl.F_SETPIPE_SZ, TRACE_SIZE)
        os.dup2(writer, TRACE)
        os.close(writer)
        self.inherited = (TRACE,)
        return super().start_tool(*arguments)

    def take_trace(self):
        os.close(TRACE)
        with open(self.reader, encoding="ascii") as trace:
            return trace.read()

    def set_limit(self, limit, value, on_large_file=signal.SIG_IGN):
        def prepare():
            signal.signal(signal.SIGXFSZ, on_large_file)
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            resource.setrlimit(limit, (value, value))
        self.prepare = prepare

    def lowest_of(self, program, first_step, limit, unit, enough):
        """The lowest value, in units, with which a program takes its first step."""
        whole, self.tool = self.tool, program
        refused = 0
        while enough - refused > 1:
            tried = (refused + enough) // 2
            self.set_limit(limit, tried * unit)
            if all(self.start_once("-x")[1].startswith(first_step) for _ in range(3)):
                enough = tried
            else:
                refused = tried
        self.tool = whole
        self.assertGreater(refused, 0)
        return enough

    def lowest(self, limit, unit, enough, own):
        """The lowest value with which `main` is reached.

        It is what the loader needs for a program that does nothing, but for the tool's own part.
        """
        if EMULATOR:
            self.skipTest("the lowest limit would be the emulator's")
        value = self.lowest_of(self.tool, story.REOPEN[0], limit, unit, enough)
        trivial = self.lowest_of(shutil.which("true"), story.EXIT[0], limit, unit, enough)
        self.assertLessEqual(value, trivial + own)
        return value

    def check_memory(self, limit, own_pages, expected):
        """Runs the tool at the lowest limit, and at some above it."""
        self.skip_with(SANITIZER + COVERAGE, "an instrumented tool needs memory of its own")
        lowest = self.lowest(limit, PAGE, 1 << 14, own_pages)
        for pages in range(lowest, lowest + PAGES_ABOVE, PAGES_STEP):
            with self.subTest(pages=pages):
                self.set_limit(limit, pages * PAGE)
                self.run_checked(lambda run: self.assert_known(run, expected), "-d", "EIWD")

    @fault("Inputs", "one descriptor beside the standard streams, the least that the loader bears")
    def test_descriptors(self):
        lowest = self.lowest(resource.RLIMIT_NOFILE, 1, TRACE, 0)
        self.assertEqual(lowest, 4)
        for count in lowest, lowest + 1:
            self.set_limit(resource.RLIMIT_NOFILE, count)
            self.run_row(WHOLE_RUN, "-d", "EIWD")

    @fault("Inputs", "address space as small as the loader bears, and a little larger",
           output="the kernel's version is missing where the command that writes it cannot"
                  " start")
    def test_address_space(self):
        self.check_memory(resource.RLIMIT_AS, 64, outcomes(story.good_attempt("sda", 7639)))

    @fault("Inputs", "data as small as the loader bears, and a little larger",
           output="the kernel's version is missing where the command that writes it cannot"
                  " start")
    def test_data(self):
        self.check_memory(resource.RLIMIT_DATA, 8, outcomes(story.good_attempt("sda", 7639)))

    @fault("Inputs", "stack as small as the loader bears, and a little larger",
           output="the kernel's version is missing where the command that writes it cannot"
                  " start")
    def test_stack(self):
        self.check_memory(resource.RLIMIT_STACK, 4, {tuple(calls(WHOLE_RUN)): {
            without_error(printed_text(WHOLE_RUN))}})

    @fault("Inputs", "file size limit, with SIGXFSZ ignored by the caller",
           output="it is cut at the limit")
    def test_file_size(self):
        self.skip_with(COVERAGE, COUNTS)
        for size in 0, 100:
            self.set_limit(resource.RLIMIT_FSIZE, size)
            self.run_row(WHOLE_RUN, "-d", "EIWD")
            self.assertEqual(read(tool.OUTPUT_FILE), kernel_version()[:size])

    @fault("Inputs", "file size limit, with SIGXFSZ at its default",
           exit="the kernel ends a process that writes beyond it, here after the unmount; the tool"
                " sets no signal's disposition", output="it is empty: it ends at the limit, 0")
    def test_file_size_with_signal(self):
        self.skip_with(COVERAGE, COUNTS)
        self.set_limit(resource.RLIMIT_FSIZE, 0, signal.SIG_DFL)
        self.status = -signal.SIGXFSZ
        self.run_row(WHOLE_RUN, "-d", "EIWD")
        self.assertEqual(read(tool.OUTPUT_FILE), "")
