"""The log lines that docs/technician.md quotes, and the tests that it names for each."""

import re
from collections import defaultdict

from tests.pages.calls import ROOT

DOCUMENT = ROOT / "docs/technician.md"
SECTION = re.compile(r"^##+ ", re.MULTILINE)
LINE = re.compile(r"^    \[orvatool:TIME\] (\w+) \[(\w+) (\w+) N\]: (.*)$", re.MULTILINE)
FILE_OR_TEST = re.compile(r"`([\w/]+/\w+_test)`|`(test_\w+)`")


def sections():
    """The lines, in the form of tests/support/tool.py, and the tests of each part of the page.

    A test is its file, without ending, and its name.
    """
    for text in SECTION.split(DOCUMENT.read_text(encoding="utf-8")):
        lines = [f"{level} {file} {function}: {message}\n"
                 for level, file, function, message in LINE.findall(text)]
        tests = []
        file = None
        for named, test in FILE_OR_TEST.findall(text):
            file = named or file
            if test:
                tests.append((file, test))
        if lines or tests:
            yield lines, tests


def lines_of(file, test):
    """The lines that the page says a test shows."""
    found = defaultdict(list)
    for lines, tests in sections():
        for each in tests:
            found[each] += lines
    return found[file, test]
