"""The faults of statements: conditions turned, calls and assignments lost, arguments swapped."""

from tests.mutate.tokens import OPERATOR, WORD

CONTROLS = ("if", "while", "for", "switch")
ASSIGNMENTS = ("=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>=")
NO_EXPRESSION = frozenset("""
    alignas auto break case class const constexpr continue default delete do else enum explicit
    extern for friend goto if inline namespace operator private protected public return static
    static_assert struct switch template typedef typename union using virtual volatile while
    """.split())
NO_CALL = frozenset((*CONTROLS, "sizeof", "decltype", "return", "alignof", "defined"))
NEGATED = ("==", "!=", "<", "<=", ">", ">=", "&&", "||")


class Structure:
    """The statements and calls of one file."""

    def __init__(self, source, found, partners):
        self.source = source
        self.found = found
        self.partners = partners
        self.blocks = {index for index in range(len(found)) if self.opens_block(index)}

    def text(self, first, last):
        return self.source[self.found[first].start:self.found[last].end]

    def is_operator(self, index, *texts):
        return (0 <= index < len(self.found) and self.found[index].kind == OPERATOR
                and self.found[index].text in texts)

    def opens_block(self, index):
        """Whether it is the brace of code: a function's body, or what a condition guards."""
        if not self.is_operator(index, "{"):
            return False
        before = self.found[index - 1].text if index > 0 else ""
        return before in (")", "else", "do", ";", "]]") or (
            before == "]" and self.is_operator(index - 2, "]"))

    def statement_starts(self):
        for start in sorted(self.blocks):
            index = start + 1
            is_first = True
            while index < self.partners[start]:
                if is_first:
                    yield index
                    is_first = False
                if self.is_operator(index, "(", "[", "{"):
                    closing = self.partners[index]
                    is_header = self.found[index - 1].text in CONTROLS
                    is_first = self.is_operator(closing, "}") or is_header
                    index = closing
                elif self.is_operator(index, ";") or self.found[index].text in ("else", "do"):
                    is_first = True
                index += 1

    def end_of(self, index):
        """The semicolon that ends the statement, or None."""
        while index < len(self.found):
            if self.is_operator(index, "(", "[", "{"):
                index = self.partners[index]
            elif self.is_operator(index, ";"):
                return index
            elif self.is_operator(index, "}"):
                return None
            index += 1
        return None

    def is_expression(self, index):
        """Whether a statement that starts here only computes: no declaration, no jump."""
        if self.found[index].kind == OPERATOR:
            return self.is_operator(index, "*", "++", "--", "(")
        if self.found[index].kind != WORD or self.found[index].text in NO_EXPRESSION:
            return False
        while self.is_operator(index + 1, "::"):
            index += 2
        return self.is_operator(index + 1, "(", "[", ".", "->", "++", "--", *ASSIGNMENTS)

    def lost_statements(self):
        for start in self.statement_starts():
            end = self.end_of(start)
            if end is None:
                continue
            is_lone_return = self.found[start].text == "return" and end == start + 1
            if self.is_expression(start) or self.found[start].text == "break" or is_lone_return:
                yield "removal", self.found[start].start, self.found[end].end, ";"

    def lost_clearings(self):
        for index in range(len(self.found) - 3):
            if self.is_operator(index, "=") and self.is_operator(index + 1, "{") and (
                    self.is_operator(index + 2, "}") and self.is_operator(index + 3, ";")):
                yield "clearing", self.found[index - 1].end, self.found[index + 2].end, ""

    def lost_branches(self):
        for index, token in enumerate(self.found):
            if token.text == "else" and self.is_operator(index + 1, "{"):
                end = self.found[self.partners[index + 1]].end
                yield "removal", token.start, end, ""

    def conditions(self):
        """(first, last) token of each condition of if, while and for."""
        for index, token in enumerate(self.found):
            if token.text not in ("if", "while", "for") or not self.is_operator(index + 1, "("):
                continue
            first, last = index + 2, self.partners[index + 1] - 1
            if token.text == "for":
                parts = [i for i in range(first, last + 1) if self.is_operator(i, ";")]
                if len(parts) != 2:
                    continue
                first, last = parts[0] + 1, parts[1] - 1
            if first <= last:
                yield token.text, first, last

    def turned_conditions(self):
        for keyword, first, last in self.conditions():
            start, end = self.found[first].start, self.found[last].end
            yield "condition", start, end, f"!({self.text(first, last)})"
            yield "condition", start, end, "false"
            if keyword == "if":
                yield "condition", start, end, "true"

    def swapped_choices(self):
        """`a ? b : c` with b and c swapped, where both are short."""
        for index in range(len(self.found)):
            if not self.is_operator(index, "?"):
                continue
            colon = self.next_at_level(index + 1, (":",))
            end = colon and self.next_at_level(colon + 1, (",", ";", ":"))
            if end:
                swapped = f"{self.text(colon + 1, end - 1)} : {self.text(index + 1, colon - 1)}"
                yield ("result", self.found[index + 1].start, self.found[end - 1].end, swapped)

    def next_at_level(self, index, texts):
        """The next such operator, or the bracket that closes this level."""
        while index < len(self.found):
            if self.is_operator(index, *texts, ")", "]", "}"):
                return index
            index = self.partners[index] if self.is_operator(index, "(", "[", "{") else index
            index += 1
        return None

    def other_results(self):
        for index, token in enumerate(self.found):
            if token.text != "return":
                continue
            first, end = index + 1, self.end_of(index)
            if end is None or end - first < 2:
                continue
            start, stop = self.found[first].start, self.found[end - 1].end
            if any(self.is_operator(i, *NEGATED) and self.found[i].is_spaced
                   for i in range(first, end)):
                yield "result", start, stop, f"!({self.text(first, end - 1)})"
            else:
                yield "result", start, stop, "{}"

    def lists(self):
        """(opening bracket, [(first, last) of each part]) of calls and of lists in braces."""
        for index, partner in self.partners.items():
            if index > partner or index in self.blocks:
                continue
            is_call = (self.is_operator(index, "(") and index > 0
                       and (self.found[index - 1].kind == WORD or self.is_operator(index - 1, ">"))
                       and self.found[index - 1].text not in NO_CALL)
            if not is_call and not self.is_operator(index, "{"):
                continue
            parts, first, i = [], index + 1, index + 1
            while i <= partner:
                if i == partner or self.is_operator(i, ","):
                    if first < i:
                        parts.append((first, i - 1))
                    first = i + 1
                elif self.is_operator(i, "(", "[", "{"):
                    i = self.partners[i]
                elif self.is_operator(i, ";"):
                    parts = []  # a body, not a list
                    break
                i += 1
            yield index, parts

    def swapped_arguments(self):
        for _, parts in self.lists():
            for (first, last), (next_first, next_last) in zip(parts, parts[1:]):
                one, other = self.text(first, last), self.text(next_first, next_last)
                if one != other:
                    yield ("swap", self.found[first].start, self.found[next_last].end,
                           f"{other}, {one}")

    def bare_arguments(self):
        """f(x) as x alone: a conversion, a rounding, a limit that is lost."""
        for index, parts in self.lists():
            if len(parts) == 1 and self.is_operator(index, "(") and (
                    self.found[index - 1].kind == WORD) and not self.is_named_before(index - 1):
                end = self.found[self.partners[index]].end
                yield ("removal", self.found[index - 1].start, end,
                       f"({self.text(*parts[0])})")

    def is_named_before(self, index):
        """Whether a type or an object stands before the name: a declaration, a member's call."""
        before = self.found[index - 1]
        if before.kind == WORD:
            return before.text not in ("return", "else", "case", "do")
        return before.text in (".", "->", "::") or (before.text in "*&" and not before.is_spaced
                                                    and self.found[index].start == before.end + 1)

    def faults(self):
        """(category, start, end, text) of every fault of a statement."""
        yield from self.lost_statements()
        yield from self.lost_clearings()
        yield from self.lost_branches()
        yield from self.turned_conditions()
        yield from self.swapped_choices()
        yield from self.other_results()
        yield from self.swapped_arguments()
        yield from self.bare_arguments()
