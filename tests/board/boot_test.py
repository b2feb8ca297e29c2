"""A terminal that does not boot, or is not let: nothing stays behind, and a sentence says why."""

import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from board import lockfile
from tests.support import fake_commands

ROOT = Path(__file__).parents[2]
BOUND_S = 60
FAKES = {
    "modprobe": "",
    # An emulator that boots for ever, and tells its number.
    "qemu-system-arm": 'echo $$ >"$TMPDIR.new"; mv "$TMPDIR.new" "$TMPDIR.number"; exec sleep 600',
}


class BootTest(unittest.TestCase):
    """A terminal whose emulator is a fake, made of a kernel that nobody reads."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        kernel = self.folder / f"cache/terminal-{lockfile.key()}"
        (kernel / "lib/modules/6").mkdir(parents=True)
        (kernel / "boot").mkdir()
        (kernel / "boot/vmlinuz-6").touch()
        (self.folder / "temporary").mkdir()
        fake_commands.write(self.folder / "fakes", FAKES)

    def start(self, word):
        """Starts the board, with a folder of its own for temporary files."""
        process = subprocess.Popen(
            [sys.executable, "-B", "-m", "board", "build/arm", word], cwd=ROOT, text=True,
            env={**os.environ, "TMPDIR": str(self.folder / "temporary"),
                 "ORVATOOL_CACHE": str(self.folder / "cache"),
                 "PATH": f"{self.folder}/fakes:{os.environ['PATH']}"},
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def wait_for_emulator(self, process):
        """The process number of the fake, once the board has started it."""
        number = self.folder / "temporary.number"
        while not number.exists():
            self.assertIsNone(process.poll(), "the board has ended")
            time.sleep(0.01)
        text = number.read_text()
        number.unlink()
        return int(text)

    def assert_gone(self, number):
        """A process has ended, or does so at once."""
        end_s = time.monotonic() + BOUND_S
        while os.path.exists(f"/proc/{number}"):
            self.assertLess(time.monotonic(), end_s, "the emulator goes on")
            time.sleep(0.01)

    def assert_nothing_left(self):
        self.assertEqual(os.listdir(self.folder / "temporary"), [])


class Boot(BootTest):
    def test_an_interrupted_boot_leaves_nothing(self):
        for word in "run", "clock":
            for number in signal.SIGINT, signal.SIGTERM, signal.SIGHUP:
                with self.subTest(word=word, signal=number):
                    process = self.start(word)
                    emulator = self.wait_for_emulator(process)
                    self.assertNotEqual(os.listdir(self.folder / "temporary"), [])
                    process.send_signal(number)
                    process.send_signal(signal.SIGTERM)  # as of CTest, that has ended too
                    output = process.stdout.read()
                    self.assertEqual(process.wait(), 128 + number)
                    self.assertTrue(output.endswith("\nboard: interrupted\n"), output)
                    self.assertNotIn("Traceback", output)
                    self.assert_nothing_left()
                    self.assert_gone(emulator)

    def test_an_emulator_does_not_outlive_the_board(self):
        process = self.start("run")
        emulator = self.wait_for_emulator(process)
        process.kill()
        self.assert_gone(emulator)

    def test_a_boot_that_fails_says_why(self):
        fake_commands.write(self.folder / "fakes",
                            {"qemu-system-arm": "echo no such machine >&2; exit 1"})
        process = self.start("run")
        self.assertEqual(process.stdout.read(), "booting      failed\nboard: the emulator closed"
                         " its control connection\nno such machine\n\n")
        self.assertEqual(process.wait(), 1)
        self.assert_nothing_left()


if __name__ == "__main__":
    unittest.main()
