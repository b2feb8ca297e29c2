"""Compiles the sources that see a mutant, as the build folder compiles them."""

import json
import shlex
import subprocess
from pathlib import Path


class Compiler:
    def __init__(self, root, build):
        self.root = Path(root)
        self.build = Path(build)
        self.commands = {}  # for each object its command
        entries = json.loads((self.build / "compile_commands.json").read_text(encoding="utf-8"))
        for entry in entries:
            words = shlex.split(entry["command"])
            self.commands[words[words.index("-o") + 1]] = words
        self.includes = self.read_includes()

    def read_includes(self):
        """For each object the files of the tree that it is made of."""
        printed = subprocess.run(["ninja", "-C", self.build, "-t", "deps"], check=True,
                                 capture_output=True, text=True).stdout
        found = {}
        for line in printed.splitlines():
            if line and not line.startswith(" "):
                name = line.split(":")[0]
                found[name] = set()
            elif line.strip():
                path = (self.build / line.strip()).resolve()
                if path.is_relative_to(self.root):
                    found[name].add(str(path.relative_to(self.root)))
        return found

    def objects_of(self, file):
        """The objects that are made with the file."""
        return [name for name in self.commands if file in self.includes.get(name, ())]

    def compile(self, name, folder, output):
        """Compiles for one object; files in folder stand before those of the tree."""
        words = self.commands[name]
        while not words[0].endswith("++") and not words[0].endswith("cc"):
            words = words[1:]  # a launcher, as ccache
        source = Path(words[words.index("-c") + 1])
        changed = folder / source.relative_to(self.root)
        output.parent.mkdir(parents=True, exist_ok=True)
        options = [str(output) if before == "-o" else word
                   for before, word in zip(words, words[1:]) if "-c" not in (before, word)]
        command = [words[0], f"-I{folder}", *options, "-w", "-pipe",
                   "-c", changed if changed.exists() else source]
        run = subprocess.run(command, cwd=self.build, capture_output=True, check=False,
                             timeout=300)
        return run.returncode == 0
