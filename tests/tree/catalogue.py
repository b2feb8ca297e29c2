"""The fault catalogue: docs/faults.md lists each test that is marked as a row, in order.

    python3 -B -m tests.tree.catalogue          says what differs
    python3 -B -m tests.tree.catalogue write    writes the tables anew
"""

import ast
import pathlib
import re
import sys
from collections import defaultdict

from tests.support.faults import PROMISES

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCUMENT = ROOT / "docs/faults.md"
FOLDERS = ("board/tests", "tests/process")
HEAD = "| what goes wrong | test | promises |\n|---|---|---|\n"
# A section, what is said about it, its table, and the blank line behind that.
SECTION = re.compile(rf"(?<=^## )(.+?)$(.*?){re.escape(HEAD)}((?:\|[^\n]*\n)*)\n*",
                     re.MULTILINE | re.DOTALL)


def cell(text):
    """A text as a cell of a table."""
    return text.replace("|", "\\|")


def promises(exceptions):
    """The last cell of a row."""
    if not exceptions:
        return "all"
    return "all but " + "; ".join(f"{name}: {exceptions[name]}"
                                  for name in PROMISES if name in exceptions)


def rows(file):
    """(section, line of the table) for each test of a file that is marked."""
    for function in ast.walk(ast.parse(file.read_text(encoding="utf-8"))):
        if not isinstance(function, ast.FunctionDef):
            continue
        for mark in function.decorator_list:
            if isinstance(mark, ast.Call) and getattr(mark.func, "id", "") == "fault":
                section, what = map(ast.literal_eval, mark.args)
                exceptions = {each.arg: ast.literal_eval(each.value) for each in mark.keywords}
                test = f"`{file.parent.relative_to(ROOT)}/{file.stem}` `{function.name}`"
                yield section, (f"| {cell(what)} | {test} | {cell(promises(exceptions))} |\n")


def tables():
    """The table of each section."""
    found = defaultdict(str)
    for folder in FOLDERS:
        for file in sorted((ROOT / folder).glob("*_test.py")):
            for section, line in rows(file):
                found[section] += line
    return found


def sections(text):
    """The sections of the document that have a table."""
    return {found[1] for found in SECTION.finditer(text)}


def rewritten(text, expected):
    """The document with these tables, each with a blank line behind it."""
    def section(found):
        return f"{found[1]}{found[2]}{HEAD}{expected.get(found[1], '')}\n"
    return SECTION.sub(section, text).rstrip("\n") + "\n"



def main(word=None):
    """Returns the exit status."""
    expected = tables()
    text = DOCUMENT.read_text(encoding="utf-8")
    if word == "write":
        text = rewritten(text, expected)
        DOCUMENT.write_text(text, encoding="utf-8")
    if text != rewritten(text, expected) or sections(text) != set(expected):
        print("docs/faults.md is not what the tests are marked with:"
              " python3 -B -m tests.tree.catalogue write", file=sys.stderr)
        for section in sorted(set(expected) ^ sections(text)):
            print(f"section only in one of them, or empty: {section}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
