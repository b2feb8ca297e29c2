"""All is reached, but for the lines that docs/coverage.md names with a reason."""

import re
from typing import NamedTuple

MOST = 5  # entries that the list may have

COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
BODY = re.compile(r"\)\s*(?:const\s*|noexcept\s*|:[^;{}]*)*\{")  # of a function


class Entry(NamedTuple):
    """A line that no test can reach: its file, its text, and the reason."""
    file: str
    text: str
    reason: str


def entries(document):
    """The rows of the document's table."""
    rows = re.findall(r"^\| `(\S+)` \| `(.+)` \| (.*) \|$", document, flags=re.MULTILINE)
    return [Entry(file, text.replace(r"\|", "|"), reason.strip()) for file, text, reason in rows]


def uncounted(sources, counted):
    """The files of sources, name and text, that hold code of which nothing was counted."""
    return sorted(name for name, text in sources.items() if name not in counted and
                  (name.endswith(".cpp") or BODY.search(COMMENT.sub("", text))))


def complaints(missed, listed, lines_of):
    """What is wrong, a sentence each: none when all is as it should be.

    lines_of gives the lines of a file, none for a file that is not there.
    """
    excused = {(entry.file, entry.text) for entry in listed}
    used = set()
    for miss in missed:
        place = miss.file, lines_of(miss.file)[miss.place[0] - 1].strip()
        if place in excused:
            used.add(place)
        else:
            yield f"{miss.file}:{miss.place[0]}: {miss.what}: {place[1]}"
    for entry in listed:
        place = f"{entry.file}: `{entry.text}`"
        if not entry.reason:
            yield f"{place} is listed without a reason"
        if entry.text not in (line.strip() for line in lines_of(entry.file)):
            yield f"{place} is listed and does not exist"
        elif (entry.file, entry.text) not in used:
            yield f"{place} is listed and reached"
    if len(listed) > MOST:
        yield f"{len(listed)} lines are listed, {MOST} may be"
