"""The mutants of one source file: every place where a fault can be planted, and what it becomes."""

import random
from dataclasses import dataclass
from pathlib import Path

from tests.mutate.operators import token_faults
from tests.mutate.structure import Structure
from tests.mutate.tokens import pairs, tokens, without_comments


@dataclass(frozen=True)
class Mutant:
    file: str       # below the sources' folder
    category: str
    start: int      # of the change in the file
    source: str     # the whole text without the fault
    end: int
    text: str       # what stands there instead

    @property
    def mutated(self):
        """The file with the fault. It has as many lines, because log lines carry their number."""
        lost = self.source.count("\n", self.start, self.end) - self.text.count("\n")
        return self.source[:self.start] + self.text + "\n" * lost + self.source[self.end:]

    @property
    def line(self):
        return self.source.count("\n", 0, self.start) + 1

    @property
    def before(self):
        """The changed lines, as one with single blanks: other lines may come and go."""
        return self._lines(self.source[self.start:self.end])

    @property
    def after(self):
        return self._lines(self.text)

    @property
    def key(self):
        return self.file, self.before, self.after

    def _lines(self, middle):
        first = self.source.rfind("\n", 0, self.start) + 1
        last = self.source.find("\n", self.end)
        start, end = self.source[first:self.start], self.source[self.end:last]
        return " ".join(without_comments(start + middle + end).split())


def proofs(found, partners):
    """(start, end) of what the compiler proves: a fault there changes no code."""
    return [(token.start, found[partners[index + 1]].end)
            for index, token in enumerate(found) if token.text == "static_assert"]


def mutants_of(file, source):
    found = tokens(source)
    partners = pairs(found)
    skipped = proofs(found, partners)
    made = {}
    for faults in (token_faults(found), Structure(source, found, partners).faults()):
        for category, start, end, text in faults:
            if any(first <= start < last for first, last in skipped):
                continue
            if text != source[start:end]:
                made.setdefault((start, end, text),
                                Mutant(file, category, start, source, end, text))
    return list(made.values())


def shuffled(mutants, rng):
    """In a random order in which each category has the same share as long as it lasts."""
    groups = {}
    for mutant in mutants:
        groups.setdefault(mutant.category, []).append(mutant)
    for group in groups.values():
        rng.shuffle(group)
    while groups:
        for category in rng.sample(sorted(groups), len(groups)):
            yield groups[category].pop()
            if not groups[category]:
                del groups[category]


def drawn(root, files, seed):
    """All mutants of all files, one of each file in turn."""
    rng = random.Random(seed)
    queues = {}
    for file in files:
        source = (Path(root) / file).read_text(encoding="utf-8")
        queues[file] = shuffled(mutants_of(file, source), random.Random(f"{seed} {file}"))
    while queues:
        for file in rng.sample(sorted(queues), len(queues)):
            mutant = next(queues[file], None)
            if mutant is None:
                del queues[file]
            else:
                yield mutant
