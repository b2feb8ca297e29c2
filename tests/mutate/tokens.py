"""C++ as tokens: what a fault can be planted in. Comments and blanks are none."""

import re
from dataclasses import dataclass

WORD, NUMBER, TEXT, CHARACTER, OPERATOR = "word", "number", "text", "character", "operator"

# The order matters: the first pattern that fits is taken, so the longer operators stand first.
PATTERN = re.compile(r"""
    (?P<blank>\s+ | //[^\n]* | /\*.*?\*/ | \\\n)
  | (?P<text>(?:u8|[uUL])?"(?:\\.|[^"\\\n])*")
  | (?P<character>(?:u8|[uUL])?'(?:\\.|[^'\\\n])*')
  | (?P<number>\.?\d(?:[eEpP][+-]|'\w|[\w.])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<operator>\.\.\.|<=>|<<=|>>=|->\*|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||\+=|-=|\*=|/=|%=
      |&=|\|=|\^=|[-+*/%&|^~!=<>?:;,.(){}\[\]])
""", re.VERBOSE | re.DOTALL)

COMMENT_OR_TEXT = re.compile(r"""//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*'|.""", re.DOTALL)

# A directive with its continued lines. Only what a name is defined as can hold a fault.
DIRECTIVE = re.compile(r"^[ \t]*\#[ \t]*(\w+)(?:\\\n|[^\n])*", re.MULTILINE)
DEFINITION = re.compile(r"[ \t]*\#[ \t]*define[ \t]+\w+(?:\([^)]*\))?")


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int
    is_spaced: bool  # blanks on both sides: `a < b`, not `vector<int>`


def tokens_between(source, start, end):
    found = []
    position = start
    while position < end:
        match = PATTERN.match(source, position, end)
        if match is None:
            raise ValueError(f"no token: {source[position:position + 20]!r}")
        position = match.end()
        if match.lastgroup != "blank":
            before, after = source[match.start() - 1:match.start()], source[position:position + 1]
            is_spaced = before.isspace() and after.isspace()
            found.append(Token(match.lastgroup, match.group(), match.start(), position, is_spaced))
    return found


def code_parts(source):
    """(start, end) of the code between directives, and of the values of definitions."""
    parts = []
    position = 0
    for directive in DIRECTIVE.finditer(source):
        parts.append((position, directive.start()))
        if directive.group(1) == "define":
            name = DEFINITION.match(source, directive.start())
            parts.append((name.end(), directive.end()))
        position = directive.end()
    parts.append((position, len(source)))
    return parts


def tokens(source):
    found = []
    for start, end in code_parts(source):
        found += tokens_between(source, start, end)
    return found


def pairs(found):
    """For the index of each opening bracket that of its closing one, and the other way round."""
    partners = {}
    opened = []
    for index, token in enumerate(found):
        if token.kind != OPERATOR:
            continue
        if token.text in ("(", "[", "{"):
            opened.append(index)
        elif token.text in (")", "]", "}"):
            start = opened.pop()
            partners[start] = index
            partners[index] = start
    return partners


def without_comments(source):
    """The text with a blank for each comment."""
    return "".join(" " if match.group().startswith(("//", "/*")) else match.group()
                   for match in re.finditer(COMMENT_OR_TEXT, source))
