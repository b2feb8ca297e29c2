"""The package files of one architecture, below build/packages."""

import re
import subprocess
from pathlib import Path

ROOT = Path(__file__).parents[2]
FOLDER = ROOT / "build/packages"
CALLER = Path(__file__).with_name("caller.c")
NAMES = ("orvatool", "orvatool-standins", "liborvautil1", "liborvautil-dev")
VERSION, = re.findall(r"^project\(orvatool VERSION (\S+)",
                      (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"), re.MULTILINE)
# What caller.c prints, with the head of its log line cut as in the other tests.
CALLED = f"{VERSION} used\nInfo caller main: errors and infos: 4\n"


def called(output):
    """What caller.c printed, with the head of its log line cut."""
    return re.sub(r"^\[caller:[^]]*\] (\w+) \[(\w+) (\w+) \d+\]", r"\1 \2 \3", output,
                  flags=re.MULTILINE)


def path(name, architecture):
    """The file of a package."""
    return FOLDER / architecture / f"{name}_{VERSION}_{architecture}.deb"


def unpack(folder, architecture, *names):
    """Unpacks packages into a folder, without installing them."""
    for name in names:
        subprocess.run(["dpkg-deb", "-x", path(name, architecture), folder], check=True)


def changed(before, after):
    """What one state of a file system has and the other has not, or otherwise: path: (old, new)."""
    return {name: (before.get(name), after.get(name)) for name in before.keys() | after.keys()
            if before.get(name) != after.get(name)}
