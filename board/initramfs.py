"""Builds the terminal's initial RAM file system: packages, kernel modules, our own files."""

import os
import stat
import subprocess
from pathlib import Path

MODULES = (
    "xhci-pci", "usb-storage", "sd_mod",  # sticks
    "vfat", "nls_cp437", "nls_ascii",     # their file system
    "virtio_pci", "virtio_console",       # the port that the agent talks on
    "virtio_net",                         # eth0
    "fuse", "cuse",                       # character devices served by a program
)
PACKAGE_FILES = ("bin/busybox", "bin/dash", "lib/ld-linux.so.3", "lib/arm-linux-gnueabi/*")
FOLDERS = ("dev", "proc", "sys", "tmp", "mnt", "root", "sbin", "modules", "usr/bin", "usr/sbin",
           "usr/lib")
CONSOLE = (5, 1)  # major and minor number; init's standard streams, before /dev is mounted
GUEST_FILES = Path(__file__).parent / "guest"


class Archive:
    """A cpio archive in the "newc" form, which the kernel unpacks."""

    def __init__(self):
        self._parts = []
        self._folders = {""}
        self._count = 0

    def _add(self, name, mode, data=b"", device=(0, 0)):
        self._count += 1
        path = name.encode() + b"\0"
        fields = (self._count, mode, 0, 0, 1, 0, len(data), 0, 0, *device, len(path), 0)
        head = b"070701" + b"".join(b"%08X" % field for field in fields)
        for part in (head + path, data):
            self._parts.append(part + b"\0" * (-len(part) % 4))

    def folder(self, name):
        """Adds a folder and those above it, each once."""
        if name not in self._folders:
            self._folders.add(name)
            self.folder(os.path.dirname(name))
            self._add(name, stat.S_IFDIR | 0o755)

    def file(self, name, data, mode=0o755):
        """Adds a file and the folders above it."""
        self.folder(os.path.dirname(name))
        self._add(name, stat.S_IFREG | mode, data)

    def link(self, name, target):
        """Adds a symbolic link."""
        self.folder(os.path.dirname(name))
        self._add(name, stat.S_IFLNK | 0o777, target.encode())

    def character_device(self, name, device):
        """Adds a character device with a (major, minor) number."""
        self.folder(os.path.dirname(name))
        self._add(name, stat.S_IFCHR | 0o600, device=device)

    def copy(self, root, path):
        """Adds the file or link `path` at the same place as below the folder `root`."""
        name = str(path.relative_to(root))
        if path.is_symlink():
            self.link(name, os.readlink(path))
        elif path.is_file():
            self.file(name, path.read_bytes())

    def bytes(self):
        """The whole archive."""
        self._add("TRAILER!!!", 0)
        return b"".join(self._parts)


def kernel(root):
    """The kernel image among the unpacked packages."""
    image, = (root / "boot").glob("vmlinuz-*")
    return image


def module_files(root):
    """The module files in the order of loading, dependencies first."""
    release, = os.listdir(root / "lib/modules")
    answer = subprocess.run(
        ["modprobe", "-d", root, "-S", release, "--show-depends", "-a", *MODULES],
        check=True, stdout=subprocess.PIPE, text=True)
    loads = (line.split()[1] for line in answer.stdout.splitlines() if line.startswith("insmod"))
    return [Path(path) for path in dict.fromkeys(loads)]


def build(root):
    """The initial RAM file system, made of the unpacked packages below `root`."""
    archive = Archive()
    for name in FOLDERS:
        archive.folder(name)
    archive.character_device("dev/console", CONSOLE)
    for pattern in PACKAGE_FILES:
        for path in sorted(root.glob(pattern)):
            archive.copy(root, path)
    archive.link("bin/sh", "dash")
    archive.link("init", "sbin/init")
    for number, path in enumerate(module_files(root)):
        archive.file(f"modules/{number:02}-{path.name}", path.read_bytes(), 0o644)
    for path in sorted(GUEST_FILES.iterdir()):
        archive.file(f"sbin/{path.name}", path.read_bytes())
    return archive.bytes()
