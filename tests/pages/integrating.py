"""The table of functions in docs/integrating.md: what the compiler knows of it.

    python3 -B -m tests.pages.integrating BUILD          says what differs in an ARM build folder
    python3 -B -m tests.pages.integrating BUILD write    writes those columns anew

The columns of threads and of waiting are a reader's; where the calls contradict them, it is said.
"""

import pathlib
import re
import subprocess
import sys

from tests.pages import calls

DOCUMENT = calls.ROOT / "docs/integrating.md"
ROW = re.compile(r"^\| `(\w+)` \|(.*)\|$", re.MULTILINE)
COLUMNS = ("threads", "signals", "fork", "stack", "errno", "waits")

LOG = "PrintLog"
# They may be called anywhere (AS-Safe in the manual of the GNU C library) and leave errno alone.
PLAIN = set("""__aeabi_idiv __aeabi_idivmod __aeabi_ldivmod __aeabi_uldivmod __errno_location
    __stack_chk_fail gettimeofday memcpy memmove memset strcasecmp strchr strchrnul strlen strncmp
    strncpy strnlen strpbrk strrchr strstr time""".split())
# They may be called anywhere and set errno when they fail. statfs and sysinfo, on which the manual
# is silent, are system calls and nothing else.
FAILING = set("access mkdir select statfs strtol sysinfo".split())
# What the calls of a function wait for: the words that may stand there, and the calls that one of
# them stands for. The first that a function comes to counts.
WAITS = (
    ({"command", "2 commands", "commands"}, {"waitpid"}),
    ({"driver", "up to 50 s"}, {"ioctl"}),
    ({"its argument"}, {"select"}),
    ({"file system"}, {"access", "fopen", "mkdir", "opendir", "readdir", "stat", "statfs"}),
    ({"zone file"}, {"localtime"}),
    ({"output"}, {"printf"}),
)


def told(graph, name):
    """The columns that the calls of a function tell."""
    depth = graph.depth(name)  # first: it says when a function calls itself
    beside_log = graph.outside(name, without=LOG)
    if not beside_log <= PLAIN | FAILING:
        signals = "no"
    else:
        signals = "log off" if LOG in (name, *graph.reached(name)) else "yes"
    return {
        "signals": signals,
        "fork": "alone" if signals == "no" else signals,
        "stack": f"{depth:,}",
        "errno": "kept" if beside_log <= PLAIN else "may change",
    }


def threads(graph, name):
    """What the calls of a function ask of the column of threads: words of which one must stand."""
    beside_log = graph.outside(name, without=LOG)
    if "localtime" in beside_log:
        return {"record"}
    if "getenv" in beside_log:
        return {"environment"}
    if LOG in (name, *graph.reached(name)):
        return {"log off", "folder", "alone"}
    return {"yes", "folder", "zone", "settings"}


def waits(graph, name):
    """What the calls of a function ask of the column of waiting, likewise."""
    beside_log = {"printf"} if name == LOG else graph.outside(name, without=LOG)
    return next((words for words, waiting in WAITS if waiting & beside_log), {"–"})


def rows(text):
    """The cells of each function."""
    return {row[1]: dict(zip(COLUMNS, (cell.strip() for cell in row[2].split("|"))))
            for row in ROW.finditer(text)}


def rewritten(graph, text):
    """The page with the compiler's columns."""
    def row(found):
        name = found[1]
        cells = rows(found[0])[name] | told(graph, name)
        return f"| `{name}` | " + " | ".join(cells[column] for column in COLUMNS) + " |"
    return ROW.sub(row, text)


def faults(graph, text):
    """What is wrong in the table, in a sentence each."""
    if not rows(text):
        yield "there is no table"
    for name, cells in rows(text).items():
        for column, cell in told(graph, name).items():
            if cells[column] != cell:
                yield f"{name}: {column}: {cells[column]}, and the compiler says {cell}"
        for column, asked in ("threads", threads), ("waits", waits):
            if cells[column] not in asked(graph, name):
                yield (f"{name}: {column}: {cells[column]}, and its calls allow"
                       f" {' or '.join(sorted(asked(graph, name)))}")


def main(build, word=None):
    """Returns the exit status."""
    try:
        graph = calls.read(pathlib.Path(build).resolve())
        if word == "write":
            text = DOCUMENT.read_text(encoding="utf-8")
            DOCUMENT.write_text(rewritten(graph, text), encoding="utf-8")
        found = list(faults(graph, DOCUMENT.read_text(encoding="utf-8")))
    except (OSError, ValueError, subprocess.CalledProcessError) as fault:
        found = [fault]
    for fault in found:
        print(f"docs/integrating.md: {fault}", file=sys.stderr)
    if found:
        print("python3 -B -m tests.pages.integrating build/arm write takes the figures anew",
              file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
