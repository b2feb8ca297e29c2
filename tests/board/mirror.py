"""A package mirror in a folder, which the real apt reads."""

import hashlib
import os
import subprocess

APT_SETTINGS = """\
Dir::Etc::main "/dev/null";
Dir::Etc::parts "/dev/null";
Dir::Etc::sourcelist "{folder}/sources.list";
Dir::Etc::sourceparts "/dev/null";
Acquire::Languages "none";
"""
CONTROL = """\
Package: {name}
Architecture: {architecture}
Version: {version}
Maintainer: Test <test@localhost>
Description: a package
"""


class FakeMirror:
    """Apt uses it once the variable APT_CONFIG names its `settings`."""

    def __init__(self, folder):
        self._folder = folder
        self._entries = {}
        (folder / "pool").mkdir(parents=True)
        self.settings = folder / "apt.conf"
        self.settings.write_text(APT_SETTINGS.format(folder=folder))
        self.use("pool")

    def use(self, *names):
        """Makes these folders the mirrors: `pool`, and others, which are not there."""
        (self._folder / "sources.list").write_text(
            "".join(f"deb [trusted=yes] file:{self._folder}/{name} ./\n" for name in names))

    def add(self, full_name, version, files=(), depends=""):
        """Adds a version of a package, with empty files. Returns the SHA-256 of its file."""
        name, architecture = full_name.split(":")
        tree = self._folder / "tree" / name / version
        for path in ("DEBIAN/control", f"usr/share/{name}-{version}", *files):
            (tree / path).parent.mkdir(parents=True, exist_ok=True)
            (tree / path).touch()
        control = CONTROL.format(name=name, architecture=architecture, version=version)
        if depends:
            control = f"Depends: {depends}\n{control}"
        (tree / "DEBIAN/control").write_text(control)
        file = self._folder / "pool" / f"{name}_{architecture}_{len(self._entries)}.deb"
        subprocess.run(["dpkg-deb", "--root-owner-group", "-b", tree, file], check=True,
                       env={**os.environ, "SOURCE_DATE_EPOCH": "0"},  # the same bytes each time
                       stdout=subprocess.DEVNULL)
        sha256 = hashlib.sha256(file.read_bytes()).hexdigest()
        self._entries[full_name, version] = (f"{control}Filename: ./{file.name}\n"
                                             f"Size: {file.stat().st_size}\n"
                                             f"SHA256: {sha256}\n")
        self._write_index()
        return sha256

    def remove(self, full_name, version):
        """Takes a version of a package off the mirror."""
        del self._entries[full_name, version]
        self._write_index()

    def _write_index(self):
        (self._folder / "pool/Packages").write_text("\n".join(self._entries.values()))
