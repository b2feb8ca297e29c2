"""Gets the terminal's packages into a cache, downloaded and unpacked; nothing gets installed.

python3 -m board.packages [lock]: `lock` pins what the mirrors have today.
"""

import contextlib
import fcntl
import os
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

from board import lockfile
from board.lockfile import Package
from board.mirror import Mirror

PAUSES_S = (0, 5, 20)          # before each attempt
ASK_AGAIN_S = 7 * 24 * 60 * 60  # so old, a substitute is worth another look at the mirrors
NOTE = "substitutes.txt"       # in a substitute: what it has instead of what is pinned


class Unavailable(Exception):
    """A package could not be had, or is not what it has to be."""


class WrongContent(Unavailable):
    """A package of the pinned version has another content."""


def say(text):
    """Tells the user of script/setup."""
    print(f"script/setup: {text}", file=sys.stderr)


def cache():
    """The folder of everything that is downloaded, outside the source tree."""
    if folder := os.environ.get("ORVATOOL_CACHE"):
        return Path(folder)
    try:
        return Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache") / "orvatool"
    except RuntimeError:
        sys.exit("script/setup: this user has no home; ORVATOOL_CACHE names another cache folder")


def unpacked():
    """Where the packages lie unpacked that the present lock pins, once `fetch` got them."""
    return cache() / f"terminal-{lockfile.key()}"


def substitute():
    """Where others lie in their place, if the mirrors no longer had all of them."""
    return cache() / f"terminal-{lockfile.key()}-substitute"


def root():
    """Where the packages lie, for those who need them."""
    for folder in unpacked(), substitute():
        if folder.is_dir():
            return folder
    sys.exit("board: the terminal's packages are missing; script/setup gets them")


@contextlib.contextmanager
def work_folder():
    """An empty folder in the cache. Of two runs that start at the same time, one waits."""
    work = cache() / "unfinished"
    try:
        cache().mkdir(parents=True, exist_ok=True)
        lock = open(cache() / "lock", "w")
    except OSError as error:
        raise Unavailable(f"nothing can be put into {cache()}: {error.strerror}; ORVATOOL_CACHE"
                          " names another cache folder") from error
    with lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        shutil.rmtree(work, ignore_errors=True)
        (work / "archives").mkdir(parents=True)
        yield work
        shutil.rmtree(work)


def attempts():
    """Pauses before each attempt. Yields whether it is the last one."""
    for number, pause_s in enumerate(PAUSES_S, 1):
        time.sleep(pause_s)
        yield number == len(PAUSES_S)


def obtain(mirror, pin, folder, may_differ):
    """Downloads a pinned package, or the newest one when the mirrors do not list the pinned."""
    if pin.version in mirror.versions(pin.full_name):
        file = mirror.download(f"{pin.full_name}={pin.version}", folder)
        if file and Package.of(file) != pin:
            raise WrongContent(f"refused {pin}: its SHA-256 is {Package.of(file).sha256},"
                               f" the pinned one is {pin.sha256}")
    else:
        file = mirror.download_newest(pin.stands_for, folder) if may_differ else None
    if not file:
        raise Unavailable(f"could not get the package {pin}")
    return file


def gather(mirror, pins, folder):
    """Downloads all packages. Returns the file for each pin."""
    files = {}
    for is_last in attempts():
        # An index that fails while its mirror is in the middle of a sync leaves the others. What
        # they do not list may be in that one: worth another attempt.
        may_differ = mirror.update() or is_last
        faults = []
        for pin in pins:
            try:
                files[pin] = files.get(pin) or obtain(mirror, pin, folder, may_differ)
            except Unavailable as fault:
                say(fault)
                faults.append(type(fault))
        if not faults:
            return files
    kind = WrongContent if WrongContent in faults else Unavailable
    raise kind("the terminal's packages are not complete")


def unpack(files, folder):
    """Unpacks package files into a new folder."""
    folder.mkdir()
    for file in files:
        subprocess.run(["dpkg-deb", "-x", file, folder], check=True)
    if not (folder / "lib/modules").is_dir():
        raise Unavailable(f"the package of {lockfile.KERNEL} holds no kernel")
    release, = os.listdir(folder / "lib/modules")
    subprocess.run(["depmod", "-b", folder, release], check=True)


def download(work):
    """Downloads what is pinned, or substitutes, into the cache."""
    files = gather(Mirror(work / "apt"), lockfile.pinned(), work / "archives")
    unpack(files.values(), work / "root")
    others = {pin: Package.of(file) for pin, file in files.items() if Package.of(file) != pin}
    shutil.rmtree(substitute(), ignore_errors=True)
    if others:
        (work / "root" / NOTE).write_text("".join(
            f"the mirrors do not have the pinned {pin}; going on with {other}\n"
            for pin, other in others.items()))
    os.rename(work / "root", substitute() if others else unpacked())


def is_filled():
    """Whether there is nothing to do: such a cache may be read-only, or somebody else's."""
    note = substitute() / NOTE
    return unpacked().is_dir() or (
        note.is_file() and time.time() - note.stat().st_mtime <= ASK_AGAIN_S)


def fill():
    """Gets the packages, or substitutes, unless another run has just done so."""
    note = substitute() / NOTE
    is_old = note.is_file()
    try:
        with work_folder() as work:
            if is_filled():
                return
            if is_old:
                os.utime(note)
            download(work)
    except WrongContent:
        raise
    except Unavailable:
        if not is_old:
            raise  # else what is there will do


def fetch():
    """Makes sure that the packages lie in the cache, or substitutes, which it names."""
    lockfile.pinned()  # fits the list
    if not is_filled():
        fill()
    note = substitute() / NOTE
    if not unpacked().is_dir() and note.is_file():
        for sentence in note.read_text().splitlines():
            say(sentence)


def renew():
    """Pins what the mirrors have today."""
    with work_folder() as work:
        mirror = Mirror(work / "apt")
        files = {}
        for is_last in attempts():
            whole = mirror.update()
            if whole or is_last:  # what the failed index lists may be newer
                for name in lockfile.wanted():
                    files[name] = files.get(name) or mirror.download_newest(name, work / "archives")
                if all(files.values()):
                    break
        for name, file in files.items():
            if not file:
                raise Unavailable(f"could not get the package {name}; nothing is changed")
        if not whole:
            say("a package index failed; pinned is what the others list")
        lockfile.write(map(Package.of, files.values()))


if __name__ == "__main__":
    try:
        if sys.argv[1:] == ["lock"]:
            renew()
        fetch()
    except (Unavailable, lockfile.Mismatch) as error:
        say(error)
        sys.exit(1)
    except KeyboardInterrupt:
        say("interrupted")
        sys.exit(128 + signal.SIGINT)
