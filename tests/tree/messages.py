"""Every text that the product writes, found in its sources, and those that docs/messages.md tells.

A message is (text, where it goes, who writes it), as the document's tables have them. What is no
literal stands in the text as its expression in braces.
"""

import re
from pathlib import Path
from typing import NamedTuple

from tests.mutate.tokens import CHARACTER, TEXT, WORD, pairs, tokens

FOLDERS = ("log", "splash", "tool", "udisk", "util")
OUTPUT, ERROR, SHELL = "output", "error", "shell"
STREAMS = {"stdout": OUTPUT, "STDOUT_FILENO": OUTPUT, "1": OUTPUT,
           "stderr": ERROR, "STDERR_FILENO": ERROR, "2": ERROR}

# The calls that write: which argument is the text, and where it goes. A number there is the
# argument that names the stream or descriptor; None: the first argument is the level.
CALLS = {
    "printf": (0, OUTPUT), "vprintf": (0, OUTPUT), "puts": (0, OUTPUT), "putchar": (0, OUTPUT),
    "putchar_unlocked": (0, OUTPUT), "perror": (0, ERROR), "psignal": (1, ERROR),
    "system": (0, SHELL), "systemEx": (0, SHELL), "popen": (0, SHELL),
    "warn": (0, ERROR), "warnx": (0, ERROR), "err": (1, ERROR), "errx": (1, ERROR),
    "error": (2, ERROR), "syslog": (1, "syslog"), "vsyslog": (1, "syslog"),
    "fprintf": (1, 0), "vfprintf": (1, 0), "dprintf": (1, 0), "vdprintf": (1, 0), "write": (1, 0),
    "fputs": (0, 1), "fputc": (0, 1), "putc": (0, 1), "fwrite": (0, 3), "fwrite_unlocked": (0, 3),
    "LOG": (1, None), "PrintLog": (4, None),
}
# A copy's own bytes, and the macro behind LOG, whose calls are found by its name.
NO_MESSAGES = {("util/fileutils/file_copy.cpp", "fwrite(block,1,got,dest)"),
               ("log/log_line.h", "PrintLog((level),kLogTag,__func__,__LINE__,__VA_ARGS__)")}

TABLE = re.compile(r"^\| text \| to \| by \| cause \| what to do \|\n\|(?:---\|){5}\n((?:\|.*\n)+)",
                   re.MULTILINE)


class Message(NamedTuple):
    text: str
    to: str  # a level, or OUTPUT, ERROR or SHELL
    by: str  # the source name and the function of a log line, else the function


class Row(NamedTuple):
    message: Message
    cause: str
    to_do: str


def shown(found):
    """A text of adjacent literals as it stands in them, and expressions in braces."""
    parts = [[]]
    for token in found:
        if token.kind in (TEXT, CHARACTER):
            parts += [token.text[1:-1], []]
        else:
            parts[-1].append(token.text)
    return "".join(part if isinstance(part, str) else part and "{" + "".join(part) + "}" or ""
                   for part in parts)


class Source:
    def __init__(self, root, path):
        self.path = path.relative_to(root).as_posix()
        source = path.read_text(encoding="utf-8")
        self.found = tokens(source)
        self.partners = pairs(self.found)
        tag = re.search(r"kLogTag = log_tag::(\w+);", source)
        names = (root / "log/log_line.h").read_text(encoding="utf-8")
        self.tag = tag and re.search(rf'{tag[1]}\[\] = "(\w+)"', names)[1]

    def function_at(self, index):
        """The name of the function that the token is in, or None."""
        for opening, closing in sorted(self.partners.items()):
            if opening < index < closing and self.found[opening].text == "{" and (
                    self.found[opening - 1].text == ")"):
                return self.found[self.partners[opening - 1] - 1].text
        return None

    def arguments(self, opening):
        """The tokens of each argument of a call."""
        parts, at = [[]], opening + 1
        while at < self.partners[opening]:
            end = self.partners.get(at, at)
            if self.found[at].text == ",":
                parts.append([])
            else:
                parts[-1] += self.found[at:end + 1]
            at = end + 1
        return parts

    def messages(self):
        for index, token in enumerate(self.found[:-1]):
            if token.kind != WORD or token.text not in CALLS or self.found[index + 1].text != "(":
                continue
            before = self.found[index - 1]
            if before.kind == WORD and before.text not in ("return", "else", "do"):
                continue  # a declaration
            arguments = self.arguments(index + 1)
            call = "".join(each.text for each in
                           self.found[index:self.partners[index + 1] + 1])
            if (self.path, call) not in NO_MESSAGES:
                yield self.message(token.text, arguments, self.function_at(index), call)

    def message(self, name, arguments, function, call):
        at, to = CALLS[name]
        text = shown(arguments[at])
        if name == "perror":
            text += ": %m"
        if to is None:
            level = re.fullmatch(r"\w*?(ERROR|WARNING|INFO|DEBUG)", shown(arguments[0])[1:-1])
            tag = self.tag if name == "LOG" else shown(arguments[1])
            return Message(text, level[1].capitalize(), f"{tag} {function}")
        if isinstance(to, int):
            stream = shown(arguments[to]).strip("{}")
            if stream not in STREAMS:
                raise ValueError(f"{self.path}: {call}: neither standard output nor standard error;"
                                 f" if this is no message, say so in NO_MESSAGES")
            to = STREAMS[stream]
        return Message(text, to, function)


def written(root):
    """The messages of the sources."""
    root = Path(root)
    return [message for folder in FOLDERS for path in sorted((root / folder).rglob("*"))
            if path.suffix in (".c", ".cpp", ".h") for message in Source(root, path).messages()]


def told(text):
    """The rows of the document's tables."""
    for table in TABLE.findall(text):
        for line in table.splitlines():
            cells = line.removeprefix("| ").removesuffix(" |").split(" | ")
            text, to, by, cause, to_do = (cell.replace("\\|", "|") for cell in cells)
            yield Row(Message(text.strip("`"), to, by.strip("`")), cause, to_do)
