"""The export onto sticks that work."""

import re

from board.sticks import NOTES
from board.terminal import SERIAL
from board.tests.support.case import HOLD_BEFORE, BoardTest
from board.tests.support.media import MediaTest, log_of
from tests.pages import technician
from tests.support import tool
from tests.support.faults import fault

EXPORT = tool.export_name(SERIAL)
FOLDER = f"{tool.FOLDER_ON_STICK}/"
PARTITION_MIB, WHOLE_MIB = 16, 17
PROGRAM = "program"
NOT_EXECUTABLE = 126  # what the shell says then


class Export(BoardTest):

    def test_later_runs_overwrite(self):
        stick = self.stick(True)
        self.terminal.plug(stick)
        for words, content in (("-d", "EIWD"), self.version()), ((), ""):
            self.run_tool(*words)
            self.assertEqual(stick.files(1), [NOTES, FOLDER, EXPORT])
            self.assertEqual(stick.read(EXPORT, 1).decode(), content)
        self.run_tool("-d", "EIWD")
        self.assertEqual(stick.read(EXPORT, 1).decode(), self.version())
        self.assertTrue(tool.without_times(self.output()).endswith(
            tool.mounted("sda1", PARTITION_MIB) + tool.exported(SERIAL, tool.INVALID)))

    def test_releases_what_was_mounted_before(self):
        stick, other = self.stick(), self.stick(name="other")
        self.terminal.plug(stick)
        self.terminal.plug(other)
        self.mount("sdb")
        self.run_tool("-d", "EIWD")
        self.assertTrue(tool.without_times(self.output()).startswith(
            self.version() + tool.LEVELS + tool.started(SERIAL) + tool.RELEASED
            + tool.mounted("sda", WHOLE_MIB)))
        self.assertEqual(stick.files(), [NOTES, FOLDER, EXPORT])
        self.assertEqual(other.files(), [NOTES])

    def test_the_technician_fetches_the_whole_file(self):
        page = technician.DOCUMENT.read_text(encoding="utf-8")
        command, = re.findall(r"^    (mount .*)$", page, re.MULTILINE)
        stick = self.stick(True)
        self.terminal.plug(stick)
        self.run_tool("-d", "EIWD")
        self.terminal.check(command)
        self.assertNotIn(tool.MOUNT_POINT, self.terminal.read("/proc/mounts"))
        self.assertEqual(stick.read("output.txt", 1).decode(), self.output())

    def test_repeated_option_adds_levels(self):
        self.terminal.plug(self.stick(True))
        self.run_tool("-d", "I", "-d", "W")
        self.assertTrue(tool.without_times(self.output()).startswith(
            self.version() * 2 + tool.LEVELS * 2 + tool.started(SERIAL) + tool.RELEASED_NOTHING))


class Mounted(MediaTest):

    @fault("Media", "a program on the stick, and set-user-id bits and device files that somebody"
                    " wants there: the program is not run, FAT takes none of the others")
    def test_mounts_for_reading_and_writing_without_programs(self):
        stick = self.stick(True)
        stick.write(PROGRAM, b"#!/bin/sh\n", 1)
        self.plug(stick)
        self.begin()
        self.hold_tool_in_copy(HOLD_BEFORE)
        mounts = self.terminal.read("/proc/mounts")
        self.assertIn(f"/dev/sda1 {tool.MOUNT_POINT} vfat rw,noexec,relatime,", mounts)
        path = f"{tool.MOUNT_POINT}/{PROGRAM}"
        self.assertEqual(self.terminal.run(path).status, NOT_EXECUTABLE)
        self.terminal.check(f"sh {path}")  # it is a good one
        self.terminal.run(f"chmod 4755 {path}; mknod {tool.MOUNT_POINT}/device c 1 3")
        self.assertEqual(self.terminal.check(f"stat -c %a {path}"), "755\n")
        self.terminal.check(f"[ ! -e {tool.MOUNT_POINT}/device ]")
        self.terminal.check(">/tmp/go")
        self.assert_promises(self.terminal.finish(), tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT,
                             *log_of(stick))
