"""docs/messages.md has every text that the product writes, and no other.

Called with the folder of the sources.
"""

import pathlib
import sys
import tempfile
import unittest
from collections import Counter

from tests.tree import messages
from tests.tree.messages import Message

root = pathlib.Path(sys.argv[1])
DOCUMENT = "docs/messages.md"


class Document(unittest.TestCase):
    longMessage = False

    @classmethod
    def setUpClass(cls):
        cls.written = set(messages.written(root))
        cls.rows = list(messages.told((root / DOCUMENT).read_text(encoding="utf-8")))
        cls.told = {row.message for row in cls.rows}

    def test_has_each_message_of_the_sources(self):
        for message in self.written - self.told:
            with self.subTest(message=message):
                self.fail(f"{DOCUMENT} has no row for `{message.text}` | {message.to} |"
                          f" `{message.by}`")

    def test_has_no_message_that_the_sources_lack(self):
        for message in self.told - self.written:
            with self.subTest(message=message):
                self.fail(f"no source writes what {DOCUMENT} has: `{message.text}` | {message.to} |"
                          f" `{message.by}`")

    def test_has_each_message_once(self):
        twice = [message for message, count in Counter(row.message for row in self.rows).items()
                 if count > 1]
        self.assertEqual(twice, [], f"{DOCUMENT} has rows twice: {twice}")

    def test_tells_a_cause_and_what_to_do_in_whole_sentences(self):
        for row in self.rows:
            for cell in (row.cause, row.to_do):
                self.assertRegex(cell, r"^\S.*\.$", f"{DOCUMENT}: the row of `{row.message.text}`")

    def test_says_rightly_that_no_line_has_the_level_error(self):
        self.assertNotIn("Error", {message.to for message in self.written},
                         f"a line has the level Error: correct the top of {DOCUMENT}")


class Reader(unittest.TestCase):
    """What is found in a source."""

    longMessage = False

    def found_in(self, source):
        with tempfile.TemporaryDirectory() as folder:
            for name in messages.FOLDERS:
                pathlib.Path(folder, name).mkdir()
            pathlib.Path(folder, "log/log_line.h").write_text('constexpr char kPart[] = "part";\n',
                                                              encoding="utf-8")
            pathlib.Path(folder, "util/x.cpp").write_text(
                f"constexpr const char* kLogTag = log_tag::kPart;\n{source}", encoding="utf-8")
            return messages.written(folder)

    def check(self, statement, *expected):
        source = ('namespace {\nextern "C" {\n'
                  f"int Do(int n) {{\n  if (n) {{ {statement} }}\n}}\n}}}}")
        self.assertEqual(self.found_in(source), list(expected), statement)

    def test_a_log_line_with_its_level_source_and_function(self):
        self.check('LOG(LOG_WARNING, "no %s", Name("a", 1));',
                   Message("no %s", "Warning", "part Do"))
        self.check('PrintLog(LOG_DEBUG, "other", "f", 1, "text");',
                   Message("text", "Debug", "other Do"))

    def test_adjacent_literals_as_one(self):
        self.check('puts("one, "\n  "two\\n");', Message("one, two\\n", "output", "Do"))

    def test_what_is_no_literal_as_an_expression(self):
        self.check("LOG(LOG_INFO, FormatOf(command), n);",
                   Message("{FormatOf(command)}", "Info", "part Do"))
        self.check('printf("%" PRIu32 "\\n", n);', Message("%{PRIu32}\\n", "output", "Do"))

    def test_both_streams_and_both_descriptors(self):
        self.check('fprintf(stderr, "a"); fputs("b", stdout); dprintf(2, "c"); write(1, "d", 1);'
                   ' write(STDERR_FILENO, "e", 1); fwrite("f", 1, 1, stderr);',
                   *(Message(text, to, "Do") for text, to in zip(
                       "abcdef", ("error", "output", "error", "output", "error", "error"))))

    def test_an_error_with_its_text(self):
        self.check('perror("x"); perror(path);',
                   Message("x: %m", "error", "Do"), Message("{path}: %m", "error", "Do"))

    def test_commands(self):
        self.check('(void)system("date"); return systemEx(command);',
                   Message("date", "shell", "Do"), Message("{command}", "shell", "Do"))

    def test_in_the_value_of_a_macro(self):
        self.assertEqual(self.found_in('#define SAY(x) puts("say " x)\n'),
                         [Message("say {x}", "output", None)])

    def test_no_comment_no_declaration_and_no_text_in_memory(self):
        self.check('// puts("a")\n  /* puts("b") */ char c[9]; snprintf(c, 9, "d");')
        self.assertEqual(self.found_in("int printf(const char* format, ...);\n"), [])

    def test_an_unknown_stream_is_refused(self):
        with self.assertRaisesRegex(ValueError, r"util/x\.cpp: fputs\(.*NO_MESSAGES"):
            self.found_in('void Do(FILE* file) { fputs("text", file); }\n')


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
