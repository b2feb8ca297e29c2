"""Runs the board tests, the main job or a console on the emulated terminal.

python3 -m board BUILD [run | shell | long | TEST]: the tool comes from the ARM build folder BUILD;
TEST is the name of a test or of a file in board/tests; without a word all tests run. The word long
runs the tests that do one thing many times, with their large counts.
"""

import sys
import unittest
from pathlib import Path

from board import demo, session

TESTS = Path(__file__).parent / "tests"
LONG = "long"


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


def is_selected(test, word):
    """Whether a word selects a test; None selects all."""
    if word == LONG:
        return hasattr(getattr(test, test.id().rpartition(".")[2]), "is_counted")
    return word is None or word in names(test)


def run_tests(build, word):
    """Runs the tests that the word selects. Returns the exit status."""
    suite = unittest.TestLoader().discover(TESTS, "*_test.py", TESTS.parent.parent)
    tests = [test for test in all_tests(suite) if is_selected(test, word)]
    if not tests:
        print(f"board: no test is named {word}", file=sys.stderr)
        return 2
    session.begin(build, word == LONG)
    try:
        result = unittest.TextTestRunner(verbosity=2).run(unittest.TestSuite(tests))
    finally:
        session.end()
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
        sys.exit("usage: python3 -m board BUILD [run | shell | long | TEST]")
    sys.exit(main(*sys.argv[1:]))
