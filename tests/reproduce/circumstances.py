"""Where, when and by whom the same sources are built: two ways that differ in all of it."""

import os
import tempfile
from dataclasses import dataclass
from pathlib import Path

from tests.support import succeeding

ROOT = Path(__file__).parents[2]
LEFT_OUT = ("./build", "./.git", "__pycache__")
LATER = ("faketime", "-f", "+400d")  # another day, month and year
TURKISH = "tr_TR.UTF-8"              # sorts otherwise than C, and has another small I


@dataclass(frozen=True)
class Circumstances:
    """The folder below a temporary one, what stands before each command, and what it runs in."""
    folder: str
    before: tuple
    umask: int
    variables: tuple


FIRST = Circumstances("a", (), 0o022, (("TZ", "UTC"), ("LC_ALL", "C"), ("HOME", "/root")))
SECOND = Circumstances("another/folder/that/is/deeper", LATER, 0o077,
                       (("TZ", "Asia/Kathmandu"), ("LC_ALL", TURKISH), ("HOME", "/nowhere"),
                        ("USER", "somebody")))


class Place:
    """A copy of the sources under some circumstances, for as long as it is entered."""

    def __init__(self, circumstances):
        self.circumstances = circumstances
        self._temporary = tempfile.TemporaryDirectory(prefix="reproduce-")
        self.sources = Path(self._temporary.name, circumstances.folder)

    def __enter__(self):
        self.sources.mkdir(parents=True)
        words = " ".join(f"--exclude={each}" for each in LEFT_OUT)
        succeeding.pipe(f'tar -c {words} . | tar -x -C "$1"', self.sources, cwd=ROOT)
        self._locales = Path(self._temporary.name, "locales")
        self._locales.mkdir()
        succeeding.run("localedef", "-i", "tr_TR", "-f", "UTF-8", self._locales / TURKISH)
        return self

    def __exit__(self, *_):
        self._temporary.cleanup()

    def run(self, *command):
        """Runs a command in the sources; it has to succeed."""
        succeeding.run(*self.circumstances.before, *command, cwd=self.sources, errors="replace",
                       umask=self.circumstances.umask,
                       env={"PATH": os.environ["PATH"], "LOCPATH": str(self._locales),
                            **dict(self.circumstances.variables)})

    def edit(self, name, old, new):
        """Changes a text of this copy of the sources."""
        path = self.sources / name
        text = path.read_text(encoding="utf-8")
        assert old in text, f"{name} has no {old}"
        path.write_text(text.replace(old, new), encoding="utf-8")


def both():
    """The two places."""
    return Place(FIRST), Place(SECOND)
