"""The number in the head of a log line: that of the line in the sources that logs it."""

import os
import re
from pathlib import Path

from terminal import STAMP, TerminalTest, read
from tests.support import tool

ROOT = Path(__file__).parents[2]
HEAD = re.compile(rf"^\[orvatool:{STAMP}\] (\w+) \[(\w+) \w+ (\d+)\]: (.*)$", re.MULTILINE)
CALL = re.compile(r'LOG\(LOG_(\w+),\s+(?:"([^"%\\]*)|FormatOf\()')  # with the message's start


def sources_of(tag):
    """The lines of each source that logs under the tag."""
    name, = re.findall(rf'constexpr char (\w+)\[\] = "{tag}";', read(ROOT / "log/log_line.h"))
    for folder in "tool", "udisk", "util":
        for path in (ROOT / folder).rglob("*.cpp"):
            text = path.read_text(encoding="utf-8")
            if f"kLogTag = log_tag::{name};" in text:
                yield text.splitlines()


def is_logged_at(lines, number, level, message):
    """Whether a call stands on that very line that logs such a message.

    Of a call on two lines g++ counts the first, clang the last.
    """
    if not lines[number - 2].endswith(";") and "LOG(" in lines[number - 2]:
        number -= 1
    call = CALL.match("\n".join(lines[number - 1:number + 1]).lstrip())
    return (call is not None and call.group(1) == level.upper()
            and message.startswith(call.group(2) or ""))


class LineNumbers(TerminalTest):
    def test_are_those_of_the_calls(self):
        os.rmdir(tool.MOUNT_POINT)
        self.mount_results = "-1,0"
        self.run_tool("-d", "EIWD")
        heads = HEAD.findall(read(tool.OUTPUT_FILE))
        self.assertEqual({tag for _, tag, *_ in heads}, {"main", "udiskdetection", "fileutils"})
        for level, tag, number, message in heads:
            with self.subTest(tag=tag, number=number, message=message):
                self.assertTrue(any(is_logged_at(lines, int(number), level, message)
                                    for lines in sources_of(tag)))
