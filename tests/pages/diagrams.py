"""The pictures of the documents, drawn from text: docs/NAME.dot gives docs/NAME.svg.

    python3 -B -m tests.pages.diagrams          says which picture is not of its text
    python3 -B -m tests.pages.diagrams drawn    draws them anew and says what differs
    python3 -B -m tests.pages.diagrams write    draws them anew

Drawing needs graphviz. A picture ends with the digest of its text, so that one of an older text is
found without. Where things lie is not compared: it differs with the fonts of a machine.
"""

import hashlib
import re
import shutil
import subprocess
import sys

from tests.pages.calls import ROOT

COMMENT = re.compile(r"<!--.*?-->\n?", re.DOTALL)
PLACE = re.compile(r' (?:d|height|points|r?[xy]|transform|viewBox|width)="[^"]*"')


def sources():
    """The texts of all pictures."""
    return sorted((ROOT / "docs").glob("*.dot"))


def mark(source):
    """The last line of a picture."""
    return f"<!-- drawn from {source.name}, {hashlib.sha256(source.read_bytes()).hexdigest()} -->\n"


def drawn(source):
    """The picture of a text."""
    return subprocess.run(["dot", "-Tsvg", source], check=True, capture_output=True,
                          encoding="utf-8").stdout + mark(source)


def shown(picture):
    """What a picture shows, without the places."""
    return PLACE.sub("", COMMENT.sub("", picture))


def faults(source, draws):
    """What is wrong with the picture of a text, in a sentence each."""
    target = source.with_suffix(".svg")
    picture = target.read_text(encoding="utf-8") if target.exists() else ""
    if not picture.endswith(mark(source)):
        yield f"{target.name} is not drawn from {source.name} as it is"
    elif draws and shown(picture) != shown(drawn(source)):
        yield f"{target.name} shows something else than {source.name}"


def main(word=None):
    """Returns the exit status."""
    if word is not None and shutil.which("dot") is None:
        print("tests.pages.diagrams: dot is missing: install graphviz (script/setup proof)",
              file=sys.stderr)
        return 1
    if word == "write":
        for source in sources():
            source.with_suffix(".svg").write_text(drawn(source), encoding="utf-8")
    found = [fault for source in sources() for fault in faults(source, word == "drawn")]
    if not sources():
        found.append("docs/ has no picture")
    for fault in found:
        print(f"{fault}: python3 -B -m tests.pages.diagrams write", file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
