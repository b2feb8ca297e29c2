"""A fresh Debian 12 in a folder, for packages to be installed in. Needs root."""

import hashlib
import os
import re
import shutil
import subprocess
from pathlib import Path

from board.packages import cache
from tests.support.succeeding import run

SUITE = "bookworm"
# Beside the least that a system can be: what a program is built with.
TOOLS = ("gcc", "libc6-dev", "pkg-config")
# Of its own, so that nothing which the tool mounts is mounted on this machine.
NAMESPACE = ("unshare", "--mount", "--propagation", "private")
# What package management keeps for itself: its log, its caches, its lists and their older copies.
OWN_RECORDS = re.compile(r"var/(log|cache|lib/apt)/|var/lib/dpkg/(status|lock|triggers/)"
                         r"|etc/ld\.so\.cache$|tmp/")


class Refused(Exception):
    """This machine does not let a root be made or entered. The text is the reason."""


def archive():
    """The fresh root as an archive in the cache, made when it is not there."""
    kept = cache() / f"root-{SUITE}-{'-'.join(TOOLS)}.tar"
    if kept.is_file():
        return kept
    if not shutil.which("debootstrap"):
        raise Refused("debootstrap is missing; script/setup proof installs it")
    new = cache() / f"unfinished-root-{os.getpid()}"
    try:
        new.mkdir(parents=True)
        run(*NAMESPACE, "debootstrap", "--variant=minbase", f"--include={','.join(TOOLS)}", SUITE,
            new / "root")
        run("tar", "-cf", new / "tar", "--numeric-owner",
            "--exclude=./var/cache/apt/archives/*.deb", "--exclude=./var/lib/apt/lists/*_*",
            "-C", new / "root", ".")
        os.replace(new / "tar", kept)
    except AssertionError as fault:
        raise Refused(f"debootstrap: {str(fault).rstrip().splitlines()[-1]}") from fault
    except OSError as fault:
        raise Refused(f"nothing can be put into {cache()}: {fault.strerror}") from fault
    finally:
        shutil.rmtree(new, ignore_errors=True)
    return kept


class FreshRoot:
    """The unpacked root."""

    def __init__(self, folder):
        if os.geteuid() != 0:
            raise Refused("only root can make a fresh root")
        if subprocess.run((*NAMESPACE, "true"), capture_output=True, check=False).returncode != 0:
            raise Refused("mounting in a namespace of its own is refused here")
        self.folder = Path(folder)
        run("tar", "-xf", archive(), "--numeric-owner", "-C", self.folder)

    def run(self, command):
        """Runs a shell command in it, which has to succeed, and returns its output."""
        environment = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C",
                       "DEBIAN_FRONTEND": "noninteractive"}
        return run(*NAMESPACE, "chroot", self.folder, "sh", "-ec", command, env=environment)

    def state(self):
        """Each path with what it is: its mode, and its content or where it leads."""
        return {name: self._what(self.folder / name) for name in self._names()
                if not OWN_RECORDS.match(name)}

    def _names(self):
        for folder, folders, files in os.walk(self.folder):
            for name in folders + files:
                yield os.path.relpath(os.path.join(folder, name), self.folder)

    @staticmethod
    def _what(path):
        mode = oct(path.lstat().st_mode)
        if path.is_symlink():
            return mode, os.readlink(path)
        return mode, hashlib.sha256(path.read_bytes()).hexdigest() if path.is_file() else ""
