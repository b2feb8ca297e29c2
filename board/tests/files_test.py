"""Copies of files onto a FAT stick, and how full it is."""

from board.tests.support.library import LibraryTest
from board.sticks import NOTES

STICK = "/mnt/stick"
CLUSTER = 2048
BLOCK = 16384  # of both copies
CONTENT = bytes(i * i // 7 % 256 for i in range(2 * BLOCK + 5000))
FREE = BLOCK + 2 * CLUSTER  # what is left on the nearly full stick: a block and a page
SHORT_WRITE = "Warning fileutils FileCopy: Write picture data error!\nresult -1\n"
NO_SPACE = "Warning fileutils FileCopy: No space left on device\n"


def copied(source_size, size):
    """What FileCopy says of a copy that it calls whole."""
    error = "" if source_size == size else "Warning fileutils FileCopy: file size error\n"
    return (f"Debug fileutils FileCopy: src file size:{source_size} dst file size:{size}\n"
            f"{error}result 1\n")


class Files(LibraryTest):

    def plug(self, free=None):
        """Mounts a stick, empty or with so much space left. Returns it."""
        stick = self.stick(True)
        if free is not None:
            stick.fill(1)
        self.terminal.plug(stick)
        self.terminal.check(f"mkdir {STICK} && mount -t vfat /dev/sda1 {STICK}")
        if free:
            self.terminal.check(
                f"cd {STICK} && truncate -s $(($(stat -c %s filler) - {free})) filler")
        return stick

    def source(self, size):
        """A file on the RAM disk with the first bytes of the content."""
        path = f"/tmp/source{size}"
        self.terminal.write(path, CONTENT[:size])
        return path

    def assert_on_stick(self, stick, name, content):
        """The file has this content on the stick itself, whose file system is in order."""
        self.terminal.check(f"umount {STICK}")
        self.assertEqual(stick.read(name, 1), content)
        stick.check(1)

    def test_copy(self):
        stick = self.plug()
        self.assertEqual(self.call("FileCopy", f"{STICK}/new", self.source(len(CONTENT))),
                         copied(len(CONTENT), len(CONTENT)))
        self.assert_on_stick(stick, "new", CONTENT)

    def test_copy_appends(self):
        stick = self.plug()
        self.assertEqual(self.call("FileCopy", f"{STICK}/{NOTES}", self.source(3000)),
                         copied(3000, 3004))
        self.assert_on_stick(stick, NOTES, b"mine" + CONTENT[:3000])

    def test_copy_of_an_empty_file(self):
        stick = self.plug(free=0)
        self.assertEqual(self.call("FileCopy", f"{STICK}/new", self.source(0)), copied(0, 0))
        self.assertEqual(self.call("CopyFileContent", f"{STICK}/other", self.source(0)),
                         "result 1\n")
        self.assertEqual(self.terminal.read(f"{STICK}/other"), "")
        self.assert_on_stick(stick, "new", b"")

    def test_long_name(self):
        stick = self.plug()
        name = "A Rather Long Name, " * 10 + ".tail.of.it"
        self.assertEqual(self.call("FileCopy", f"{STICK}/{name}", self.source(7)), copied(7, 7))
        self.assert_on_stick(stick, name, CONTENT[:7])

    def test_short_write_keeps_what_was_written(self):
        stick = self.plug(free=FREE)
        self.assertEqual(self.call("FileCopy", f"{STICK}/new", self.source(len(CONTENT))),
                         SHORT_WRITE)
        self.assert_on_stick(stick, "new", CONTENT[:FREE])

    def test_full_stick(self):
        stick = self.plug(free=0)
        self.assertEqual(self.call("FileCopy", f"{STICK}/new", self.source(len(CONTENT))),
                         SHORT_WRITE)
        self.assert_on_stick(stick, "new", b"")

    def test_full_stick_and_a_file_that_fits_the_buffer(self):
        # The write fails in the flush only, which is logged and counts as success.
        stick = self.plug(free=0)
        self.assertEqual(self.call("FileCopy", f"{STICK}/new", self.source(1000)),
                         NO_SPACE + copied(1000, 0))
        self.assert_on_stick(stick, "new", b"")

    def test_read_only_stick(self):
        self.plug()
        self.terminal.check(f"mount -o remount,ro {STICK}")
        self.assertEqual(self.call("FileCopy", f"{STICK}/new", self.source(5),
                                   errors=f"{STICK}/new: Read-only file system\n"), "result -1\n")

    def test_missing_source(self):
        self.plug()
        self.assertEqual(self.call("FileCopy", f"{STICK}/new", "/tmp/nosuch",
                                   errors="/tmp/nosuch: No such file or directory\n"),
                         "result -1\n")
        self.assertEqual(self.terminal.check(f"ls {STICK}"), f"{NOTES}\n")

    def test_content(self):
        stick = self.plug()
        for _ in range(2):
            self.assertEqual(self.call("CopyFileContent", f"{STICK}/new",
                                       self.source(len(CONTENT))), "result 1\n")
        self.assert_on_stick(stick, "new", CONTENT * 2)

    def test_content_behind_what_the_hook_has_read(self):
        stick = self.plug()
        self.assertEqual(self.call("CopyFileContent", f"{STICK}/new", self.source(5000), "skip"),
                         "result 1\n")
        self.assert_on_stick(stick, "new", CONTENT[1:5000])

    def test_content_onto_a_full_stick(self):
        stick = self.plug(free=FREE)
        self.assertEqual(self.call("CopyFileContent", f"{STICK}/new", self.source(len(CONTENT))),
                         "result -1\n")
        self.assert_on_stick(stick, "new", CONTENT[:FREE])

    def assert_used(self, percent):
        """DiskSpaceUsed gives this, and this is what the kernel's numbers say."""
        blocks, free, available = map(int, self.terminal.check(
            f"stat -f -c '%b %f %a' {STICK}").split())
        used = blocks - free
        total = used + available
        self.assertEqual(percent, (used * 100 + total // 2) // total)
        self.assertEqual(self.call("DiskSpaceUsed", f"{STICK}/{NOTES}"), f"result {percent}\n")

    def test_space_used(self):
        self.plug()
        self.assert_used(0)
        for clusters, percent in (39, 0), (1, 1), (400, 5):  # of 8167; one was in use before
            self.terminal.check(f"head -c {clusters * CLUSTER} /dev/zero >>{STICK}/more")
            self.assert_used(percent)

    def test_space_used_on_a_full_stick(self):
        self.plug(free=0)
        self.assert_used(100)

    def test_space_used_where_there_is_none(self):
        self.assertEqual(self.call("DiskSpaceUsed", "/proc"), "result 0\n")
        self.assertEqual(self.call("DiskSpaceUsed", f"{STICK}/nosuch"), "result 0\n")
