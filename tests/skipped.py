"""The tests that a run of CTest has skipped, each with its reason: what is not seen is not held.

    python3 -B -m tests.skipped TARGET BUILD    a line for each: target, program, test, reason
    python3 -B -m tests.skipped FILE            their count and names, from the file of such lines

Three kinds of tests are skipped, and each says so in its own way: single tests of Python's unittest
(which has to be verbose for that) and of GoogleTest, and whole programs, which print "skipped: "
and the reason. A program that skips more than it names hides something, and fails the run.
"""

import ast
import re
import sys
from collections import defaultdict
from pathlib import Path

PROGRAM = re.compile(r"^\d+/\d+ Test: (\S+)\n(.*?)^<end of output>$", re.MULTILINE | re.DOTALL)
WHOLE = re.compile(r"^skipped: (.*)$", re.MULTILINE)
WHOLE_COUNT = re.compile(r"^ *\d+/\d+ +Test +#\d+: (\S+) \.*\*\*\*(?:Skipped|Not Run) ",
                         re.MULTILINE)
PYTHON = re.compile(r"^ *\w+ \((\S+)\)(?: [\[(].*)?"     # with the words of a subtest
                    r"(?:\n(?! *\w+ \(\S+\)).+)?"        # and the first line of its comment
                    r" \.\.\. skipped (['\"].*['\"])$", re.MULTILINE)
PYTHON_COUNT = re.compile(r"^(?:OK|FAILED) \(.*skipped=(\d+)", re.MULTILINE)
GOOGLE = re.compile(r"^\S.*:\d+: Skipped\n(.*?)\n+\[  SKIPPED \] (\S+) \(\d+ ms\)$",
                    re.MULTILINE | re.DOTALL)
GOOGLE_COUNT = re.compile(r"^\[  SKIPPED \] (\d+) tests?, listed below:$", re.MULTILINE)
ALL = "all of it"


class Hidden(Exception):
    """A program has skipped more than it names."""


def skipped_in(output):
    """(test, reason) of what a program's output names."""
    yield from ((ALL, reason) for reason in WHOLE.findall(output))
    for identity, reason in PYTHON.findall(output):
        yield ".".join(identity.split(".")[-2:]), ast.literal_eval(reason)
    for reason, name in GOOGLE.findall(output):
        yield name, " ".join(reason.split())


def count_in(output):
    """How many tests the program itself counted."""
    return sum(map(int, PYTHON_COUNT.findall(output) + GOOGLE_COUNT.findall(output)))


def of_run(log, summary):
    """(program, test, reason) of a run, from CTest's log and from what it printed."""
    whole = set(WHOLE_COUNT.findall(summary))
    named_whole = set()
    for program, output in PROGRAM.findall(log):
        found = list(skipped_in(output))
        single = [each for each in found if each[0] != ALL]
        if len(single) != count_in(output):
            raise Hidden(f"{program} skipped {count_in(output)} tests and names {len(single)}")
        if len(found) > len(single):
            named_whole.add(program)
        yield from ((program, *each) for each in found)
    if whole != named_whole:
        raise Hidden(f"skipped as a whole: {sorted(whole)}, with a reason: {sorted(named_whole)}")


def told(lines):
    """The count of the skipped, and their names by reason."""
    if not lines:
        return "Nothing was skipped.\n"
    groups = defaultdict(list)
    for target, program, test, reason in lines:
        groups[target, program, reason].append(test)
    return f"Skipped: {len(lines)}\n" + "".join(
        f"    {target} {program}: {reason}: {', '.join(tests)}\n"
        for (target, program, reason), tests in groups.items())


def main(target, build=None):
    """Returns the exit status."""
    if build is None:
        lines = Path(target).read_text(encoding="utf-8").splitlines()
        print(told([line.split("\t") for line in lines]), end="")
        return 0
    log, summary = (Path(build, name).read_text(encoding="utf-8", errors="replace")
                    for name in ("Testing/Temporary/LastTest.log", "tests.txt"))
    try:
        for entry in of_run(log, summary):
            print(target, *entry, sep="\t")
    except Hidden as fault:
        print(f"tests.skipped: {target}: {fault}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
