"""Power cuts, replayed: a stick as it is after each single sector of a run's recorded writes.

A state is good when every file and folder of before is there unchanged and nothing else is new but
the export folder; when what fsck.fat finds is about that folder, about lost clusters or about
notes that a mount keeps; and when repairing it leaves all this so, and nothing to find. Lost
clusters come back as files in the root, which is how fsck.fat keeps them.
"""

import mmap
import os
import random
import re
import subprocess
import tempfile
import time
from collections import Counter
from concurrent.futures import ProcessPoolExecutor
from contextlib import contextmanager
from dataclasses import dataclass, field
from functools import partial
from pathlib import Path

from board.fat import FAT12_BITS, FAT16_BITS, FAT32_BITS, Damaged, Volume
from board.recording import replayed
from board.sticks import SECTOR
from tests.support.tool import FOLDER_ON_STICK

DIRTY = {FAT12_BITS: 37, FAT16_BITS: 37, FAT32_BITS: 65}  # byte of the boot sector with the bit
REPAIR, LOOK = "-a", "-n"  # words of fsck.fat
REPAIRS = 2                # after which nothing is left to find, when the order is the kernel's,
REPAIRS_ANY_ORDER = 3      # and when the folder's record was written and its place in the table not
REPAIR_BOUND_S = 60
EXPORT = re.compile(FOLDER_ON_STICK)
EXPORT_OR_SAVED = re.compile(rf"{FOLDER_ON_STICK}|FSCK\d{{4}}\.REC")
# What it finds besides what is wrong in the export folder, and what it says in any case. Its other
# lines are details, and are indented.
NOTES = re.compile(
    r"Dirty bit is set\. .*|  65:01/00|"  # the bit in the boot sector, which has a backup
    r"FATs differ but appear to be intact\.|"
    r"Free cluster summary wrong \(\d+ vs\. really \d+\)|"
    r"Reclaimed \d+ unused clusters? \(\d+ bytes\) in \d+ chains?\.")
TALK = re.compile(
    r"fsck\.fat .*|\S+: \d+ files, \d+/\d+ clusters|Writing changes\.|"
    r"\*\*\* Filesystem was changed \*\*\*|"
    r"There are differences between boot sector and its backup\.|"
    r"This is mostly harmless\. Differences: .*|  (?!\d+:).*| Automatically .*|")


@dataclass
class Figures:
    """States, those that differ from the one before, those with faults; findings and faults.

    And the seconds that all this took.
    """

    states: int = 0
    distinct: int = 0
    faulty: int = 0
    findings: Counter = field(default_factory=Counter)
    faults: list = field(default_factory=list)
    took_s: float = 0

    def add(self, other):
        """Counts another part of the states in."""
        self.states += other.states
        self.distinct += other.distinct
        self.faulty += other.faulty
        self.findings += other.findings
        self.faults += other.faults
        self.took_s += other.took_s


def fsck(image, word):
    """Runs fsck.fat. Returns its status and what it found."""
    answer = subprocess.run(["fsck.fat", word, image], check=False, text=True, errors="replace",
                            timeout=REPAIR_BOUND_S, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT)
    return answer.returncode, [line for line in answer.stdout.splitlines()
                               if not TALK.fullmatch(line)]


class Examination:
    """Looks at states of one volume, in an image file that shows them to fsck.fat too."""

    def __init__(self, before, image, repairs):
        image.write_bytes(before)
        with open(image, "r+b") as file:
            self._shown = mmap.mmap(file.fileno(), 0)
        self._image = image
        self._repairs = repairs
        self._volume = Volume(self._shown)
        self._old = dict(self._volume.entries())
        self._old_links = self._links()
        self._old_boot_sector = self._boot_sector()
        self.figures = Figures()

    def _links(self):
        """What both tables say about the clusters of before."""
        return [self._volume.link(cluster, table) for table in range(self._volume.tables)
                for entry in self._old.values() for cluster in entry.clusters]

    def _boot_sector(self):
        """The first sector without the byte of the dirty bit."""
        dirty = DIRTY[self._volume.bits]
        return self._shown[:dirty] + self._shown[dirty + 1:SECTOR]

    def _faults(self, allowed):
        """What is wrong with what was on the stick before, and what is new but for the allowed."""
        try:
            now = dict(self._volume.entries(skip=[FOLDER_ON_STICK]))
        except Damaged as damage:
            return [str(damage)]
        different = [path for path in sorted(now.keys() | self._old.keys())
                     if now.get(path) != self._old.get(path) and not allowed.fullmatch(path)]
        if self._links() != self._old_links:
            different.append("the links of old files")
        if self._boot_sector() != self._old_boot_sector:
            different.append("the boot sector")
        return different

    def look_at(self, number, state):
        """Looks at a state, given as the first part of the volume: the rest never changes."""
        self._shown[:len(state)] = state
        faults = self._faults(EXPORT)
        if self._repairs:
            faults += self._repaired()
        self.figures.distinct += 1
        self.figures.faulty += bool(faults)
        self.figures.faults += [f"state {number}: {fault}" for fault in faults]

    def _repaired(self):
        """Repairs the volume. Returns what is wrong with that."""
        _, found = fsck(self._image, REPAIR)
        # Details are counted with their findings, and what stands there with its path.
        self.figures.findings.update({re.sub(r"\d+", "N", line).replace("clusters", "cluster")
                                      .replace("chains", "chain")
                                      for line in found if not line.startswith("  ")})
        faults = [line for line in found
                  if not (NOTES.fullmatch(line) or line.startswith(f"/{FOLDER_ON_STICK}"))]
        repairs = 1
        while (left := fsck(self._image, LOOK)) != (0, []):
            if repairs == self._repairs:
                faults += [f"not repaired: {left}"]
                break
            fsck(self._image, REPAIR)
            repairs += 1
        return faults + [f"after the repair: {fault}" for fault in self._faults(EXPORT_OR_SAVED)]

    def run(self, before, written, first, last):
        """Looks at the states after `first` to `last` - 1 sectors."""
        reach = max(place for place, _ in written) + SECTOR
        state = replayed(before[:reach], written[:first])
        for number in range(first, last):
            self.figures.states += 1
            if number > first:
                place, content = written[number - 1]
                if state[place:place + SECTOR] == content:
                    continue
                state[place:place + SECTOR] = content
            self.look_at(number, state)
        # What a repair changes lies in front of `reach`: else a later state was not what it is.
        if self._shown[reach:] != before[reach:]:
            self.figures.faults.append("a repair reached further than the writes")
        return self.figures


@contextmanager
def examination(before, repairs):
    """An examination with an image file of its own."""
    with tempfile.TemporaryDirectory(prefix="torn-") as folder:
        yield Examination(before, Path(folder) / "image", repairs)


def examine_part(before, written, repairs, first, last):
    """The figures of some of the states."""
    with examination(before, repairs) as part:
        return part.run(before, written, first, last)


def examine(before, written, repairs=REPAIRS):
    """The figures of all states: that of before, and one after each sector.

    So many repairs leave nothing to find; 0: nothing is repaired.
    """
    began_s = time.monotonic()
    processors = len(os.sched_getaffinity(0))
    edges = [part * (len(written) + 1) // processors for part in range(processors + 1)]
    figures = Figures()
    with ProcessPoolExecutor(processors) as pool:
        for part in pool.map(partial(examine_part, before, written, repairs), edges, edges[1:]):
            figures.add(part)
    figures.took_s = time.monotonic() - began_s
    return figures


def examine_any_order(before, written, count, seed):
    """The figures of states in which some sectors are written, whatever their order."""
    began_s = time.monotonic()
    chance = random.Random(seed)
    with examination(before, REPAIRS_ANY_ORDER) as states:
        for number in range(count):
            some = [each for each in written if chance.random() < 0.5]
            states.look_at(number, replayed(before, some))
        states.figures.states = count
        states.figures.took_s = time.monotonic() - began_s
        return states.figures


def examine_one(before, after):
    """The figures of one state, of which no more is known."""
    with examination(before, REPAIRS_ANY_ORDER) as state:
        state.look_at(0, after)
        return state.figures
