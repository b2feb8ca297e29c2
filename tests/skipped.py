"""The tests that a run of CTest has skipped, each with its reason: what is not seen is not held.

    python3 -B -m tests.skipped TARGET BUILD          a line for each: target, program, test, reason
    python3 -B -m tests.skipped TARGET PROGRAM LOG    the same of one program, from what it printed
    python3 -B -m tests.skipped FILE                  their count and names, from the file of such
                                                      lines

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
GOOGLE = re.compile(r"^\S[^\n]*:\d+: Skipped\n(.*?)\n+\[  SKIPPED \] (\S+) \(\d+ ms\)$",
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


def of_program(program, output):
    """(program, test, reason) of what one program printed."""
    found = list(skipped_in(output))
    named = sum(test != ALL for test, _ in found)
    if named != count_in(output):
        raise Hidden(f"{program} skipped {count_in(output)} tests and names {named}")
    return [(program, *each) for each in found]


def of_run(log, summary):
    """(program, test, reason) of a run, from CTest's log and from what it printed."""
    whole = set(WHOLE_COUNT.findall(summary))
    named_whole = set()
    for program, output in PROGRAM.findall(log):
        found = of_program(program, output)
        named_whole.update(name for name, test, _ in found if test == ALL)
        yield from found
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


def read(path):
    """The text of a file; programs print whatever they like."""
    return path.read_text(encoding="utf-8", errors="replace")


def main(target, *words):
    """Returns the exit status."""
    if not words:
        lines = read(Path(target)).splitlines()
        print(told([line.split("\t") for line in lines]), end="")
        return 0
    try:
        if len(words) == 2:
            program, log = words
            found = of_program(program, read(Path(log)))
        else:
            build = Path(*words)
            found = of_run(read(build / "Testing/Temporary/LastTest.log"),
                           read(build / "tests.txt"))
        for entry in found:
            print(target, *entry, sep="\t")
    except Hidden as fault:
        print(f"tests.skipped: {target}: {fault}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
