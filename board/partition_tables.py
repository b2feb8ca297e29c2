"""Partition tables of disk images, old and new: where partitions begin, and of what kind."""

import struct
import uuid
import zlib

SECTOR = 512
FIRST_SECTOR = 2048    # of the first partition, as usual tools have it
TABLE = 446            # where the old table begins in the first sector
SIGNATURE = b"\x55\xaa"
FAT, OTHER = 0x0E, 0x83
WHOLE_DISK = 0xEE      # what the old table says of a disk that has the new one
ENTRIES, ENTRY_BYTES = 128, 128
ENTRIES_SECTORS = ENTRIES * ENTRY_BYTES // SECTOR
DATA = uuid.UUID("ebd0a0a2-b9e5-4433-87c0-68b6b72699c7").bytes_le


def _old_entry(kind, first, sectors):
    return struct.pack("<B3xB3xII", 0, kind, first, sectors)


def write_mbr(file, partitions):
    """Writes the table in the first sector: up to four (first sector, sectors, is FAT)."""
    file.seek(TABLE)
    for first, sectors, is_fat in partitions:
        file.write(_old_entry(FAT if is_fat else OTHER, first, sectors))
    file.seek(SECTOR - len(SIGNATURE))
    file.write(SIGNATURE)


def _header(here, other, entries_at, last, checksum):
    """The header that stands in sector `here`; another one is in sector `other`."""
    def fields(own_checksum):
        return struct.pack("<8s4sIIIQQQQ16sQIII", b"EFI PART", b"\0\0\1\0", 92, own_checksum,
                           0, here, other, FIRST_SECTOR, last - ENTRIES_SECTORS - 1,
                           uuid.UUID(int=1).bytes_le, entries_at, ENTRIES, ENTRY_BYTES, checksum)
    return fields(zlib.crc32(fields(0)))


def write_gpt(file, partitions):
    """Writes the GUID partition table, at both ends of the disk."""
    last = file.seek(0, 2) // SECTOR - 1
    file.seek(TABLE)
    file.write(_old_entry(WHOLE_DISK, 1, last))
    file.seek(SECTOR - len(SIGNATURE))
    file.write(SIGNATURE)
    entries = b"".join(
        struct.pack("<16s16sQQ80x", DATA, uuid.UUID(int=number).bytes_le, first,
                    first + sectors - 1)
        for number, (first, sectors, _) in enumerate(partitions, 2))
    entries = entries.ljust(ENTRIES * ENTRY_BYTES, b"\0")
    for here, other, entries_at in (1, last, 2), (last, 1, last - ENTRIES_SECTORS):
        file.seek(entries_at * SECTOR)
        file.write(entries)
        file.seek(here * SECTOR)
        file.write(_header(here, other, entries_at, last, zlib.crc32(entries)))
