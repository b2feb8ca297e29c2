"""The calls of the product's functions, and the stack that each takes, told by the compiler.

The sources of the library are compiled once more, with the flags of a build folder and
-fcallgraph-info, which writes a graph for each: a node for a function with its frame, an edge for a
call.
"""

import json
import os
import pathlib
import re
import shlex
import subprocess
import tempfile
from collections import defaultdict
from concurrent.futures import ThreadPoolExecutor

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ("log", "splash", "udisk", "util")

# What a call through a pointer leads to; nothing of ours where the caller gives the function.
POINTER = "__indirect_call"
BEHIND_POINTERS = {
    "CopyFileContent": (),
    "CopyFolder": (),
    "RewriteText": ("ChrisTmToLocalTm", "LocalTmToChrisTm"),
    "UpdateSplashLogo": (),
}

NODE = re.compile(r'^node: \{ title: "([^"]*)" label: "(.*?)"(?: shape : ellipse)? \}$')
FRAME = re.compile(r"\\n(\d+) bytes \((.*)\)$")
EDGE = re.compile(r'^edge: \{ sourcename: "([^"]*)" targetname: "([^"]*)"')
INTERNAL = re.compile(r"_ZL|_ZN12_GLOBAL__N_1|(?!_Z)")  # the names that two sources may both have


def linked_name(title):
    """The name of a function as the linker knows it, with its source where only that knows it."""
    source, _, name = title.rpartition(":")
    if name.endswith(".localalias"):  # of an exported function, for calls in its own source
        return name.removesuffix(".localalias")
    name = re.sub(r"D1Ev$", "D2Ev", name.removeprefix("*"))  # two names of one destructor
    return f"{source}:{name}" if source and INTERNAL.match(name) else name


class Calls:
    """Frames in bytes, and what each function calls."""

    def __init__(self):
        self.frames = {}
        self.called = defaultdict(set)

    def add(self, graph):
        """Adds the graph of one source."""
        for line in graph.splitlines():
            if node := NODE.match(line):
                if frame := FRAME.search(node[2]):
                    name = linked_name(node[1])
                    if frame[2] != "static":
                        raise ValueError(f"{name}: a frame of no fixed size ({frame[2]})")
                    self.frames[name] = max(int(frame[1]), self.frames.get(name, 0))
            elif edge := EDGE.match(line):
                self.called[linked_name(edge[1])].update(self._targets(*edge.groups()))

    @staticmethod
    def _targets(source, target):
        if target != POINTER:
            return [linked_name(target)]
        found = [behind for name, behind in BEHIND_POINTERS.items() if name in source]
        if len(found) != 1:
            raise ValueError(f"{source} calls through a pointer: name in BEHIND_POINTERS what that"
                             f" leads to")
        return found[0]

    def is_ours(self, name):
        """Whether the sources define a function."""
        if name not in self.frames and name.startswith("_Z"):
            raise ValueError(f"no graph has the function {name}")
        return name in self.frames

    def depth(self, name, callers=()):
        """The bytes of our own frames on the deepest way through a function."""
        if name in callers:
            raise ValueError(f"{name} calls itself: its stack has no bound")
        if not self.is_ours(name):
            return 0
        below = [self.depth(each, (*callers, name)) for each in self.called[name]]
        return self.frames[name] + max(below, default=0)

    def reached(self, name):
        """The functions of ours to which a function may come."""
        own = {each for each in self.called[name] if self.is_ours(each)}
        return own.union(*(self.reached(each) for each in own))

    def outside(self, name, without=None):
        """The functions that are not ours to which a function may come, but by way of `without`."""
        if name == without:
            return set()
        if not self.is_ours(name):
            return {name}
        return set().union(*(self.outside(each, without) for each in self.called[name]))


def commands(build):
    """The folder and the words of the command that compiles each source of the library."""
    found = {}
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        source = pathlib.Path(entry["file"])
        if source.is_relative_to(ROOT) and source.relative_to(ROOT).parts[0] in FOLDERS:
            found.setdefault(source, (entry["directory"], shlex.split(entry["command"])))
    return list(found.values())


def read(build):
    """The calls of all sources of the library, compiled as in a build folder."""
    calls = Calls()
    with (tempfile.TemporaryDirectory() as work,
          ThreadPoolExecutor(os.cpu_count()) as workers):
        def graph(item):
            number, (folder, words) = item
            target = pathlib.Path(work) / f"{number}.o"
            words[words.index("-o") + 1] = str(target)
            subprocess.run([*words, "-fcallgraph-info=su"], cwd=folder, check=True)
            return target.with_suffix(".ci").read_text(encoding="utf-8")
        for text in workers.map(graph, enumerate(commands(build))):
            calls.add(text)
    return calls
