"""What headers and documents say that the sources say too.

Called with the folder of the sources.
"""

import pathlib
import re
import sys
import unittest

from tests.support import exports_list

root = pathlib.Path(sys.argv[1])

LAYOUT_ROW = re.compile(r"^ +\{(\d), (\d), (\d), '(.)'\}, +// (\d)  (\S+)$", re.MULTILINE)
LAYOUT_IN_HEADER = re.compile(r"(?<= )(\d) ([YMD]{2,4}.[YMD]{2}.[YMD]{2,4})\b")

exports = exports_list.sections(root / "tool/exports.list")


def read(name):
    return (root / name).read_text(encoding="utf-8")


class Headers(unittest.TestCase):
    longMessage = False

    def test_each_export_is_declared_with_a_comment_in_the_header_that_the_list_names(self):
        for header, names in exports.items():
            text = read(header)
            for name in names:
                with self.subTest(name=name):
                    self.assertRegex(text,
                                     rf"\*/\n(?:[^\n/;{{}}#]+\n)*[^\n/;{{}}#]*\b{name}(\(|\[|;)",
                                     f"{name}: declare it in {header} with its comment directly"
                                     f" above, or move it below its own header in"
                                     f" tool/exports.list")


class Layouts(unittest.TestCase):
    def setUp(self):
        self.rows = LAYOUT_ROW.findall(read("util/timeutils/texts/date_text.cpp"))
        self.assertEqual(len(self.rows), 10)

    def pattern(self, row):
        """The layout of a row as letters, as in YY-MM-DD."""
        year, month, day, separator = row[:4]
        fields = {int(year): "YYYY" if month == "5" else "YY", int(month): "MM", int(day): "DD"}
        return separator.join(fields[position] for position in sorted(fields))

    def test_each_row_has_its_code_and_an_example(self):
        for code, row in enumerate(self.rows):
            example = (self.pattern(row).replace("YYYY", "2024").replace("YY", "24")
                       .replace("MM", "05").replace("DD", "07"))
            self.assertEqual((row[4], row[5]), (str(code), example),
                             "the comment of a row of kLayouts")

    def test_the_public_header_lists_the_same(self):
        listed = LAYOUT_IN_HEADER.findall(read("util/timeutils.h"))
        self.assertEqual(listed, [(row[4], self.pattern(row)) for row in self.rows],
                         "the table of layouts at the top of util/timeutils.h")


class Manual(unittest.TestCase):
    longMessage = False

    def test_names_the_file_of_a_terminal_without_serial_number(self):
        name, = re.findall(r'kUnknownSerial\[\] = "([^"]*)"', read("tool/main.cpp"))
        for document in ("docs/orvatool.8", "CHANGELOG.md"):
            self.assertIn(name + ".log", read(document),
                          f"{document} does not name the file {name}.log")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
