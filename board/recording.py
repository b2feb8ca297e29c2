"""The emulator's record of the writes to a stick, made by its driver blklogwrites."""

import struct

from board.sticks import SECTOR

# A head of one sector, then for each write a sector that describes it and, unless it is a mere
# flush, the data.
HEAD, ENTRY = struct.Struct("<QQQI"), struct.Struct("<QQQQ")
MAGIC, VERSION = 0x6A736677736872, 1
DISCARD = 4


class Recorded:
    """A stick whose writes are recorded from when it is plugged in."""

    def __init__(self, stick):
        self._stick = stick
        self._record = stick.image.with_suffix(".record")
        self._record.write_bytes(b"")
        self.before = stick.image.read_bytes()
        self.names = stick.names

    def block_device(self, name):
        """The emulator's description of this stick as a block device."""
        device = self._stick.block_device(name)
        return device | {"file": {
            "driver": "blklogwrites", "log-sector-size": SECTOR, "file": device["file"],
            "log": {"driver": "file", "filename": str(self._record)}}}

    def written(self):
        """What `sectors` gives, once the stick was pulled out. All of it made the stick."""
        written = sectors(self._record.read_bytes())
        assert replayed(self.before, written) == self._stick.image.read_bytes(), \
            "what was recorded does not make the stick"
        return written


def sectors(record):
    """(place in bytes, content) of each sector that was written, in the order of writing."""
    magic, version, count, size = HEAD.unpack_from(record)
    assert (magic, version, size) == (MAGIC, VERSION, SECTOR), "no record of writes"
    written, place = [], SECTOR
    for _ in range(count):
        first, length, flags, _ = ENTRY.unpack_from(record, place)
        assert not flags & DISCARD, "nothing discards sectors of a stick"
        place += SECTOR
        for number in range(first, first + length):
            written.append((number * SECTOR, record[place:place + SECTOR]))
            place += SECTOR
    assert place == len(record), "the record does not end with its last write"
    return written


def replayed(before, written):
    """An image after these writes."""
    image = bytearray(before)
    for place, content in written:
        image[place:place + SECTOR] = content
    return image
