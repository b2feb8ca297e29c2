"""docs/technician.md quotes lines that tests expect, and names rows of the fault catalogue.

That those rows write these lines is checked where they run: board/tests/support/faults.py. Called
with the folder of the sources.
"""

import pathlib
import re
import sys
import unittest

from tests.pages import technician
from tests.support import tool

root = pathlib.Path(sys.argv[1])
SERIAL = "4711-0815"
ROW = re.compile(r"\| `([\w/]+)` `(test_\w+)` \|")

# What the tests of this machine and of the terminal put their expectations together from.
EXPECTED = {f"{line}\n" for line in "".join((
    tool.started(SERIAL), tool.NO_STICK, tool.RELEASED_NOTHING, tool.NOTHING_MOUNTED,
    tool.refused("sda"), tool.refused("sda1"), tool.mounted("sda", 1), tool.mounted("sda1", 1),
    tool.exported(SERIAL, tool.NO_SUCH_FILE))).splitlines()}


class Page(unittest.TestCase):
    longMessage = False

    def setUp(self):
        self.sections = list(technician.sections())

    def test_each_quoted_line_is_one_that_tests_expect(self):
        quoted = [line for lines, _ in self.sections for line in lines]
        self.assertTrue(quoted, "docs/technician.md quotes no line")
        for line in quoted:
            with self.subTest(line=line):
                self.assertIn(line, EXPECTED, f"not a line of tests/support/tool.py: {line}")

    def test_each_line_of_an_example_is_read(self):
        text = technician.DOCUMENT.read_text(encoding="utf-8")
        self.assertEqual(len(technician.LINE.findall(text)), text.count("    [orvatool:"),
                         "a line does not read [orvatool:TIME] LEVEL [FILE FUNCTION N]: MESSAGE")

    def test_each_section_with_lines_names_tests_of_the_terminal(self):
        for lines, tests in self.sections:
            if lines:
                with self.subTest(lines=lines):
                    self.assertTrue(tests, f"no test is named that shows {lines}")
                    self.assertEqual([file for file, _ in tests
                                      if not file.startswith("board/tests/")], [],
                                     "nothing there compares what is quoted")

    def test_the_tests_that_show_lines_are_rows_of_the_fault_catalogue(self):
        rows = set(ROW.findall((root / "docs/faults.md").read_text(encoding="utf-8")))
        for lines, tests in self.sections:
            for each in tests if lines else ():
                with self.subTest(test=each):
                    self.assertIn(each, rows, f"no row of docs/faults.md: {each}")

    def test_each_named_test_is_there(self):
        for _, tests in self.sections:
            for file, test in tests:
                with self.subTest(file=file, test=test):
                    self.assertRegex((root / f"{file}.py").read_text(encoding="utf-8"),
                                     rf"\n    def {test}\(self\)")

    def test_what_is_said_of_runs_without_levels_names_tests(self):
        text = technician.DOCUMENT.read_text(encoding="utf-8")
        quiet = text.partition("## Without `-d`\n")[2].partition("\n## ")[0]
        self.assertIn("`board/tests/quiet_test` `test_", quiet)


class Picture(unittest.TestCase):
    """The texts of the log in the picture are those of the page."""

    def test_names_lines_of_the_page(self):
        text = technician.DOCUMENT.read_text(encoding="utf-8")
        labels = re.findall(r'last -> \w+ \[label=" ([^"]+)"\]',
                            (root / "docs/technician.dot").read_text(encoding="utf-8"))
        self.assertEqual(len(labels), 4)
        for label in labels:
            with self.subTest(label=label):
                self.assertRegex(text, r"N\]: " + re.escape(label).replace(r"\.\.\.", ".*"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
