"""A reader of FAT volumes that shares no code with the kernel, fsck.fat or mtools."""

import hashlib
import struct
from dataclasses import dataclass

RECORD = 32
END, DELETED = 0x00, 0xE5            # first byte of a folder's record
VOLUME_LABEL, FOLDER, LONG_NAME = 0x08, 0x10, 0x0F
FAT12_CLUSTERS, FAT16_CLUSTERS = 4085, 65525  # from here on it is the next type
FAT12_BITS, FAT16_BITS, FAT32_BITS = 12, 16, 32
LINK_BITS = 28                       # of the 32
LINK = (1 << LINK_BITS) - 1
CASES, LOWER_STEM, LOWER_EXTENSION = 12, 0x08, 0x10
LAST_LONG = 0x40                     # in the number of the record that holds a name's end


class Damaged(Exception):
    """What the volume says about itself cannot be followed."""


@dataclass(frozen=True)
class Entry:
    """A file or a folder: everything that its record says, where it lies, and what it holds."""
    record: bytes
    clusters: tuple
    sha256: str = ""  # of a file


class Volume:
    """A volume in memory. It is read anew by each call, so it may change in between."""

    def __init__(self, image):
        self.image = image
        (self.sector, self._cluster_sectors, reserved, self.tables, root_records, sectors16,
         table_sectors16) = struct.unpack_from("<HBHBHHxH", image, 11)
        sectors32, table_sectors32 = struct.unpack_from("<II", image, 32)
        self._table_size = (table_sectors16 or table_sectors32) * self.sector
        self._tables_start = reserved * self.sector
        self._root_start = self._tables_start + self.tables * self._table_size
        self._root_size = root_records * RECORD
        self.data_start = self._root_start + -(-self._root_size // self.sector) * self.sector
        self.cluster = self._cluster_sectors * self.sector
        size = (sectors16 or sectors32) * self.sector
        self._clusters = (size - self.data_start) // self.cluster
        self.bits = (FAT12_BITS if self._clusters < FAT12_CLUSTERS
                     else FAT16_BITS if self._clusters < FAT16_CLUSTERS else FAT32_BITS)
        # On FAT32 the root folder is a chain like any other.
        self._root_cluster, = struct.unpack_from("<I", image, 44)

    def link(self, cluster, table=0):
        """What the file allocation table says about a cluster: the next one, or an end mark."""
        start = self._tables_start + table * self._table_size
        if self.bits == FAT12_BITS:
            pair, = struct.unpack_from("<H", self.image, start + cluster * 3 // 2)
            return pair >> 4 if cluster % 2 else pair & 0xFFF
        if self.bits == FAT16_BITS:
            return struct.unpack_from("<H", self.image, start + cluster * 2)[0]
        return struct.unpack_from("<I", self.image, start + cluster * 4)[0] & LINK

    def chain(self, cluster):
        """The clusters of a file or folder that begins at this one."""
        end_mark = (1 << min(self.bits, LINK_BITS)) - 8
        found = []
        while cluster < end_mark:
            if not 2 <= cluster < self._clusters + 2 or len(found) == self._clusters:
                raise Damaged(f"a chain leads to cluster {cluster} after {len(found)}")
            found.append(cluster)
            cluster = self.link(cluster)
        return tuple(found)

    def content(self, clusters):
        """The bytes of these clusters."""
        return b"".join(self.image[start:start + self.cluster] for start in
                        (self.data_start + (each - 2) * self.cluster for each in clusters))

    def _root(self):
        if self.bits == FAT32_BITS:
            return self.content(self.chain(self._root_cluster))
        return self.image[self._root_start:self._root_start + self._root_size]

    def entries(self, skip=(), folder=None, path=""):
        """Path and Entry of all files and folders, without what is below the folders to skip."""
        for name, record in records(self._root() if folder is None else folder):
            attributes, high, low, size = struct.unpack_from("<B8xH4xHI", record, 11)
            first = low | (high << 16 if self.bits == FAT32_BITS else 0)
            here = f"{path}/{name}" if path else name
            if attributes & FOLDER and here in skip:
                yield here, Entry(record, ())
                continue
            clusters = self.chain(first) if first else ()
            if attributes & FOLDER:
                yield here, Entry(record, clusters)
                yield from self.entries(skip, self.content(clusters), here)
            elif len(clusters) != -(-size // self.cluster):
                raise Damaged(f"{here}: {len(clusters)} clusters for {size} bytes")
            else:
                content = self.content(clusters)[:size]
                yield here, Entry(record, clusters, hashlib.sha256(content).hexdigest())


def records(folder):
    """Name and record of each file and folder in a folder's bytes, but "." and ".."."""
    long_name = ""
    for start in range(0, len(folder), RECORD):
        record = bytes(folder[start:start + RECORD])
        if record[0] == END:
            return
        if record[0] == DELETED:
            long_name = ""
        elif record[11] == LONG_NAME:  # pieces stand in front of their record, the last one first
            piece = (record[1:11] + record[14:26] + record[28:32]).decode("utf-16-le", "replace")
            long_name = piece.partition("\0")[0] + ("" if record[0] & LAST_LONG else long_name)
        else:
            name = long_name or short_name(record)
            long_name = ""
            if not record[11] & VOLUME_LABEL and record[0] != ord("."):
                yield name, record


def short_name(record):
    """The name that stands in the record itself, in capitals unless a bit says otherwise."""
    stem, extension = (part.decode("ascii", "replace").rstrip()
                       for part in (record[:8], record[8:11]))
    if record[CASES] & LOWER_STEM:
        stem = stem.lower()
    if record[CASES] & LOWER_EXTENSION:
        extension = extension.lower()
    return f"{stem}.{extension}" if extension else stem
