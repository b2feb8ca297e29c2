"""What llvm-cov counted, as data."""

import json
import subprocess
from typing import NamedTuple

# The shipped sources: these folders and nothing else.
FOLDERS = ("log", "splash", "tool", "udisk", "util")
KINDS = ("lines", "branches", "MC/DC conditions")
LINES, BRANCHES, CONDITIONS = KINDS

# Positions in llvm-cov's lists.
PLACE = slice(0, 4)  # from line and column to line and column
TAKEN, NOT_TAKEN = 4, 5
DECIDES = -1  # for each condition, whether it has been seen to decide alone


class Goal(NamedTuple):
    """Something that a test should reach."""
    kind: str
    file: str
    place: tuple  # the line first
    what: str  # what is wrong when none does


def line_counts(lcov):
    """(goal, count) for each line of a report of the form lcov."""
    file = None
    for row in lcov.splitlines():
        key, _, rest = row.partition(":")
        if key == "SF":
            file = rest
        elif key == "DA":
            line, count = map(int, rest.split(",")[:2])
            yield Goal(LINES, file, (line,), "never runs"), count


def decision_counts(files):
    """(goal, count) for each branch and condition of an export, for a template several times."""
    for file in files:
        name = file["filename"]
        for branch in file["branches"]:
            place = tuple(branch[PLACE])
            yield Goal(BRANCHES, name, place, "is never true"), branch[TAKEN]
            yield Goal(BRANCHES, name, place, "is never false"), branch[NOT_TAKEN]
        for decision in file["mcdc_records"]:
            for number, decides in enumerate(decision[DECIDES], start=1):
                yield (Goal(CONDITIONS, name, tuple(decision[PLACE]),
                            f"condition {number} never decides alone"), int(decides))


def summed(counts):
    """The count of each goal, a template's for all its arguments together."""
    totals = {}
    for goal, count in counts:
        totals[goal] = totals.get(goal, 0) + count
    return totals


class Build:
    """A build whose programs have run."""

    def __init__(self, folder, root):
        self.folder = folder
        self.root = root
        profiles = [str(path) for path in (folder / "profiles").glob("*.profraw")]
        self.run("llvm-profdata-19", "merge", "-o", folder / "profile", *profiles)

    def run(self, *command):
        """What the command prints; it must not fail.

        Its warnings go into a file: what day_number.h has inline has no counts in the tool, and
        llvm-cov says so each time.
        """
        with open(self.folder / "warnings.txt", "a", encoding="utf-8") as warnings:
            return subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=warnings,
                                  text=True).stdout

    def llvm_cov(self, *command):
        """What llvm-cov says of the shipped sources."""
        programs = self.folder / "bin"
        return self.run("llvm-cov-19", *command, "-instr-profile", self.folder / "profile",
                        programs / "orvatool", "-object", programs / "calendars_test",
                        *(self.root / folder for folder in FOLDERS))

    def counts(self):
        """The count of each goal; files are named from the root on."""
        export, = json.loads(self.llvm_cov("export"))["data"]
        lcov = self.llvm_cov("export", "-format=lcov")
        found = summed([*line_counts(lcov), *decision_counts(export["files"])])
        return {goal._replace(file=goal.file.removeprefix(f"{self.root}/")): count
                for goal, count in found.items()}

    def write_report(self):
        """The table as text, the sources with their counts as HTML."""
        table = self.llvm_cov("report", "-show-mcdc-summary", "-show-region-summary=false")
        (self.folder / "report.txt").write_text(table, encoding="utf-8")
        self.llvm_cov("show", "-format=html", f"-output-dir={self.folder}/html",
                      "-show-branches=count", "-show-mcdc")
