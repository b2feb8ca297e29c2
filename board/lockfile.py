"""The terminal's packages: script/packages names them, script/packages.lock pins their content."""

import hashlib
import os
import re
import subprocess
from dataclasses import dataclass
from pathlib import Path

LIST = Path(__file__).parent.parent / "script" / "packages"
LOCK = LIST.with_suffix(".lock")
# An empty package that only depends on the current kernel; that one has its version in its name.
KERNEL = "linux-image-armmp:armhf"
KERNEL_IMAGE = re.compile(r"linux-image-\d.*-armmp:armhf")
HEAD = """\
# The emulated terminal's packages: name, architecture, version, SHA-256 of the package file.
# `script/setup lock` writes this file anew.
"""


class Mismatch(Exception):
    """The lock does not pin the packages of the list, one by one."""


@dataclass(frozen=True, order=True)
class Package:
    """One version of a package, with the content of its file."""
    name: str
    architecture: str
    version: str
    sha256: str

    @property
    def full_name(self):
        """The name with the architecture, as script/packages and apt have it."""
        return f"{self.name}:{self.architecture}"

    @property
    def stands_for(self):
        """The entry of script/packages that brings this package."""
        return KERNEL if KERNEL_IMAGE.fullmatch(self.full_name) else self.full_name

    @classmethod
    def of(cls, file):
        """The package in a file."""
        form = "${Package} ${Architecture} ${Version}"
        answer = subprocess.run(["dpkg-deb", "-W", f"--showformat={form}", file], check=True,
                                text=True, stdout=subprocess.PIPE)
        return cls(*answer.stdout.split(), hashlib.sha256(file.read_bytes()).hexdigest())

    def __str__(self):
        return f"{self.full_name} {self.version}"


def lines(path):
    """The lines of a file without comments and empty ones."""
    stripped = (line.partition("#")[0].strip() for line in path.read_text().splitlines())
    return [line for line in stripped if line]


def wanted(*words):
    """The package names with an architecture and exactly these words, in the order of the list."""
    entries = (line.split() for line in lines(LIST))
    return [name for name, *more in entries if ":" in name and more == list(words)]


def pinned():
    """The packages of the lock."""
    packages = [Package(*line.split()) for line in lines(LOCK)]
    if sorted(package.stands_for for package in packages) != sorted(wanted()):
        raise Mismatch(f"{LOCK.name} does not pin the packages of script/{LIST.name};"
                       " `script/setup lock` writes it anew")
    return packages


def key():
    """A short name of the lock's content."""
    return hashlib.sha256(LOCK.read_bytes()).hexdigest()[:12]


def write(packages):
    """Replaces the lock."""
    entries = (f"{package.name} {package.architecture} {package.version} {package.sha256}\n"
               for package in sorted(packages))
    new = LOCK.with_suffix(".new")
    new.write_text(HEAD + "".join(entries))
    os.replace(new, LOCK)
