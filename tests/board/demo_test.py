"""What the main job shows at its end: the file, the way it went, what a technician sees."""

import unittest

from board import demo
from board.terminal import Result
from tests.support import tool

HEAD = "[orvatool:2024-03-05T14:07:09] Info [udiskdetection DoLoopMount 79]: "
LOG = f"Linux version 6\n{HEAD}capacity=16M\n\n{HEAD}Mount /dev/sda1 sucessfully\n\n"
GONE = "tmpfs /mnt/ramdisk tmpfs rw 0 0\n"
LEFT = f"/dev/sda1 {tool.MOUNT_POINT} vfat rw 0 0\n{GONE}"


def told(status=0, output="", log=LOG, mounts=GONE, files=None):
    """The report of a run, of which nothing went wrong unless told."""
    files = {"tesmar_debug/4711-0815.log": b"Linux version 6\n"} if files is None else files
    return demo.report(Result(status, output, ""), log, mounts, files)


class Report(unittest.TestCase):
    maxDiff = None

    def test_of_a_run_that_went_well(self):
        self.assertEqual(told(), f"""
The file on the stick, tesmar_debug/4711-0815.log:
    Linux version 6

The way it went, with `orvatool -d EIWD` on the terminal:
    exit status 0
    /dev/sda1 was mounted at /mnt/removable, and unmounted again
    /mnt/ramdisk/output.txt was copied to tesmar_debug/4711-0815.log on the stick

Its log, in /mnt/ramdisk/output.txt until the terminal is switched off:
    Linux version 6
    {HEAD}capacity=16M
    {HEAD}Mount /dev/sda1 sucessfully

What a technician sees:
    on the terminal: nothing, the tool shows no line there
    on the stick, at a desk: tesmar_debug/4711-0815.log, 16 bytes
""")

    def test_of_a_run_without_a_copy(self):
        text = told(files={"notes.txt": b""})
        self.assertIn("/mnt/ramdisk/output.txt was not copied to", text)
        self.assertIn("on the stick, at a desk: no file of the tool\n", text)

    def test_of_a_stick_that_stays_mounted(self):
        self.assertIn("/dev/sda1 was mounted at /mnt/removable, and is still mounted\n",
                      told(mounts=LEFT))

    def test_of_a_stick_that_was_not_mounted(self):
        self.assertIn("no stick was mounted\n", told(log="Linux version 6\n"))

    def test_of_a_tool_that_fails_and_prints(self):
        text = told(status=139, output="Segmentation fault\n")
        self.assertIn("exit status 139\n", text)
        self.assertIn("on the terminal: Segmentation fault\n", text)


if __name__ == "__main__":
    unittest.main()
