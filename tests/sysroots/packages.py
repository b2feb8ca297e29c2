"""Sysroots made of Debian's packages, in the cache; nothing gets installed.

    python3 -B -m tests.sysroots.packages NAME     gets one, or says why not
"""

import os
import sys

from board import lockfile, packages
from board.mirror import Mirror
from tests.support import succeeding

SYSROOTS = {
    "glibc": ("libc6:armel", "libc6-dev:armel", "linux-libc-dev:armel"),
    "musl": ("musl:armel", "musl-dev:armel"),
}


def download(names, work):
    """The files of the newest packages of these names."""
    mirror = Mirror(work / "apt")
    for _ in packages.attempts():
        mirror.update()  # whether all of them can be had is what counts
        files = {name: mirror.download_newest(name, work / "archives") for name in names}
        if all(files.values()):
            return list(files.values())
    lacking = ", ".join(name for name, file in files.items() if not file)
    raise packages.Unavailable(f"could not get the package {lacking}")


def unpack(files, folder):
    """Unpacks package files into a new folder, laid out as an installed system."""
    (folder / "usr/lib").mkdir(parents=True)
    (folder / "lib").symlink_to("usr/lib")
    for file in files:
        # As tar unpacks by itself, the link would become a folder.
        succeeding.pipe('dpkg-deb --fsys-tarfile "$1" | tar -x --keep-directory-symlink', file,
                        cwd=folder)


def sysroot(name):
    """The folder of a sysroot, which is filled when it is missing."""
    names = SYSROOTS[name]
    if unlisted := set(names) - set(lockfile.wanted() + lockfile.wanted("proof")):
        raise packages.Unavailable(f"script/packages does not list {', '.join(unlisted)}")
    folder = packages.cache() / f"sysroot-{'+'.join(names).replace(':armel', '')}"
    if not folder.is_dir():
        with packages.work_folder() as work:
            unpack(download(names, work), work / "root")
            if not folder.is_dir():  # another run may have been quicker
                os.rename(work / "root", folder)
    return folder


def main(name):
    """Returns the exit status."""
    try:
        sysroot(name)
    except packages.Unavailable as fault:
        print(f"script/sysroot: {fault}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
