"""The table in docs/integrating.md has a row for each function, in the order of the headers.

Called with the folder of the sources.
"""

import pathlib
import re
import sys
import unittest

from tests.pages import integrating
from tests.support import exports_list

root = pathlib.Path(sys.argv[1])
NO_DECLARATION = re.compile(r"/\*.*?\*/|^#.*?$", re.MULTILINE | re.DOTALL)
FUNCTION = re.compile(r"^\w[\w ]*[ *](\w+)\(", re.MULTILINE)


def read(name):
    return (root / name).read_text(encoding="utf-8")


class Table(unittest.TestCase):
    longMessage = False

    def test_has_the_exported_functions_and_those_of_the_log(self):
        exported = exports_list.names(root / "tool/exports.list")
        log = FUNCTION.findall(NO_DECLARATION.sub("", read("log/log.h")))
        self.assertEqual(log[0], exported[0], "the first function of both")
        expected = log + [name for name in exported[1:] if name not in exports_list.DATA_TYPES]
        self.assertEqual(list(integrating.rows(read("docs/integrating.md"))), expected,
                         "docs/integrating.md: a row for each function of log/log.h, then for each"
                         " other one of tool/exports.list, in that order")

    def test_leaves_no_cell_empty(self):
        for name, cells in integrating.rows(read("docs/integrating.md")).items():
            with self.subTest(function=name):
                self.assertEqual([column for column in integrating.COLUMNS
                                  if not cells.get(column)], [])

    def test_the_page_tells_of_each_data_object(self):
        text = read("docs/integrating.md").rpartition("The four data objects:")[2]
        for name in exports_list.DATA_TYPES:
            with self.subTest(object=name):
                self.assertIn(f"`{name}`", text, f"docs/integrating.md does not tell of {name}")


class Threads(unittest.TestCase):
    longMessage = False

    def test_several_may_call_what_several_call_in_the_test_of_threads(self):
        called = set(re.findall(r"\b(\w+)\(", read("tests/threads/threads_test.cpp")))
        called -= set(exports_list.names(root / "log/library.list"))  # before the others start
        table = integrating.rows(read("docs/integrating.md"))
        self.assertTrue(called & set(table), "tests/threads calls no function of the table")
        for name in called & set(table):
            with self.subTest(function=name):
                self.assertIn(table[name]["threads"], ("yes", "zone", "log off"),
                              f"{name}: tests/threads calls it on several threads")


class Words(unittest.TestCase):
    """What stands in the cells is explained above the table."""

    def test_are_explained(self):
        text = read("docs/integrating.md")
        for name, cells in integrating.rows(text).items():
            for column in ("threads", "signals", "fork", "errno", "waits"):
                with self.subTest(function=name, column=column):
                    self.assertRegex(text, rf"\*{re.escape(cells[column])}\*")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
