"""Downloads and unpacks the terminal's packages into a cache; nothing gets installed."""

import fcntl
import hashlib
import os
import shutil
import subprocess
import sys
import time
from pathlib import Path

LIST = Path(__file__).parent.parent / "script" / "packages"
KERNEL = "linux-image-armmp:armhf"  # an empty package: it only depends on the current kernel
PAUSES_S = (0, 5, 20)               # before each attempt


def cache():
    """The folder of everything that is downloaded, outside the source tree."""
    base = os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache"
    return Path(os.environ.get("ORVATOOL_CACHE") or Path(base) / "orvatool")


def wanted():
    """The package names with an architecture, in the order of the list."""
    lines = (line.partition("#")[0].strip() for line in LIST.read_text().splitlines())
    return [name for name in lines if ":" in name]


def unpacked():
    """Where the packages of the present list lie unpacked, once `fetch` has run."""
    key = hashlib.sha256("\n".join(wanted()).encode()).hexdigest()[:12]
    return cache() / f"terminal-{key}"


def root():
    """Where the packages lie, for those who need them."""
    if not unpacked().is_dir():
        sys.exit("board: the terminal's packages are missing; script/setup gets them")
    return unpacked()


def apt(state, tool, *words, **options):
    """Runs an apt tool on a state of its own, so that the machine's own stays as it is."""
    for folder in ("lists/partial", "archives/partial"):
        (state / folder).mkdir(parents=True, exist_ok=True)
    (state / "status").touch()
    settings = {
        "Dir::State": state,
        "Dir::State::Lists": state / "lists",
        "Dir::State::status": state / "status",
        "Dir::Cache": state,
        "APT::Architecture": "armhf",
        "APT::Architectures": "armhf,armel",
        "APT::Sandbox::User": "root",
    }
    flags = [word for key, value in settings.items() for word in ("-o", f"{key}={value}")]
    return subprocess.run([tool, *flags, *words], text=True, check=False, **options)


def kernel_package(state):
    """The package that holds the kernel and its modules, for want of it the one that names it."""
    answer = apt(state, "apt-cache", "depends", "--important", KERNEL, stdout=subprocess.PIPE)
    names = [line.split()[1] for line in answer.stdout.splitlines() if "Depends:" in line]
    return f"{names[0].partition(':')[0]}:armhf" if names else KERNEL


def download(state, folder):
    """Downloads every package into the folder. Returns the names that could not be had."""
    missing = wanted()
    for pause_s in PAUSES_S:
        time.sleep(pause_s)
        # An index that fails while its mirror is in the middle of a sync leaves the others.
        apt(state, "apt-get", "-q", "update")
        names = [kernel_package(state) if name == KERNEL else name for name in wanted()]
        if apt(state, "apt-get", "-q", "download", *names, cwd=folder).returncode == 0:
            return []
        missing = [name for name in names
                   if apt(state, "apt-get", "-q", "download", name, cwd=folder).returncode != 0]
        if not missing:
            return []
    return missing


def fetch():
    """Makes sure that the packages lie in the cache. Returns the names that are missing."""
    cache().mkdir(parents=True, exist_ok=True)
    with open(cache() / "lock", "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)  # two test runs may start at the same time
        if unpacked().is_dir():
            return []
        work = cache() / "unfinished"
        shutil.rmtree(work, ignore_errors=True)
        (work / "archives").mkdir(parents=True)
        (work / "root").mkdir()
        missing = download(work / "apt", work / "archives")
        if missing:
            return missing
        for archive in sorted((work / "archives").glob("*.deb")):
            subprocess.run(["dpkg-deb", "-x", archive, work / "root"], check=True)
        if not (work / "root/lib/modules").is_dir():
            return [KERNEL]
        release, = os.listdir(work / "root/lib/modules")
        subprocess.run(["depmod", "-b", work / "root", release], check=True)
        os.rename(work / "root", unpacked())
        shutil.rmtree(work)
    return []


if __name__ == "__main__":
    absent = fetch()
    for name in absent:
        print(f"script/setup: could not get the package {name}", file=sys.stderr)
    sys.exit(1 if absent else 0)
