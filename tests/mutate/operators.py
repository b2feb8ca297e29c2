"""The faults that a token alone can have: a number, a sign, a word, a character."""

import re

from tests.mutate.tokens import CHARACTER, NUMBER, OPERATOR, TEXT, WORD

COMPARISONS = {
    "==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="],
    ">=": [">", "<"],
}
SIGNS = {
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["/"], "<<": [">>"], ">>": ["<<"],
    "&": ["|"], "|": ["&"], "^": ["&"],
}
STEPS = {
    "++": ["--"], "--": ["++"], "+=": ["-=", "="], "-=": ["+=", "="], "*=": ["="], "/=": ["*="],
    "%=": ["/="], "|=": ["&=", "="], "&=": ["|=", "="], "<<=": [">>="], ">>=": ["<<="],
}
LOGIC = {"&&": ["||"], "||": ["&&"]}
PREFIXES = ("-", "!", "~")
WORDS = {
    "true": ["false"], "false": ["true"], "min": ["max"], "max": ["min"], "break": ["continue"],
    "continue": ["break"], "LOG_ERROR": ["LOG_WARNING"], "LOG_WARNING": ["LOG_INFO"],
    "LOG_INFO": ["LOG_DEBUG"], "LOG_DEBUG": ["LOG_ERROR"], "floor": ["ceil"], "ceil": ["floor"],
    "INT_MAX": ["INT_MIN"], "INT_MIN": ["INT_MAX"], "F_OK": ["W_OK"],
    "strncmp": ["strncasecmp"], "isspace": ["isdigit"], "isdigit": ["isalnum"],
}
WIDTHS = {
    "int64_t": ["int32_t"], "uint64_t": ["uint32_t"], "uint32_t": ["int32_t"],
    "int32_t": ["uint32_t"], "uint16_t": ["uint8_t"], "uint8_t": ["int8_t"], "int": ["short"],
    "unsigned": ["signed"], "double": ["float"], "long": ["int"],
}
WHOLE_NUMBER = re.compile(r"(0[xX][0-9a-fA-F']+|[0-9']+)([uUlLzZ]*)$")
ESCAPED = re.compile(r"\\(?:x[0-9a-fA-F]+|[0-7]{1,3}|.)|[^\\]", re.DOTALL)


def neighbours(number):
    """The number one more and one less."""
    match = WHOLE_NUMBER.match(number)
    if match is None:
        stem = number.rstrip("fFlL")
        return [f"({number} + 1)", f"({number} - 1)"] if "." in stem or "e" in stem else []
    digits, suffix = match.groups()
    digits = digits.replace("'", "")
    if digits[:2].lower() == "0x":
        value, form = int(digits, 16), hex
    elif digits[0] == "0" and len(digits) > 1:
        value, form = int(digits, 8), lambda other: f"0{other:o}"
    else:
        value, form = int(digits), str
    return [form(other) + suffix for other in (value + 1, value - 1) if other >= 0]


def other_character(character):
    """Another one of the same sort; escapes become plain."""
    if character.startswith("\\"):
        return "x" if character != "\\0" else "\\1"
    if character.isalpha():
        return character.swapcase()
    if character.isdigit():
        return str((int(character) + 1) % 10)
    return "_" if character != "_" else "-"


def changed_texts(literal):
    """The literal with one character changed, for each; a text also without its last one."""
    quote = literal[-1]
    start = literal.index(quote) + 1
    characters = ESCAPED.findall(literal[start:-1])
    prefix = literal[:start]
    for index, character in enumerate(characters):
        changed = characters[:index] + [other_character(character)] + characters[index + 1:]
        yield prefix + "".join(changed) + quote
    if quote == '"' and characters:
        yield prefix + "".join(characters[:-1]) + quote


def is_prefix(found, index):
    """Whether the operator stands before its only operand."""
    before = found[index - 1] if index > 0 else None
    if before is None or before.text in ("return", "case"):
        return True
    return before.kind == OPERATOR and before.text not in (")", "]")


def operator_changes(found, index):
    token = found[index]
    if token.is_spaced:
        for category, table in (("comparison", COMPARISONS), ("sign", SIGNS), ("logic", LOGIC)):
            for text in table.get(token.text, []):
                yield category, text
    for text in STEPS.get(token.text, []):
        yield "sign", text
    if token.text in PREFIXES and not token.is_spaced and is_prefix(found, index):
        yield "sign", ""


def siblings(found):
    """For each constant and each member that the file uses, another one it uses."""
    constants, members = [], []
    for before, token in zip([None] + found, found):
        if token.kind != WORD:
            continue
        if re.match(r"k[A-Z]\w*$", token.text) and token.text not in constants:
            constants.append(token.text)
        elif before is not None and before.text in (".", "->") and token.text not in members:
            members.append(token.text)
    others = {}
    for names in (constants, members):
        if len(names) > 1:
            others.update(zip(names, names[1:] + names[:1]))
    return others


def word_changes(found, index, others):
    token = found[index]
    for text in WORDS.get(token.text, []):
        yield "word", text
    for text in WIDTHS.get(token.text, []):
        yield "width", text
    before = found[index - 1].text if index > 0 else ""
    if token.text in others and (token.text.startswith("k") or before in (".", "->")):
        yield "name", others[token.text]


def token_faults(found):
    """(category, start, end, text) of every fault within one token."""
    others = siblings(found)
    for index, token in enumerate(found):
        if token.kind == NUMBER:
            changes = [("number", text) for text in neighbours(token.text)]
        elif token.kind in (TEXT, CHARACTER):
            changes = [("text", text) for text in changed_texts(token.text)]
        elif token.kind == OPERATOR:
            changes = operator_changes(found, index)
        else:
            changes = word_changes(found, index, others)
        for category, text in changes:
            yield category, token.start, token.end, text
