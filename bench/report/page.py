"""The page with the tables."""

from bench.report import machine
from bench.report.rows import EMPTY_CALL, FLOOR, LEADS, LEVEL, SHORT, WANTED
from bench.report.texts import duration, number, table

PAGE = """\
# Performance

How fast the library's functions are beside what a user would otherwise pick, and how many \
instructions they take on the terminal's kind of processor. `script/bench` measures all of it and \
writes this page; nothing here is written by hand.

![Times beside the best peers, and instructions on ARM](performance.svg)

{summary}

## Beside the best peers

Times are those of one run on x86-64: the least of {repetitions} repetitions that took turns, over \
{inputs} different inputs where a call is short. *Ours / best* is the ratio to the fastest peer; \
below 1 we are faster. A goal that was set against another peer names it, with our ratio to that \
one. Every peer has given our results, for all inputs, before any time was taken.

The *floor* is what the documented behaviour fixes: a program that makes those calls and nothing \
else. The *limit* is what this machine allows: the same round with an empty call in place of the \
function, or with what is named beside it. Where a row stands: *leads* or is *level* with the best \
peer, within 5 %; is *within its goal*; is *at its floor*, within 7 %; or *falls short*.

{times}
## Instructions on ARM

Instructions per call of the terminal's build, everything that the function calls in the C library \
included, kernel excluded. They are counted by a plugin of QEMU's user mode: a program makes N and \
2N calls, the difference is divided by N, and the same for an empty call is taken off. So they are \
exact, and the same on every machine; only a log line depends a little on the time of day. \
*Before* is the code that counted months one by one and calculated calendars in doubles.

{counts}
## What is bound

{bound}
## Every peer

{peers}
## This run

{facts}"""


def goal(row):
    """The goal of a row as a text."""
    if row.wanted is None:
        return ""
    if row.wanted_of is None or row.wanted_of == row.best():
        return number(row.wanted)
    return f"{number(row.wanted)} of {row.wanted_of}: {number(row.wanted_ratio())}"


def limit(row):
    """What the machine allows, named where it is no empty call."""
    named = "" if row.limit_name == EMPTY_CALL else f" ({row.limit_name})"
    return duration(row.shown_limit()) + named if row.shown_limit() else ""


def remark(row):
    """What a reader must know about a row."""
    if row.remark:
        return row.remark
    if row.standing() == SHORT:
        return f"bound: {row.bound}" if row.bound else "**not yet explained**"
    return ""


def times_table(rows):
    """Ours beside the best peer."""
    return table(
        ["Function", "Best peer", "Ours:", "Ours / best:", "Goal:", "Ours / floor:", "Limit:",
         "Standing", "Remark"],
        [[row.function, row.best(), duration(row.ours), f"**{number(row.ratio())}**", goal(row),
          number(row.ours / row.floor) if row.floor else "", limit(row), row.standing(),
          remark(row)] for row in rows])


def counts_table(rows):
    """Instructions, before and now."""
    def arm_goal(row):
        if row.arm_peer_name:
            ratio = f"{number(row.arm / row.arm_peer)} now" if row.arm_peer else ""
            return f"{number(row.arm_wanted)} of {row.arm_peer_name}: {ratio}"
        return number(row.arm_wanted)
    return table(
        ["Function", "Before:", "Now:", "Before / now:", "Goal:"],
        [[row.function, number(row.arm_before), f"**{number(row.arm)}**",
          number(row.arm_before / row.arm) if row.arm_before and row.arm else "", arm_goal(row)]
         for row in rows])


def peers_table(rows):
    """All times of all rows."""
    lines = []
    for row in rows:
        for name in sorted(row.peers, key=row.peers.get):
            lines.append([row.function, name, duration(row.peers[name]),
                          number(row.ours / row.peers[name])])
    return table(["Function", "Peer", "Time:", "Ours / peer:"], lines)


def bound_table(rows):
    """The rows whose cost the documented behaviour decides."""
    return table(
        ["Function", "What the documented behaviour fixes", "Floor:", "Ours / floor:",
         "Floor / best peer:"],
        [[row.function, row.bound, duration(row.floor), number(row.ours / row.floor),
          number(row.floor / row.peers[row.best()])] for row in rows if row.bound and row.floor])


def summary(rows):
    """How many rows stand where."""
    stands = [row.standing() for row in rows]
    parts = [f"{stands.count(term)} {text}" for term, text in (
        (LEADS, "lead"), (LEVEL, "are level with the best peer"),
        (WANTED, "are within their goals"), (FLOOR, "are at the floor that behaviour sets"),
        (SHORT, "fall short")) if stands.count(term)]
    return f"Of {len(rows)} rows " + ", ".join(parts) + "."


def write(path, rows, repetitions, inputs):
    """Writes the page."""
    timed = [row for row in rows if row.ours]
    path.write_text(PAGE.format(
        summary=summary(timed), repetitions=repetitions, inputs=f"{inputs:,}",
        times=times_table(timed), counts=counts_table([row for row in rows if row.arm is not None]),
        bound=bound_table(timed), peers=peers_table(timed),
        facts=table(["", ""], [list(fact) for fact in machine.facts()])))
