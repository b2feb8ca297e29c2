"""Reports what the tests of a build reached. Fails when that is not all of the shipped sources.

python3 -m tests.coverage BUILD: the programs of the build folder BUILD have run already.
"""

import sys
from pathlib import Path

from tests.coverage import gate
from tests.coverage.counts import FOLDERS, KINDS, Build

ROOT = Path(__file__).parents[2]


def lines_of(name):
    """The lines of a source file, none where there is no such file."""
    file = ROOT / name
    return file.read_text(encoding="utf-8").splitlines() if file.is_file() else []


def sources():
    """The text of each source file and header."""
    return {str(path.relative_to(ROOT)): path.read_text(encoding="utf-8") for folder in FOLDERS
            for path in (ROOT / folder).rglob("*") if path.suffix in (".cpp", ".h")}


def write_figures(counts, listed):
    """Prints the figures, and leaves them where the table of all figures is made from."""
    rows = [f"lines that none can reach\t{listed} (at most {gate.MOST})\n"]
    for kind in KINDS:
        reached = [count > 0 for goal, count in counts.items() if goal.kind == kind]
        rows.append(f"{kind} reached\t{sum(reached):,} of {len(reached):,}\n")
    print("".join(rows).expandtabs(30), end="")
    folder = ROOT / "build/figures"
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "coverage.tsv").write_text("".join(rows), encoding="utf-8")


def main(folder):
    """Returns the exit status."""
    build = Build(folder, ROOT)
    build.write_report()
    counts = build.counts()
    missed = sorted(goal for goal, count in counts.items() if count == 0)
    document = (ROOT / "docs/coverage.md").read_text(encoding="utf-8")
    counted = {goal.file for goal in counts}
    found = [f"{name}: nothing of it was counted" for name in gate.uncounted(sources(), counted)]
    listed = gate.entries(document)
    found += gate.complaints(missed, listed, lines_of)
    write_figures(counts, len(listed))
    print(f"report: {folder}/report.txt, {folder}/html/index.html")
    for complaint in found:
        print(f"script/coverage: {complaint}", file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: python3 -m tests.coverage BUILD")
    sys.exit(main(Path(sys.argv[1]).resolve()))
