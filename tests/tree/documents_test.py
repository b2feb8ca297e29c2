"""What headers and documents say that the sources say too.

Called with the folder of the sources.
"""

import pathlib
import re
import sys
import unittest

from tests.support import exports_list

root = pathlib.Path(sys.argv[1])

LAYOUT_ROW = re.compile(r"^ +\{(\d), (\d), (\d), '(.)'\}, +// (\d)  (\S.*)$", re.MULTILINE)
LAYOUT_IN_HEADER = re.compile(r"(?<= )(\d) ([YMD]{2,4}.[YMD]{2}.[YMD]{2,4})\b")

VISIBLE = re.compile(r"^#pragma GCC visibility push\(default\)$(.*?)^#pragma GCC visibility pop$",
                     re.MULTILINE | re.DOTALL)
# What is no declaration of a name: comments, directives, the bodies of records and lists.
NO_DECLARATION = re.compile(r'/\*.*?\*/|^#.*?$|^extern "C" \{$|\{[^{}]*\}|'
                            r'^ORVAUTIL_EXPECT_SIZE\(.*?$',
                            re.MULTILINE | re.DOTALL)
FUNCTION = re.compile(r"^[\w\s*]*?(\w+)\s*\(")
DATA_OBJECT = re.compile(r"^\s*extern\b[\w\s*]*?(\w+)\s*(?:\[|$)")

exports = exports_list.sections(root / "tool/exports.list")
log_names = exports_list.names(root / "log/library.list")


def read(name):
    return (root / name).read_text(encoding="utf-8")


def declared(text):
    """The functions and data objects that a piece of a header declares, in their order."""
    statements = NO_DECLARATION.sub("", text).split(";")
    heads = [FUNCTION.match(each) or DATA_OBJECT.match(each) for each in statements]
    return [head.group(1) for head in heads if head]


class Headers(unittest.TestCase):
    """A name that other programs find is declared, described, visible and listed."""

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

    def test_each_export_is_declared_where_it_is_visible(self):
        for header, names in exports.items():
            outside = declared(VISIBLE.sub("", read(header)))
            for name in names:
                with self.subTest(name=name):
                    self.assertNotIn(name, outside,
                                     f"{name}: declare it in {header} before #pragma GCC"
                                     f" visibility pop")

    def test_each_visible_name_is_listed(self):
        for header, names in exports.items():
            visible = declared("".join(VISIBLE.findall(read(header))))
            names = names + log_names if header == "log/log.h" else names
            self.assertTrue(visible, f"{header} declares nothing that is visible")
            for name in visible:
                with self.subTest(name=name):
                    self.assertIn(name, names,
                                  f"{name}: list it in tool/exports.list, below {header}")

    def test_headers_of_the_library_declare_nothing_else(self):
        for header in exports:
            for name in declared(VISIBLE.sub("", read(header))):
                self.fail(f"{name}: {header} is public and declares it outside the visible region;"
                          f" move it before #pragma GCC visibility pop and list it in"
                          f" tool/exports.list, or into a private header")


class Layouts(unittest.TestCase):
    def setUp(self):
        self.rows = LAYOUT_ROW.findall(read("util/timeutils/texts/date_text.cpp"))
        self.assertEqual(len(self.rows), 10,
                         "a row of kLayouts does not read"
                         " `{year, month, day, 'separator'},  // code  example`")

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
            with self.subTest(document=document):
                self.assertRegex(read(document), rf"(?<![\w-]){re.escape(name)}\.log",
                                 f"{document} does not name the file {name}.log")


class Security(unittest.TestCase):
    """What SECURITY.md says is tried: each sentence of an item names the tests that show it."""

    longMessage = False

    ITEM = re.compile(r"^- (.*(?:\n  .*)*)\n", re.MULTILINE)
    SENTENCE_END = re.compile(r"(?<=\.)\s+")
    NAMES = re.compile(r"`(test_\w+|[A-Z]\w+\.[A-Z]\w+)`")
    CPP_TEST = re.compile(r"^TEST(?:_F|_P)?\((\w+), (\w+)\)", re.MULTILINE)
    PYTHON_TEST = re.compile(r"^    def (test_\w+)\(self\)", re.MULTILINE)
    LIBRARY = "\n## The library's callers\n"
    # What stands outside items, where nothing is said that can be tried.
    UNTRIED = (
        "The tool runs as root on a terminal.",
        "It meets four things that others write or hold: the option store, the RAM disk, the stick"
        " and its caller's environment.",
        "Each sentence of the items below names what shows it: rows of the fault catalogue,"
        " `docs/faults.md`, or, of library and build, tests.",
        "The public headers say which function trusts what.",
        "Report a weakness to the maintainers of the terminal's firmware in confidence, not in a"
        " public place.",
    )

    def sentences(self, text):
        """The sentences of a text, each on one line."""
        return self.SENTENCE_END.split(" ".join(text.split()))

    def check_items(self, text, known, place):
        """Each sentence of the items names something, and only what is known in that place."""
        items = self.ITEM.findall(text)
        self.assertTrue(items, "a part of SECURITY.md has no items")
        for sentence in (each for item in items for each in self.sentences(item)):
            with self.subTest(sentence=sentence):
                named = set(self.NAMES.findall(sentence))
                self.assertTrue(named, f"no test is named: {sentence}")
                self.assertLessEqual(named, known, f"not in {place}: {named - known}")

    def test_each_sentence_about_the_tool_names_rows_of_the_fault_catalogue(self):
        rows = set(re.findall(r"`(test_\w+)` \|", read("docs/faults.md")))
        text = read("SECURITY.md").partition(self.LIBRARY)[0]
        for part in text.split("\n## ")[1:]:
            self.check_items(part, rows, "docs/faults.md")

    def test_each_sentence_about_the_library_names_its_tests(self):
        tests = set()
        for file in (*root.glob("tests/**/*_test.*"), *root.glob("board/tests/*_test.py")):
            text = file.read_text(encoding="utf-8")
            tests.update(".".join(names) for names in self.CPP_TEST.findall(text))
            tests.update(self.PYTHON_TEST.findall(text))
        self.check_items(read("SECURITY.md").partition(self.LIBRARY)[2], tests, "the tests")

    def test_nothing_else_is_said_that_could_be_tried(self):
        text = re.sub(r"^#+ .*$", "", self.ITEM.sub("", read("SECURITY.md")), flags=re.MULTILINE)
        self.assertEqual(self.sentences(text.strip()), list(self.UNTRIED),
                         "SECURITY.md: make an item of it that names what shows it, or add it to"
                         " UNTRIED")


class Counts(unittest.TestCase):
    longMessage = False

    def test_of_functions_and_data_objects_are_those_of_the_list(self):
        names = exports_list.names(root / "tool/exports.list")
        objects = [name for name in names if name in exports_list.DATA_TYPES]
        listed = (str(len(names) - len(objects)), str(len(objects)))
        for document in ("README.md", "CHANGELOG.md", "docs/architecture.dot"):
            with self.subTest(document=document):
                told = re.findall(r"(\d+) (?:C )?functions(?:\s+and|,)\s+(\d+) data objects",
                                  read(document))
                self.assertEqual(told, [listed],
                                 f"{document}: tool/exports.list names {listed[0]} functions and"
                                 f" {listed[1]} data objects")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
