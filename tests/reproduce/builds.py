"""Builds the same sources twice and compares every file that people get, byte by byte.

    python3 -B -m tests.reproduce.builds      writes build/figures/reproduce.tsv
"""

import os
import sys
from pathlib import Path

from board import figures
from tests.reproduce import circumstances

# What the README says, and the same for the terminal.
PLAIN = ("cmake", "-S", ".", "-B", "build")
ARM = (*PLAIN, "--toolchain", "cmake/arm-linux-gnueabi.cmake", "-DCMAKE_BUILD_TYPE=MinSizeRel")
INSTALLED = "installed"  # the folder of what is installed


def build(place, configure=PLAIN):
    """The folders of what a build gives: programs, libraries, and what is installed."""
    place.run(*configure)
    place.run("cmake", "--build", "build", "--parallel", os.cpu_count())
    place.run("env", f"DESTDIR=build/{INSTALLED}", "cmake", "--install", "build",
              "--prefix", "/usr")
    return [place.sources / "build" / folder for folder in ("bin", "lib", INSTALLED)]


def build_arm(place):
    """The same for the terminal."""
    return build(place, ARM)


def package(place):
    """The Debian packages of both architectures, and what they hold."""
    for architecture in ("amd64", "armel"):
        place.run("packaging/build_debian", architecture, f"build/packages/{architecture}")
        folder = place.sources / "build/packages" / architecture
        place.run("mkdir", "-p", f"build/{INSTALLED}")
        for file in sorted(folder.glob("*.deb")):
            place.run("dpkg-deb", "-x", file, f"build/{INSTALLED}/{file.stem}")
        for file in folder.iterdir():
            if file.suffix in (".buildinfo", ".changes", ".log"):  # they tell how it was built
                file.unlink()
    return [place.sources / "build" / folder for folder in ("packages", INSTALLED)]


def mode(path, folder):
    """The mode of an installed file; in a build folder it is as the umask has it."""
    return path.stat().st_mode if folder.name == INSTALLED else None


def files_of(folders):
    """Each file below the folders: its name, with its mode if it is installed, and its content."""
    return {str(path.relative_to(folder.parent)): (mode(path, folder), path.read_bytes())
            for folder in folders for path in sorted(folder.rglob("*"))
            if path.is_file() and not path.is_symlink()}


class Comparison:
    """Two builds of one kind."""

    def __init__(self, builder=build, prepare=lambda place: None):
        first, second = circumstances.both()
        with first, second:
            builds = []
            for place in first, second:
                prepare(place)
                builds.append(files_of(builder(place)))
            paths = [os.fsencode(place.sources) for place in (first, second)]
        one, other = builds
        self.files = len(one)
        self.differences = sorted(name for name in one.keys() | other.keys()
                                  if one.get(name) != other.get(name))
        self.paths = sum(content.count(path)
                         for each in builds for _, content in each.values() for path in paths)


def main():
    """Returns the exit status."""
    table, status = {}, 0
    for name, builder in (("README's build", build), ("ARM build", build_arm),
                          ("Debian packages", package)):
        found = Comparison(builder)
        for file in found.differences:
            print(f"{name}: {file} is another when it is built elsewhere", file=sys.stderr)
        if found.paths:
            print(f"{name}: names the folder of the sources {found.paths} times", file=sys.stderr)
        if found.differences or found.paths or not found.files:
            status = 1
        table[f"built twice, {name}: files compared"] = found.files
        table[f"built twice, {name}: differences, paths of the sources"] = (
            f"{len(found.differences)}, {found.paths}")
    figures.write("reproduce", table)
    return status


if __name__ == "__main__":
    sys.exit(main())
