"""Writes the library's manual pages of section 3 from the comments of its public headers.

    python3 docs/manual.py FOLDER util/fileutils.h...    called where the sources are

One page for each header and an index, orvautil.3. What a header declares without a comment, and
what is not understood in one, is told on standard error, and no page is written.
"""

import pathlib
import re
import sys
import textwrap

LIBRARY = "orvautil"
LICENCE_AND_DATE = "".join(pathlib.Path(__file__).with_name("orvatool.8").open().readlines()[:2])
ESCAPES = str.maketrans({"\\": r"\e", '"': r"\(dq", "'": r"\(aq", "^": r"\(ha", "\xa0": r"\ "})

# A header, piece by piece. "other" is for the compiler alone. A directive may stand between a
# comment and what it is about.
PIECE = re.compile(r"""(?P<comment>/\*(?!\ SPDX).*?\*/\n)
  | (?P<other>(?P<directive>\#(?!define\ \w+\ +\S)(?:\\\n|[^\n])*\n) | extern\ "C"\ \{\n | \}\n | \n
             | /\*\ SPDX[^\n]*\n | (?:_Static_assert|static_assert|[A-Z_]+)\([^;]*;\n)
  | (?P<type>(?:\#define\ \w+\ +\S[^\n]*\n)+ | (?:enum|typedef|struct)\b(?:[^;{}]|\{[^}]*\})*;\n)
  | (?P<data>extern\ [\w *]+?\ ?\b(?P<object>\w+)(?:\[\w+\])*);\n
  | (?P<result>\w[\w *]*?)\ ?\b(?P<called>\w+)\((?P<arguments>[^;{}]*?)\)
    (?:\s*__attribute__[^;{}]*)?;\n""", re.VERBOSE | re.DOTALL)

# The paragraphs of a comment; the first two may end it.
LIST = re.compile(r"Good to know:(?:\n - \S.*(?:\n   \S.*)*)+\.")
LAST = re.compile(r"Good to know: \S.*(?:\n\S.*)*\.")
TEXT = re.compile(r"(?!(?i:good to know))\S.*(?:\n\S.*)*[.:]")
DISPLAY = re.compile(r"  +\S.*(?:\n  +\S.*)*")
HEAD = re.compile(r"(.*?)(?:([.:])(?:\s+|$)|$)(.*)", re.DOTALL)  # its first sentence, up to a colon

faults = []
headers = []
found = {}  # for each name its page, its macro and its comment


class Header:
    def __init__(self, path):
        self.path = path
        stem = re.sub(r"^(log|util)/|\.h$", "", path)
        self.page = f"{LIBRARY}_{stem.replace('/', '_')}"
        self.include = f".In {LIBRARY}/{stem.split('/')[0]}.h"
        self.top, self.types, self.groups = None, [], []  # a group: its comment and its pieces
        source, at, above = pathlib.Path(path).read_text(encoding="utf-8"), 0, None
        while at < len(source):
            where = f"{path}:{source.count(chr(10), 0, at) + 1}"
            piece = PIECE.match(source, at)
            if not piece:
                faults.append(f"{where}: not understood: {source[at:].splitlines()[0]}")
                break
            at, name = piece.end(), piece["called"] or piece["object"]
            comment, above = above, above if piece["directive"] else None
            if piece["comment"]:
                text = re.sub(r"^/\*\s?|\s*\*/\n", "", piece[0])
                above = (where, re.sub(r"^ \* ?", "", text, flags=re.MULTILINE))
                if not self.top:
                    self.top, above = above, None
                elif source[at:at + 1] == "\n":
                    self.groups.append((above, []))
            elif not comment and not piece["other"]:
                faults.append(f"{where}: no comment directly above: {piece[0].rstrip()}")
            elif name:
                self.groups = self.groups or [((where, "Functions."), [])]
                self.groups[-1][1].append((name, piece))
                found[name] = (self.page, "Va" if piece["data"] else "Fn", comment)
            elif piece["type"]:
                self.types.append((comment, piece[0].splitlines()))
        self.top = self.top or (path, "no comment at all")


def escaped(line):
    line = re.sub(r"^(?=\.)", r"\\&", line.translate(ESCAPES))
    return re.sub(r"(?<![A-Za-z])-|-(?![A-Za-z])", r"\-", line)


def prose(text):
    """A line or more for each sentence. Names are bold; a header is named by its page."""
    for header in headers:
        text = text.replace(header.path, f"`{header.page}`(3)")
    text = re.sub(rf"\b({'|'.join(found)})\b", r"`\1`", re.sub(r"\n *", " ", text))
    text = re.sub("  +", lambda blanks: len(blanks[0]) * "\xa0", text)
    for sentence in re.split(r"""(?<=[\w)"'\]`][.!?]) """, text):
        for line in textwrap.wrap(sentence, 60, break_long_words=False, break_on_hyphens=False):
            yield re.sub("`([^`]*)`", r"\\fB\1\\fR", escaped(line))


def paragraphs(where, text):
    lines = []
    for part in filter(None, text.split("\n\n")):
        if LIST.fullmatch(part) and text.endswith(part):
            lines += [".Pp", "Good to know:", ".Bl -bullet"]
            lines += [line for each in part.split("\n - ")[1:] for line in (".It", *prose(each))]
            lines += [".El"]
        elif TEXT.fullmatch(part) or LAST.fullmatch(part) and text.endswith(part):
            lines += [".Pp", *prose(part)]
        elif DISPLAY.fullmatch(part):
            lines += [".Bd -literal -offset indent", *map(escaped, part.split("\n")), ".Ed"]
        else:
            faults.append(f"{where}: this part of the comment is not understood: {part}")
    return lines[lines[:1] == [".Pp"]:]


def page(title, about, body):
    names = [title, *(name for name in found if found[name][0] == title)]
    others = sorted({LIBRARY, *(each.page for each in headers)} - {title})
    return "\n".join([
        LICENCE_AND_DATE + f".Dt {title.upper()} 3", ".Os", ".Sh NAME",
        ".Nm " + " ,\n.Nm ".join(names), f".Nd {about}", ".Sh SYNOPSIS", *body,
        ".Sh SEE ALSO", *(f".Xr {each} 3 ," for each in others), ".Xr orvatool 8", ""])


def header_page(header):
    synopsis, body = [header.include], [".Sh DESCRIPTION", *paragraphs(*header.top)]
    for comment, code in header.types:
        body += [".Pp", *paragraphs(*comment), ".Bd -literal -offset indent"]
        body += [*map(escaped, code), ".Ed"]
    for (where, text), pieces in header.groups:
        title, mark, rest = HEAD.match(text).groups()
        rest = rest[:1].upper() + rest[1:] if mark == ":" else rest
        body += [f".Ss {escaped(title)}", *paragraphs(where, rest), ".Bl -tag -width Ds"]
        for name, piece in pieces:
            arguments = re.split(r",\s+(?![^()]*\))", piece["arguments"] or "")
            synopsis += [f".Vt {piece['data']} ;"] if piece["data"] else [
                f".Ft {piece['result']}", f".Fn {name} " + " ".join(f'"{a}"' for a in arguments)]
            body += [f".It {found[name][1]} {name}", *paragraphs(*found[name][2])]
        body += [".El"]
    return page(header.page, HEAD.match(header.top[1])[1], synopsis + body)


def index_page():
    text = f"Link with `-l{LIBRARY}`. `man NAME` finds a function once `mandb` or `makewhatis` ran."
    body = [*dict.fromkeys(header.include for header in headers), ".Sh DESCRIPTION", *prose(text)]
    for header in headers:
        body += [".Pp", f".Xr {header.page} 3 :", *prose(HEAD.match(header.top[1])[1] + ".")]
    body += [".Ss Functions and data objects", ".Bl -tag -width Ds"]
    for name, (owner, macro, comment) in sorted(found.items(), key=lambda each: each[0].lower()):
        body += [f".It {macro} {name}", *prose(HEAD.match(comment[1])[1] + "."), f".Xr {owner} 3"]
    return page(LIBRARY, "the terminal's utility library", [*body, ".El"])


headers.extend(map(Header, sys.argv[2:]))
pages = {header.page: header_page(header) for header in headers} | {LIBRARY: index_page()}
if faults:
    sys.exit("\n".join(faults))
for name, text in pages.items():
    pathlib.Path(sys.argv[1], f"{name}.3").write_text(text, encoding="utf-8")
