"""The head of a log line: what counts as one, and what keeps a line as it is."""

import unittest

from tests.support import tool

STAMP = "2024-03-05T14:07:09"


class Heads(unittest.TestCase):
    def test_is_shortened_to_level_file_and_function(self):
        line = f"[orvatool:{STAMP}] Info [main main 42]: text\n"
        for text in line, line + line, "before\n" + line:
            with self.subTest(text=text):
                expected = text.replace(line, tool.main_line("text"))
                self.assertEqual(tool.shortened(text), expected)
                self.assertEqual(tool.shortened(text, STAMP), expected)

    def test_of_another_moment_stays_where_the_moment_is_known(self):
        line = "[orvatool:2024-03-05T14:07:10] Info [main main 42]: text\n"
        self.assertEqual(tool.shortened(line, STAMP), line)

    def test_that_is_not_as_it_should_be_stays(self):
        for line in (f"[orvatool:{STAMP}] Info [main main 0]: text",
                     f"[orvatool:{STAMP}] Info [main main -1]: text",
                     f"[orvatool:{STAMP}] Info [main main 01]: text",
                     f"[orvatool:{STAMP}] Info [main main ]: text",
                     f"[orvatool:{STAMP}] Info [main 42]: text",
                     f"[orvatool:{STAMP}] Info [main main 42] text",
                     f"[orvatool:{STAMP}] Info [main main 42]:text",
                     f"[orvatool:{STAMP}]  Info [main main 42]: text",
                     f"[orvatool:{STAMP}] [main main 42]: text",
                     f"[other:{STAMP}] Info [main main 42]: text",
                     f"[:{STAMP}] Info [main main 42]: text",
                     "[orvatool:2024-3-05T14:07:09] Info [main main 42]: text",
                     "[orvatool:2024-03-05 14:07:09] Info [main main 42]: text",
                     "[orvatool:] Info [main main 42]: text",
                     f" [orvatool:{STAMP}] Info [main main 42]: text"):
            with self.subTest(line=line):
                self.assertEqual(tool.shortened(line), line)
