"""The plot: on the left times beside the best peer, on the right instructions on ARM."""

import math
from html import escape

from bench.report.rows import FLOOR, LEADS, LEVEL, SHORT, WANTED
from bench.report.texts import number

COLOURS = {LEADS: "#1b7f4b", LEVEL: "#6aa84f", WANTED: "#3c78d8", FLOOR: "#8e7cc3",
           SHORT: "#cc4125"}
ROW_HEIGHT = 20
TOP = 84
LABELS = 330    # width of the functions' names
PANEL = 430     # width of each panel
GAP = 70
WIDTH = LABELS + PANEL + GAP + PANEL + 70


def axis_number(tick):
    """A tick's number: 0.05, 1, 20, 100,000, 1 million."""
    if tick >= 1e6:
        return f"{tick / 1e6:g} million"
    return f"{tick:g}" if tick < 10 else f"{tick:,.0f}"


class Axis:
    """A logarithmic axis in one panel; what lies beyond an end is drawn at it."""

    def __init__(self, left, low, high):
        self.left, self.low, self.high = left, low, high

    def x(self, value):
        """Where the value lies."""
        clipped = min(max(value, self.low), self.high)
        share = math.log(clipped / self.low) / math.log(self.high / self.low)
        return self.left + share * PANEL

    def grid(self, ticks, bottom):
        """Lines and numbers at the ticks."""
        for tick in ticks:
            x = self.x(tick)
            yield (f'<line x1="{x:.1f}" y1="{TOP - 6}" x2="{x:.1f}" y2="{bottom}" '
                   f'stroke="#ddd"/>')
            yield (f'<text x="{x:.1f}" y="{TOP - 10}" text-anchor="middle" fill="#666">'
                   f'{axis_number(tick)}</text>')


def bar(axis, start, value, y, colour):
    """A bar between two values, with the second one's figure behind it."""
    x1, x2 = sorted((axis.x(start), axis.x(value)))
    yield (f'<rect x="{x1:.1f}" y="{y + 4}" width="{max(x2 - x1, 1):.1f}" height="11" '
           f'fill="{colour}"/>')
    yield f'<text x="{x2 + 8:.1f}" y="{y + 14}" fill="#222">{number(value)}</text>'


def mark(axis, value, y, shape):
    """A goal (line), a floor (diamond), a limit (circle) or what was before (open circle)."""
    if value < axis.low:
        return ""
    x, middle = axis.x(value), y + 9.5
    return {
        "goal": f'<line x1="{x:.1f}" y1="{y + 1}" x2="{x:.1f}" y2="{y + 18}" stroke="#000" '
                f'stroke-width="2"/>',
        "floor": f'<path d="M{x:.1f} {middle - 5} l5 5 l-5 5 l-5 -5 z" fill="#351c75" '
                 f'stroke="#fff"/>',
        "limit": f'<circle cx="{x:.1f}" cy="{middle}" r="3" fill="#999"/>',
        "before": f'<circle cx="{x:.1f}" cy="{middle}" r="4" fill="none" stroke="#cc4125" '
                  f'stroke-width="1.5"/>',
    }[shape]


def times_panel(axis, row, y):
    """One row of the left panel: times, with the best peer's as the unit."""
    best = row.peers[row.best()]
    yield from bar(axis, 1, row.ratio(), y, COLOURS[row.standing()])
    if row.shown_limit():
        yield mark(axis, row.limit / best, y, "limit")
    if row.floor:
        yield mark(axis, row.floor / best, y, "floor")
    if row.wanted:
        yield mark(axis, row.wanted * row.peers[row.wanted_of or row.best()] / best, y, "goal")


def counts_panel(axis, row, y):
    """One row of the right panel: instructions per call."""
    yield from bar(axis, axis.low, row.arm, y, "#3c78d8")
    if row.arm_before:
        yield mark(axis, row.arm_before, y, "before")
    if row.arm_goal():
        yield mark(axis, row.arm_goal(), y, "goal")


def legend():
    """Two lines above the panels."""
    x = LABELS
    for term, colour in COLOURS.items():
        yield f'<rect x="{x}" y="30" width="11" height="11" fill="{colour}"/>'
        yield f'<text x="{x + 16}" y="40">{term}</text>'
        x += 34 + 7 * len(term)
    for shape, text in (("goal", "goal"), ("floor", "floor"), ("limit", "limit of the machine"),
                        ("before", "before (ARM)")):
        yield mark(Axis(x, 1, 10), 1, 26, shape)
        yield f'<text x="{x + 10}" y="40">{text}</text>'
        x += 34 + 7 * len(text)


def write(path, rows):
    """Writes the plot as an SVG file."""
    rows = [row for row in rows if row.ours]
    bottom = TOP + ROW_HEIGHT * len(rows)
    times = Axis(LABELS, 0.02, 20)
    counts = Axis(LABELS + PANEL + GAP, 10, 1e7)
    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{bottom + 12}" '
        f'viewBox="0 0 {WIDTH} {bottom + 12}" font-family="sans-serif" font-size="12">',
        '<rect width="100%" height="100%" fill="#fff"/>',
        f'<text x="{times.left}" y="18" font-weight="bold">Our time / the best peer\'s '
        '(left of 1: faster)</text>',
        f'<text x="{counts.left}" y="18" font-weight="bold">Instructions per call on ARM</text>',
        *legend(),
        *times.grid((0.02, 0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10, 20), bottom),
        *counts.grid((10, 100, 1000, 10000, 100000, 1000000, 10000000), bottom),
    ]
    for i, row in enumerate(rows):
        y = TOP + ROW_HEIGHT * i
        parts.append(f'<text x="{LABELS - 10}" y="{y + 14}" text-anchor="end">'
                     f'{escape(row.function)}</text>')
        parts.extend(times_panel(times, row, y))
        if row.arm is not None:
            parts.extend(counts_panel(counts, row, y))
    one = times.x(1)
    parts.append(f'<line x1="{one:.1f}" y1="{TOP - 6}" x2="{one:.1f}" y2="{bottom}" '
                 f'stroke="#000"/>')
    parts.append("</svg>")
    path.write_text("\n".join(parts) + "\n")
