"""USB sticks: disk images, written and read back without being root."""

import hashlib
import os
import re
import struct
import subprocess
from collections import Counter
from pathlib import Path

from board import partition_tables
from board.partition_tables import FIRST_SECTOR, SECTOR

MIB = 1024 * 1024
NOTES = "notes.txt"  # every stick that is FAT has a file already
# What makes each file system in an empty file.
FORMATS = {
    "fat12": ("mkfs.vfat", "--mbr=n", "-F", "12"),
    "fat16": ("mkfs.vfat", "--mbr=n", "-F", "16"),
    "fat32": ("mkfs.vfat", "--mbr=n", "-F", "32", "-s", "1"),  # with 33 MiB at least
    "ext4": ("mkfs.ext4", "-q", "-F"),
    "ntfs": ("mkntfs", "--quick", "--force"),
    "exfat": ("mkfs.exfat",),
    "zeros": ("true",),  # leaves it as it is
}
SHORT = {True: "fat16", False: "zeros"}


def _answer(*words, data=None):
    environment = {**os.environ, "MTOOLSRC": "/dev/null", "MTOOLS_SKIP_CHECK": "1"}
    return subprocess.run(words, input=data, env=environment, check=False,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)


def attempt(*words):
    """Runs a tool on an image that may be damaged, and returns what it prints."""
    return _answer(*words).stdout


def run(*words, data=None):
    """Runs a tool on an image, which has to succeed, and returns what it prints."""
    answer = _answer(*words, data=data)
    if answer.returncode != 0:
        raise AssertionError(f"{words}: {(answer.stdout + answer.stderr).decode()}")
    return answer.stdout


class Stick:
    """A stick of partitions: each a name from FORMATS, or True for FAT, or False for an empty one.

    Without partitions, the whole stick is one file system: FAT, or what `whole` says. With both,
    `whole` is left over from before the stick was partitioned.
    """

    def __init__(self, image, *partitions, whole=None, mib=16, gpt=False, options=(),
                 fault=None, read_only=False, slow=False):
        self.image = Path(image)
        self.fault = fault  # how the emulator's blkdebug fails
        self._read_only = read_only
        self._slow = slow
        self._partition_bytes = mib * MIB
        self._options = options
        self._formats = {number: SHORT.get(each, each)
                         for number, each in enumerate(partitions, 1)}
        if not partitions or whole:
            self._formats[0] = whole or "fat16"
        self._partitions = len(partitions)
        size = FIRST_SECTOR * SECTOR + max(1, len(partitions)) * self._partition_bytes
        with open(self.image, "wb") as file:
            file.truncate(size + gpt * MIB)  # its copy stands at the end
        for number in sorted(self._formats):
            self._format(number)
        if partitions:
            with open(self.image, "r+b") as file:
                write = partition_tables.write_gpt if gpt else partition_tables.write_mbr
                write(file, [(self._start(number) // SECTOR, self._partition_bytes // SECTOR,
                              number in self.fat()) for number in range(1, len(partitions) + 1)])

    def _start(self, number):
        return FIRST_SECTOR * SECTOR + (number - 1) * self._partition_bytes if number else 0

    def _bytes(self, number):
        return self._partition_bytes if number else self.image.stat().st_size

    def mib(self, number=0):
        """The size of a partition, or of the whole stick."""
        return self._bytes(number) // MIB

    def fat(self):
        """The numbers of the partitions that are FAT; 0 is the whole stick."""
        return [number for number, form in self._formats.items() if form.startswith("fat")]

    def _format(self, number):
        volume = self.image.with_suffix(".volume")
        with open(volume, "wb") as file:
            file.truncate(self._bytes(number))
        run(*FORMATS[self._formats[number]], *self._options, str(volume))
        self.put(0, volume.read_bytes(), number)
        volume.unlink()
        if number in self.fat():
            self.write(NOTES, b"mine", number)

    def put(self, offset, data, partition=0):
        """Writes bytes over those at an offset of a partition."""
        with open(self.image, "r+b") as file:
            file.seek(self._start(partition) + offset)
            file.write(data)

    def get(self, offset, size, partition=0):
        """Bytes at an offset of a partition."""
        with open(self.image, "rb") as file:
            file.seek(self._start(partition) + offset)
            return file.read(size)

    def truncate(self, mib):
        """Cuts the stick off, whatever is on it."""
        os.truncate(self.image, mib * MIB)

    def names(self, disk):
        """The devices that the kernel registers for this stick when it is the disk `disk`."""
        return [disk] + [f"{disk}{number}" for number in range(1, self._partitions + 1)]

    def block_device(self, name):
        """The emulator's description of this stick as a block device."""
        file = {"driver": "file", "filename": str(self.image)}
        if self.fault:
            file = {"driver": "blkdebug", "image": file, **self.fault}
        if self._slow:
            file = {"driver": "throttle", "throttle-group": "slow", "file": file}
        return {"driver": "raw", "node-name": name, "file": file, "read-only": self._read_only}

    def _volume(self, partition):
        return f"{self.image}@@{self._start(partition)}"

    def files(self, partition=0, tool=run):
        """The path of every file and folder; those of folders end in a slash."""
        listing = tool("mdir", "-i", self._volume(partition), "-b", "-/", "-a", "::")
        return [line.removeprefix("::/") for line in listing.decode().splitlines()]

    def read(self, path, partition=0):
        """The content of a file."""
        return run("mtype", "-i", self._volume(partition), f"::/{path}")

    def write(self, path, data, partition=0):
        """Writes a file into a folder that exists."""
        run("mcopy", "-i", self._volume(partition), "-", f"::/{path}", data=data)

    def make_folder(self, path, partition=0):
        """Makes a folder."""
        run("mmd", "-i", self._volume(partition), f"::/{path}")

    def set_read_only(self, path, partition=0):
        """Gives a file the attribute that forbids writing."""
        run("mattrib", "+r", "-i", self._volume(partition), f"::/{path}")

    def first_cluster(self, path, partition=0):
        """The number of the cluster in which a file or folder begins."""
        shown = run("mshowfat", "-i", self._volume(partition), f"::/{path}")
        return int(re.search(rb"<(\d+)", shown)[1])

    def tables(self, partition=0):
        """Where each table of clusters begins, and the bytes of one."""
        reserved, count, sectors = struct.unpack("<HB5xH", self.get(14, 10, partition))
        sectors = sectors or struct.unpack("<I", self.get(36, 4, partition))[0]  # FAT32
        return [(reserved + table * sectors) * SECTOR for table in range(count)], sectors * SECTOR

    def root_folder(self, partition=0):
        """Where the root folder begins, on FAT12 and FAT16."""
        tables, size = self.tables(partition)
        return tables[-1] + size

    def cluster_bytes(self, partition=0):
        """The size of a cluster."""
        sector_bytes, sectors = struct.unpack("<HB", self.get(11, 3, partition))
        return sector_bytes * sectors

    def fill(self, partition=0, but_clusters=0):
        """Fills the file system up to its last clusters."""
        summary = run("mdir", "-i", self._volume(partition), "::").decode().splitlines()[-2]
        free, text = summary.split("bytes")
        assert text == " free", summary
        left = but_clusters * self.cluster_bytes(partition)
        self.write("filler", bytes(int(free.replace(" ", "")) - left), partition)

    def _fsck(self, partition):
        volume = self.image.with_suffix(".volume")
        volume.write_bytes(self.get(0, self._bytes(partition), partition))
        answer = _answer("fsck.fat", "-n", str(volume))
        volume.unlink()
        return answer

    def check(self, partition=0):
        """Raises an error unless the file system is whole and was unmounted in order."""
        answer = self._fsck(partition)
        if answer.returncode != 0:
            raise AssertionError(answer.stdout.decode())

    def findings(self):
        """How often fsck.fat says what of which path, of each FAT file system."""
        found = Counter()
        for partition in self.fat():
            path = ""
            shown = self._fsck(partition).stdout.decode(errors="replace").splitlines()
            for line in shown[1:]:  # behind its version
                if line.startswith(str(self.image.parent)):
                    continue        # how much is in use
                path = line if line.startswith("/") else path if line.startswith("  ") else ""
                found[partition, path, line.strip()] += 1
        return found

    def digests(self):
        """What tells each file of the FAT file systems, and each other part as a whole."""
        found = {}
        for number in sorted(self._formats.keys() | {0}):
            if number in self.fat():
                for path in self.files(number, attempt):
                    content = b"" if path.endswith("/") else attempt(
                        "mtype", "-i", self._volume(number), f"::/{path}")
                    found[number, path] = hashlib.sha256(content).hexdigest()
            else:
                # In front of the first partition is the table.
                size = self._bytes(number) if number in self._formats else FIRST_SECTOR * SECTOR
                found[number, ""] = hashlib.sha256(self.get(0, size, number)).hexdigest()
        return found
