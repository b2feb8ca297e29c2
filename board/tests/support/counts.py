"""Tests that do one thing many times: a few times among all tests, often in the long run."""

import functools

from board import session


def counted(short, long):
    """Gives a test a count: `short`, or `long` in the long run, which has such tests only."""
    def mark(test):
        @functools.wraps(test)
        def run(self):
            test(self, long if session.is_long() else short)
        run.is_counted = True
        return run
    return mark
