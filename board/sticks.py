"""USB sticks: disk images, written and read back without being root."""

import os
import struct
import subprocess
from pathlib import Path

SECTOR = 512
PARTITION_SECTORS = 32768  # 16 MiB
FIRST_SECTOR = 2048
TYPE_FAT16, TYPE_LINUX = 0x0E, 0x83
NOTES = "notes.txt"  # every stick that is FAT has a file already
PARTITION_TABLE = 446  # where it begins in the first sector


def run(*words, data=None):
    """Runs a tool on an image and returns what it prints."""
    environment = {**os.environ, "MTOOLSRC": "/dev/null", "MTOOLS_SKIP_CHECK": "1"}
    answer = subprocess.run(words, input=data, env=environment, check=False,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if answer.returncode != 0:
        raise AssertionError(f"{words}: {(answer.stdout + answer.stderr).decode()}")
    return answer.stdout


class Stick:
    """A stick of FAT partitions (True) and of others (False); no partitions: FAT on the whole."""

    def __init__(self, image, *partitions, fault=None, read_only=False):
        self.image = Path(image)
        self._fault = fault
        self._read_only = read_only
        self._partitions = len(partitions)
        sectors = FIRST_SECTOR + max(1, len(partitions)) * PARTITION_SECTORS
        with open(self.image, "wb") as file:
            file.truncate(sectors * SECTOR)
        if not partitions:
            run("mkfs.vfat", "--mbr=n", str(self.image))
            self.write(NOTES, b"mine")
            return
        for number, fat in enumerate(partitions, 1):
            if fat:
                self._format(number)
        self._write_table(partitions)

    def _first_sector(self, number):
        return FIRST_SECTOR + (number - 1) * PARTITION_SECTORS if number else 0

    def _format(self, number):
        run("mkfs.vfat", "-F", "16", "--offset", str(self._first_sector(number)),
            str(self.image), str(PARTITION_SECTORS * SECTOR // 1024))
        self.write(NOTES, b"mine", number)

    def _write_table(self, partitions):
        with open(self.image, "r+b") as file:
            file.seek(PARTITION_TABLE)
            for number, fat in enumerate(partitions, 1):
                file.write(struct.pack("<B3xB3xII", 0, TYPE_FAT16 if fat else TYPE_LINUX,
                                       self._first_sector(number), PARTITION_SECTORS))
            file.seek(SECTOR - 2)
            file.write(b"\x55\xaa")

    def names(self, disk):
        """The devices that the kernel registers for this stick when it is the disk `disk`."""
        return [disk] + [f"{disk}{number}" for number in range(1, self._partitions + 1)]

    def block_device(self, name):
        """The emulator's description of this stick as a block device."""
        file = {"driver": "file", "filename": str(self.image)}
        if self._fault:
            file = {"driver": "blkdebug", "image": file, "inject-error": [self._fault]}
        return {"driver": "raw", "node-name": name, "file": file, "read-only": self._read_only}

    def _volume(self, partition):
        return f"{self.image}@@{self._first_sector(partition) * SECTOR}"

    def files(self, partition=0):
        """The path of every file and folder; those of folders end in a slash."""
        listing = run("mdir", "-i", self._volume(partition), "-b", "-/", "-a", "::")
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

    def fill(self, partition=0):
        """Fills the file system up to its last cluster."""
        summary = run("mdir", "-i", self._volume(partition), "::").decode().splitlines()[-2]
        free, text = summary.split("bytes")
        assert text == " free", summary
        self.write("filler", bytes(int(free.replace(" ", ""))), partition)

    def check(self, partition=0):
        """Raises an error unless the file system is whole and was unmounted in order."""
        start = self._first_sector(partition) * SECTOR
        with open(self.image, "rb") as file:
            file.seek(start)
            content = file.read(PARTITION_SECTORS * SECTOR if partition else -1)
        volume = self.image.with_suffix(".volume")
        volume.write_bytes(content)
        run("fsck.fat", "-n", str(volume))
        volume.unlink()
