"""docs/quirks.md and docs/quirks/: each oddity that a header promises, and a test for each row.

A row quotes the opening words of the sentences behind "Good to know" that it is about, in the
header's order: a sentence that comes, goes or moves there shows here. Called with the folder of
the sources.
"""

import pathlib
import re
import sys
import unittest
from collections import Counter

root = pathlib.Path(sys.argv[1])

PAGES = "quirks.md", "quirks/*.md"
HEADER_FOLDERS = "log", "splash", "udisk", "util"
GOOD_TO_KNOW = re.compile(r"/\*((?:(?!\*/).)*?)\bGood to know:(.*?)\*/\n([^\n]*)", re.DOTALL)
SECTION = re.compile(r"^## `?(.+?)`?$(.*?)(?=^## |\Z)", re.MULTILINE | re.DOTALL)
ROW = re.compile(r"^\| (.*) \|$", re.MULTILINE)
HEAD = ["where", "what is odd", "who relies on it", "held by"]
HEAD_OF_HEADERS = ["name", "in the header", *HEAD[1:]]
ELSEWHERE = "-"  # in the place of opening words: not behind "Good to know"
GOOGLE_TEST = re.compile(r"^TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", re.MULTILINE)
PYTHON_TEST = re.compile(r"^ +def (test_\w+)\(", re.MULTILINE)


def read(path):
    return path.read_text(encoding="utf-8")


def subject(comment, next_line):
    """The function that is declared below a comment, or the first word of a group's comment."""
    function = re.search(r"(\w+)\(", next_line)
    return function[1] if function else re.search(r"\w+", comment)[0]


def promises(header):
    """(name, sentence) of all that a header says behind "Good to know"."""
    found = []
    for comment, promised, next_line in GOOD_TO_KNOW.findall(read(header)):
        text = " ".join(re.sub(r"\n \*(?:  - )?", " ", promised).split())
        name = subject(comment, next_line)
        found += [(name, sentence) for sentence in re.split(r"(?<=\.) ", text)]
    return found


def headers():
    """What each header promises that promises anything."""
    files = [file for folder in HEADER_FOLDERS for file in (root / folder).rglob("*.h")]
    promised = {str(file.relative_to(root)): promises(file) for file in files}
    return {name: sentences for name, sentences in promised.items() if sentences}


def sections():
    """The table of each section: its rows, the head first."""
    pages = [page for pattern in PAGES for page in (root / "docs").glob(pattern)]
    return {title: [row.split(" | ") for row in ROW.findall(text)]
            for page in pages for title, text in SECTION.findall(read(page))}


def openings(table):
    """(name, opening words) of a header's rows."""
    return [(name.strip("`"), each) for name, words, *_ in table[1:]
            for each in words.split(" / ") if each != ELSEWHERE]


def existing_tests():
    """How many tests there are of each name: `Suite.Name`, or a Python test's own."""
    counts = Counter()
    for file in root.glob("tests/**/*_test.cpp"):
        counts.update(map(".".join, GOOGLE_TEST.findall(read(file))))
    for folder in "tests", "board/tests":
        for file in (root / folder).rglob("*_test.py"):
            counts.update(PYTHON_TEST.findall(read(file)))
    return counts


class Quirks(unittest.TestCase):
    longMessage = False

    def setUp(self):
        self.headers = headers()
        self.sections = sections()
        self.assertTrue(self.headers, "no header says what is good to know")
        self.assertTrue(self.sections, "docs/quirks.md has no sections")

    def test_each_section_is_a_table(self):
        for title, table in self.sections.items():
            with self.subTest(section=title):
                head = HEAD_OF_HEADERS if title in self.headers else HEAD
                self.assertEqual(table[:1], [head], f"{title}: the head of its table")
                self.assertTrue(table[1:], f"{title}: there is no row")
                for row in table:
                    self.assertTrue(len(row) == len(head) and all(row),
                                    f"{title}: too many cells, too few, or an empty one: {row}")

    def test_each_sentence_behind_good_to_know_has_its_row(self):
        for header, promised in self.headers.items():
            quoted = openings(self.sections.get(header, []))
            for name, sentence in promised:
                with self.subTest(header=header, name=name):
                    self.assertTrue(
                        any(name == of and sentence.startswith(words) for of, words in quoted),
                        f"docs/quirks: no row of {name} quotes how this begins: {sentence}")

    def test_each_row_quotes_its_header_in_order(self):
        for header, promised in self.headers.items():
            with self.subTest(header=header):
                left = iter(promised)
                for name, words in openings(self.sections.get(header, [])):
                    self.assertTrue(
                        any(name == of and sentence.startswith(words) for of, sentence in left),
                        f"docs/quirks: {header} does not say this of {name}, or not in this"
                        f" place: {words}")

    def test_each_row_names_tests_that_there_are(self):
        counts = existing_tests()
        for title, table in self.sections.items():
            for row in table[1:]:
                names = re.findall(r"`([^`]+)`", row[-1])
                with self.subTest(section=title, row=row[0]):
                    self.assertEqual(", ".join(f"`{name}`" for name in names), row[-1],
                                     f"not a list of tests: {row[-1]}")
                    for name in names:
                        self.assertEqual(counts[name], 1,
                                         f"{counts[name]} tests have the name {name}: {row}")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
