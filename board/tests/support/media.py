"""What the rows of one stick share: the run of the tool that mounts it, or refuses it."""

from board.terminal import SERIAL
from board.tests.support.faults import EXPORT, FaultTest
from tests.support import tool


def log_of(stick, partition=1, error=tool.NO_SUCH_FILE, refused=None, disk="sda"):
    """The lines of a partition that is mounted and released; before the copy, errno is `error`.

    Unless told, no device but its disk is tried first.
    """
    if refused is None:
        refused = [disk] if partition else []
    return (*map(tool.refused, refused),
            tool.mounted(f"{disk}{partition or ''}", stick.mib(partition)),
            tool.exported(SERIAL, error))


class MediaTest(FaultTest):
    """A row about what is plugged in when the tool runs."""

    def run_mounting(self, *lines):
        """Runs the tool, which makes its mount point and writes these lines."""
        return self.run_row(tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT, *lines)

    def run_on(self, stick, partition=1, **words):
        """Plugs a stick in and runs the tool, which mounts the partition; see log_of."""
        self.plug(stick)
        return self.run_mounting(*log_of(stick, partition, **words))

    def assert_log_on(self, stick, partition):
        """The whole log is on a partition."""
        self.assertEqual(stick.read(EXPORT, partition).decode(), self.version())

    def assert_exported(self, stick, partition=1, **words):
        """Plugs a stick in and runs the tool, which puts the whole log there; see log_of."""
        self.assertEqual(self.run_on(stick, partition, **words).errors, "")
        self.assert_log_on(stick, partition)

    def assert_refused(self, stick, *devices):
        """Plugs a stick in and runs the tool, which can mount none of these devices."""
        self.plug(stick)
        self.run_mounting(*map(tool.refused, devices), tool.NOTHING_MOUNTED)
        self.assertEqual(self.terminal.check(f"ls {tool.MOUNT_POINT}"), "")
