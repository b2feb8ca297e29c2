"""docs/architecture.md: its picture has the arrows that the sources have, its files are there.

Called with the folder of the sources.
"""

import pathlib
import re
import sys
import unittest
from collections import defaultdict

root = pathlib.Path(sys.argv[1])
PRODUCT = ("log", "splash", "tool", "udisk", "util")
FOLDERS = (*PRODUCT, "platform")
PARTS = ("util/fileutils", "util/timeutils", "util/trstrutils")
OUTSIDE = {"callers", "script", "kernel"}  # in the picture, and no room of the sources

INCLUDE = re.compile(r'^#include "(\w+/[^"]+)"', re.MULTILINE)
EDGE = re.compile(r"^ +(\w+) -> (\w+)", re.MULTILINE)
CALLS_ROW = re.compile(r"^\| `(\w+/[\w/.]+\.cpp)` \| (.*) \|$", re.MULTILINE)


def read(name):
    return (root / name).read_text(encoding="utf-8")


def room(path):
    """The room of a source or header, by its path in the tree."""
    for part in PARTS:
        if re.match(rf"{part}[./]", path):
            return part.removeprefix("util/")
    folder = path.split("/")[0]
    return "base" if folder == "util" else folder


def dependencies():
    """(room, room that it includes) of all sources and headers."""
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*.[ch]*")):
            name = str(path.relative_to(root))
            for included in INCLUDE.findall(read(name)):
                if room(included) != room(name):
                    yield room(name), room(included)


class Picture(unittest.TestCase):
    longMessage = False

    def test_has_the_arrows_of_the_sources(self):
        edges = EDGE.findall(read("docs/architecture.dot"))
        drawn = {edge for edge in edges if not OUTSIDE & set(edge)}
        self.assertEqual(sorted(drawn), sorted(set(dependencies())),
                         "docs/architecture.dot: its arrows are not the includes of the sources")


class Calls(unittest.TestCase):
    """The table of platform calls."""

    longMessage = False

    def test_are_made_in_the_files_that_the_page_names_and_no_others(self):
        told = defaultdict(set)
        for file, calls in CALLS_ROW.findall(read("docs/architecture.md")):
            for call in re.findall(r"`(\w+)`", calls):
                told[call].add(file)
        self.assertTrue(told, "docs/architecture.md has no table of platform calls")
        sources = {str(path.relative_to(root)): path.read_text(encoding="utf-8")
                   for folder in PRODUCT
                   for path in (root / folder).rglob("*.cpp")}
        for call, files in told.items():
            with self.subTest(call=call):
                made = {name for name, text in sources.items()
                        if re.search(rf"(?<![\w.]){call}\(", text)}
                self.assertEqual(files, made, f"docs/architecture.md: {call} is called in {made}")


class Paths(unittest.TestCase):
    longMessage = False

    def test_of_the_page_are_there(self):
        found = re.findall(r"`((?:board|cmake|log|platform|splash|tests|tool|udisk|util)/[\w/.]*)`",
                           read("docs/architecture.md"))
        self.assertTrue(found, "docs/architecture.md names no path")
        for path in found:
            with self.subTest(path=path):
                self.assertTrue((root / path).exists(), f"docs/architecture.md names {path}")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
