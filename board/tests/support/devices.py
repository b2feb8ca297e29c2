"""Tests of the pins, the flash and the boot logo, with drivers that tell what reached them."""

import base64
import shlex

from board.tests.support.case import BoardTest

FOLDER = "/tmp/devices"
LOG = f"{FOLDER}/log"
FLASH = f"{FOLDER}/flash"


class DeviceTest(BoardTest):
    """A test that calls the functions of splash/splash.h, by board/programs/splash_calls.c."""

    def serve(self, *devices, answers="", flash=b""):
        """Starts board/programs/devices.c for each device; see there for the answers."""
        self.terminal.write(FLASH, flash)
        self.terminal.write(f"{FOLDER}/answers", answers)
        for device in devices:
            process = self.terminal.check(
                f"board_devices {device} {FOLDER} </dev/null >{FOLDER}/{device}.messages 2>&1 &"
                " echo $!").strip()
            self.addCleanup(self.terminal.wait_for, f"[ ! -e /dev/{device} ]")
            self.addCleanup(self.terminal.check, f"kill {process}")
            self.terminal.wait_for(f"[ -c /dev/{device} ]")

    def splash(self, *calls, before=""):
        """Makes the calls in one process, `before` in front of it. Returns what was printed."""
        result = self.terminal.run(f"{before} {shlex.join(['board_splash_calls', *calls])}")
        self.assertEqual((result.status, result.errors), (0, ""))
        return result.output

    def events(self):
        """What the drivers saw, a line each, in this order."""
        return self.terminal.read(LOG).splitlines()

    def requests(self):
        """The same without the lines of opening and closing."""
        return [event for event in self.events() if event.split()[1] not in ("open", "close")]

    def flash(self):
        """The content of the flash."""
        return base64.b64decode(self.terminal.check(f"base64 {FLASH}"))
