"""The exports list as data."""

import re

# The exported data objects and the types that nm may give them; every other name is a function.
DATA_TYPES = {"_ytab": "R", "_timezone": "BD", "_daylight": "BD", "_dstbias": "BD"}


def sections(path):
    """The names below each header that a comment of the list names."""
    found = {}
    with open(path, encoding="ascii") as file:
        for line in file:
            if comment := re.match(r" +/\* (\S+\.h)\b", line):
                names_below = found.setdefault(comment.group(1), [])
            elif name := re.match(r" +(\w+);", line):
                names_below.append(name.group(1))
    return found


def names(path):
    """The names in their order."""
    with open(path, encoding="ascii") as file:
        text = re.sub(r"/\*.*?\*/", "", file.read(), flags=re.DOTALL)
    body = re.fullmatch(r"\s*\{(.*)\};\s*", text, flags=re.DOTALL).group(1)
    listed = [name.strip() for name in body.split(";")]
    assert listed.pop() == "", "the last name has no semicolon"
    return listed
