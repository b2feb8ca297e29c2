"""What the rows of the fault catalogue share: sticks with files on them, and the promises."""

import time
from collections import Counter

from board.sticks import NOTES
from board.terminal import SERIAL
from board.tests.support.case import BoardTest
from tests.pages import technician
from tests.support import tool
from tests.support.faults import BOUND_S, row_of

EXPORT = tool.export_name(SERIAL)
# Beside NOTES, on each FAT file system: more than a cluster, a long name, a file two folders deep.
FILES = {
    "photo.jpg": bytes(range(256)) * 70,
    "A name that only long entries hold.txt": b"long",
    "music/deep/song.mp3": bytes(reversed(range(256))) * 20,
    "music/empty": b"",
}
FOLDERS = ("music", "music/deep")


class FaultTest(BoardTest):
    """A test that is a row: it runs the tool and checks every promise that the row keeps."""

    checks_promises = True

    def setUp(self):
        super().setUp()
        self._sticks = {}  # those plugged in, and what was on them before
        self._checked = False
        self._logged = ""  # by its runs

    def tearDown(self):
        self.assertTrue(self._checked, "this test is a row, and checks no promise")
        self._assert_shows_what_the_technician_reads()
        super().tearDown()

    def _assert_shows_what_the_technician_reads(self):
        """Where docs/technician.md says that this test shows log lines, the tool has written them."""
        file = type(self).__module__.replace(".", "/")
        for line in technician.lines_of(file, self._testMethodName):
            self.assertIn(line, self._logged, "docs/technician.md quotes this line")

    def stick(self, *partitions, **options):
        """A new stick, with more files on it."""
        stick = super().stick(*partitions, **options)
        for partition in stick.fat():
            for folder in FOLDERS:
                stick.make_folder(folder, partition)
            for path, content in FILES.items():
                stick.write(path, content, partition)
        return stick

    def remember(self, stick):
        """Takes down what is on a stick, just before it is plugged in."""
        self._sticks[stick] = (stick.digests(), stick.findings())

    def plug(self, stick, **options):
        """Remembers a stick, plugs it in and waits for its devices."""
        self.remember(stick)
        self.terminal.plug(stick, **options)

    def unplug(self):
        """Pulls the stick out that was plugged in last; it counts no more."""
        self.terminal.unplug()
        self._sticks.popitem()

    def begin(self):
        """From here on, what is mounted counts, and the time."""
        self._mounts = self._mounted()
        self._began_s = time.monotonic()

    def _mounted(self):
        return Counter(self.terminal.read("/proc/mounts").splitlines())

    def note_lines(self):
        """Takes down what a run has logged, for the lines that docs/technician.md quotes."""
        self._logged += tool.without_times(self.output())

    def assert_promises(self, result, *lines):
        """The tool has ended: checks what the row keeps.

        The RAM-disk file has to hold what every run with all log levels writes, then these lines.
        """
        took_s = time.monotonic() - self._began_s
        self.note_lines()
        checks = {
            "exit": lambda: self.assertEqual(result.status, 0, result.errors),
            "output": lambda: self.assertEqual(tool.without_times(self.output()), "".join(
                (self.version(), tool.LEVELS, tool.started(SERIAL)) + lines)),
            "mounts": lambda: self.assertEqual(self._mounted() - self._mounts, Counter()),
            "files": self._assert_same_files,
            "volume": self._assert_nothing_new_found,
            "time": lambda: self.assertLess(took_s, BOUND_S),
        }
        for promise in row_of(self).kept():
            with self.subTest(promise=promise):
                checks[promise]()
        self._checked = True

    def _assert_same_files(self):
        for stick, (digests, _) in self._sticks.items():
            expected = {key: value for key, value in digests.items() if key[1] != EXPORT}
            now = stick.digests()
            self.assertEqual({key: now.get(key) for key in expected}, expected)

    def _assert_nothing_new_found(self):
        for stick, (_, findings) in self._sticks.items():
            new = [each for each in (stick.findings() - findings).elements()
                   if not each[1].startswith(f"/{tool.FOLDER_ON_STICK}/")]
            self.assertEqual(new, [])

    def run_row(self, *lines):
        """Runs the tool with all log levels and checks the promises. Returns its result."""
        self.begin()
        result = self.terminal.run("orvatool -d EIWD", bound_s=BOUND_S)
        self.assert_promises(result, *lines)
        return result
