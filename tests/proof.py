"""docs/proof.md: the figures of the last complete run, of every command that proves something.

    python3 -B -m tests.proof SECONDS     writes the page; the run took this long
"""

import datetime
import os
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).parents[1]
FIGURES = ROOT / "build/figures"
DOCUMENT = ROOT / "docs/proof.md"
# The files of figures in the order of the page, and the command that leaves each of them.
COMMANDS = {
    "test": "script/test",
    "board_1": "script/test",
    "board_2": "script/test",
    "power_cut": "script/board power_cut",
    "pulled": "script/board long",
    "runs_in_a_row": "script/board long",
    "inject": "script/inject",
    "coverage": "script/coverage",
    "mutate": "script/mutate 60 1",
    "vectors": "script/vectors replay",
    "sweep": "script/sweep",
    "fuzz": "script/fuzz all 30",
    "abi": "script/abi",
    "analyse": "script/analyse",
    "sanitize": "script/sanitize",
    "package": "script/package",
    "reproduce": "script/reproduce",
    "sysroot": "script/sysroot",
    "musl": "script/musl",
}
# What each of these figures, in its command's unit, may be at most.
BOUNDS = {
    ("script/test", "both terminals, seconds that the rows took"): 180,
    ("script/board power_cut", "torn sticks, seconds"): 60,
    ("script/mutate 60 1", "wall time"): 216,  # seconds: 1,000 faults in an hour
}
# Figures that are there only where their tests ran: (command, label).
DEMANDED = (("script/musl", "musl, process tests"),
            ("script/package", "packages, tests in a fresh root"))
PAGE = """# Proof

`script/test all` runs every proof there is and writes this page. Each command can be run alone, and
ends the whole where it finds a fault: what stands here has found none.
The page is of {date}, commit {commit}, {processors} processors, {minutes} minutes in all.

| command | what | figure |
|---|---|---|
{rows}
"""


def figures(name):
    """(label, figure) of a command's file."""
    text = (FIGURES / f"{name}.tsv").read_text(encoding="utf-8")
    return [line.split("\t") for line in text.splitlines()]


def missing():
    """What keeps the page from being whole: commands without figures, files of no command."""
    found = {file.stem for file in FIGURES.glob("*.tsv")}
    yield from (f"{COMMANDS[name]} left no figures in build/figures/{name}.tsv"
                for name in COMMANDS if name not in found or not figures(name))
    yield from (f"build/figures/{name}.tsv: name its command in tests/proof.py"
                for name in sorted(found - set(COMMANDS)))


def number(figure):
    """The number that a figure begins with."""
    return float(figure.split()[0].replace(",", ""))


def table():
    """The figure of each command and label. Figures that several files have are added up."""
    found = {}
    for name, command in COMMANDS.items():
        for label, figure in figures(name):
            if before := found.get((command, label)):
                figure = f"{number(before) + number(figure):,.0f}"
            found[command, label] = figure
    return found


def exceeded(found):
    """The figures that are beyond their bounds, or not there."""
    for command, label in (*BOUNDS, *DEMANDED):
        if (command, label) not in found:
            yield f"{command} left no figure named: {label}"
    for (command, label), bound in BOUNDS.items():
        figure = found.get((command, label))
        if figure and number(figure) > bound:
            yield f"{command}, {label}: {figure}, where {bound} is the bound"


def commit():
    """The name of what is checked out; sources that are no repository have none."""
    run = subprocess.run(["git", "rev-parse", "--short", "HEAD"], cwd=ROOT, check=False,
                         capture_output=True, text=True)
    return run.stdout.strip() or "unknown"


def page(found, seconds):
    """The text of the page."""
    rows = [f"| `{command}` | {label} | {figure} |"
            for (command, label), figure in found.items()]
    return PAGE.format(date=datetime.date.today(), commit=commit(), processors=os.cpu_count(),
                       minutes=round(int(seconds) / 60), rows="\n".join(rows))


def main(seconds):
    """Returns the exit status."""
    if faults := list(missing()):
        print("\n".join(faults), file=sys.stderr)
        return 1
    found = table()
    DOCUMENT.write_text(page(found, seconds), encoding="utf-8")
    print(DOCUMENT.read_text(encoding="utf-8"), end="")
    if faults := list(exceeded(found)):
        print("\n".join(faults), file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
