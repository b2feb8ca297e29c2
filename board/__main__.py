"""Runs the board tests, the main job or a console on the emulated terminal.

python3 -m board BUILD [run | shell | long | N/M | TEST]: the tool comes from the ARM build folder
BUILD; TEST is the name of a test or of a file in board/tests; without a word all tests run. The
word long runs the tests that do one thing many times, with their large counts; 1/2 runs one half of
the files of tests, 2/2 the other: the tests of a file make its figures together.
"""

import re
import signal
import sys
import time
import unittest
from pathlib import Path

from board import demo, figures, session
from board.machine import MachineGone

TESTS = Path(__file__).parent / "tests"
LONG = "long"
SHARE = re.compile(r"([1-9])/([1-9])")
# About how long a file of tests takes, where it is long, and how long the others do.
SECONDS = {"power_cut": 45, "failing_media": 20, "damaged_sticks": 15, "layouts": 10, "timing": 10,
           "vectors": 10, "pulled": 8, "repeated_runs": 6}
OTHER_SECONDS = 4
ENDS = signal.SIGINT, signal.SIGTERM, signal.SIGHUP  # ask us to end


def end(number, _):
    """Ends what is done here; no second signal disturbs the cleaning up."""
    for each in ENDS:
        signal.signal(each, lambda *_: None)
    raise KeyboardInterrupt(number)


def all_tests(suite):
    """The test cases of a suite, one by one."""
    for entry in suite:
        if isinstance(entry, unittest.TestSuite):
            yield from all_tests(entry)
        else:
            yield entry


def names(test):
    """The words that select a test: its own name, and that of its file."""
    *_, file, _, function = test.id().split(".")
    return function.removeprefix("test_"), file.removesuffix("_test")


def has_mark(test, mark):
    """Whether the function of a test carries a mark."""
    return hasattr(getattr(test, test.id().rpartition(".")[2]), mark)


def shares(files, count):
    """Parts of the files that take about the same time: the longest goes first to the shortest."""
    parts = [[] for _ in range(count)]
    for file in sorted(files, key=seconds, reverse=True):
        min(parts, key=lambda part: sum(map(seconds, part))).append(file)
    return parts


def seconds(file):
    """About how long a file of tests takes."""
    return SECONDS.get(file, OTHER_SECONDS)


def selected(tests, word):
    """The tests that a word selects; None selects all."""
    if word is None:
        return tests
    if word == LONG:
        return [test for test in tests if has_mark(test, "is_counted")]
    if share := SHARE.fullmatch(word):
        files = list(dict.fromkeys(names(test)[1] for test in tests))
        own = shares(files, int(share[2]))[int(share[1]) - 1]
        return [test for test in tests if names(test)[1] in own]
    return [test for test in tests if word in names(test)]


class CountingResult(unittest.TextTestResult):
    """The result of the tests, with the number of rows of the fault catalogue and their time."""

    rows = 0
    rows_s = 0

    def startTest(self, test):
        super().startTest(test)
        self._began_s = time.monotonic()

    def stopTest(self, test):
        super().stopTest(test)
        if has_mark(test, "fault"):
            self.rows += 1
            self.rows_s += time.monotonic() - self._began_s


def run_tests(build, word):
    """Runs the tests that the word selects. Returns the exit status."""
    suite = unittest.TestLoader().discover(TESTS, "*_test.py", TESTS.parent.parent)
    tests = selected(list(all_tests(suite)), word)
    if not tests:
        print(f"board: no test is named {word}", file=sys.stderr)
        return 2
    session.begin(build, word == LONG)
    try:
        result = unittest.TextTestRunner(verbosity=2, resultclass=CountingResult).run(
            unittest.TestSuite(tests))
    finally:
        session.end()
    if word and SHARE.fullmatch(word):
        figures.write(f"board_{word[0]}", {
            f"terminal {word}, tests": result.testsRun,
            f"terminal {word}, rows of the fault catalogue": result.rows,
            "both terminals, seconds that the rows took": round(result.rows_s)})
    return 0 if result.wasSuccessful() else 1


def main(build, word=None):
    """Returns the exit status."""
    if word == "run":
        return demo.run(build)
    if word == "shell":
        return demo.shell(build)
    return run_tests(build, word)


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit("usage: python3 -m board BUILD [run | shell | long | N/M | TEST]")
    for signal_number in ENDS:
        signal.signal(signal_number, end)
    try:
        sys.exit(main(*sys.argv[1:]))
    except (MachineGone, AssertionError) as error:  # what a terminal did not do
        sys.exit(f"board: {error}")
    except KeyboardInterrupt as interrupt:
        print("\nboard: interrupted", file=sys.stderr)
        sys.exit(128 + interrupt.args[0])
