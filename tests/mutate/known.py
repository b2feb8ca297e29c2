"""The list of mutants that nothing can see, each with its reason."""

from pathlib import Path

LIST = Path(__file__).with_name("equivalent.txt")


class Malformed(Exception):
    """The list cannot be read."""


def read(text):
    """For each (file, line before, line after) the reason.

    An entry is a file's name, a line that begins with "- ", one that begins with "+ ", and an
    indented reason of one or more lines. "#" begins a comment.
    """
    reasons = {}
    file = before = key = None
    for number, line in enumerate(text.splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith("- "):
            before = line[2:]
        elif line.startswith("+") and file and before is not None:
            key = (file, before, line[1:].strip())
            if key in reasons:
                raise Malformed(f"line {number}: a second time: {line}")
            reasons[key] = ""
            before = None
        elif line.startswith("    ") and key:
            reasons[key] = f"{reasons[key]} {line.strip()}".strip()
        elif line[0].isalnum():
            file, key = line.strip(), None
        else:
            raise Malformed(f"line {number}: {line}")
    # Neighbours may share the reason that stands below the last of them.
    reason = ""
    for key in reversed(reasons):
        reason = reasons[key] or reason
        if not reason:
            raise Malformed(f"no reason: {key}")
        reasons[key] = reason
    return reasons


def unknown(reasons, mutants):
    """The entries that are no mutant."""
    possible = {mutant.key for mutant in mutants}
    return [key for key in reasons if key not in possible]
