"""python3 -m bench.report               measures everything and writes the page
python3 -m bench.report ROW-REGEX     times of some rows, nothing written
python3 -m bench.report arm [REGEX]   instructions on ARM, nothing written"""

import sys
from pathlib import Path

from bench.report import measure, page, plot, rows
from bench.report.texts import duration, number

PAGE = Path("docs/performance.md")
PLOT = Path("docs/performance.svg")
INPUTS = 1024


def show_times(found):
    """Prints ours beside each peer."""
    for row in (row for row in found.values() if row.ours):
        print(f"{row.name}: {duration(row.ours)}, {row.standing()}")
        ways = dict(sorted(row.peers.items(), key=lambda peer: peer[1]))
        for way, time_ns in {**ways, "(floor)": row.floor, "(limit)": row.shown_limit()}.items():
            if time_ns:
                print(f"    {way:45} {duration(time_ns):>10} {number(row.ours / time_ns):>8}")


def show_counts(found):
    """Prints instructions now and before."""
    for row in (row for row in found.values() if row.arm is not None):
        peer = f"  {number(row.arm / row.arm_peer)} of {row.arm_peer_name}" if row.arm_peer else ""
        print(f"{row.name:20} {number(row.arm):>10}  before {number(row.arm_before):>10}"
              f"  goal {number(row.arm_goal()):>10}{peer}")


def show_gaps(found):
    """Prints what rows.ini and the programs do not agree on, and which rows lack a reason."""
    rows_without = {
        "not timed": [row for row in found if row.ours is None],
        "not counted on ARM": [row for row in found if row.arm_before and row.arm is None],
        "falls short, and rows.ini gives no remark": [
            row for row in found
            if row.ours and row.standing() == rows.SHORT and not (row.remark or row.bound)],
    }
    for gap, gap_rows in rows_without.items():
        if gap_rows:
            print(f"{gap}: {' '.join(row.name for row in gap_rows)}")


def main(words):
    """Measures what the words ask for."""
    found = rows.load()
    if words[:1] == ["arm"]:
        measure.counts(found, *words[1:])
        show_counts(found)
        return
    measure.times(found, *words)
    show_times(found)
    if words:
        return
    measure.counts(found)
    show_counts(found)
    show_gaps(found.values())
    page.write(PAGE, found.values(), measure.REPETITIONS, INPUTS)
    plot.write(PLOT, found.values())
    print(f"written: {PAGE}, {PLOT}")


main(sys.argv[1:])
