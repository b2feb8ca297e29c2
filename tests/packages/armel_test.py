"""The packages of the terminal on the emulated one.

The terminal's dpkg is busybox's: it unpacks packages, keeps their state, looks at what they depend
on, runs their scripts, removes and purges them. It knows neither triggers nor configuration files
that two packages share, and ours have none that do anything there. Its own packages came in another
way, so the C library is made known to it first.

Called with the ARM build folder.
"""

import os
import sys
import tempfile
import unittest

from board import lockfile, session
from board.sticks import Stick
from board.terminal import INSTALLED, SERIAL
from board.tests.support.case import BoardTest
from tests.packages import packages
from tests.support import tool
from tests.support.succeeding import run

INSTALLED_NAMES = ("liborvautil1", "orvatool-standins", "orvatool")
# What the terminal had before: all but the file systems that the kernel and the test fill, and
# dpkg's list of packages.
STATE = ("find / -xdev '(' -path /tmp -o -path /run -o -path /mnt"
         " -o -path '/var/lib/dpkg/status*' ')' -prune"
         " -o '(' -type f -exec md5sum {} + ')' -o -print | sort")
DPKG_STATUS = "/var/lib/dpkg/status"


def c_library():
    """The paragraph of the terminal's C library, as dpkg has it of what it installed."""
    pin, = (each for each in lockfile.pinned() if each.name == "libc6")
    return (f"Package: libc6\nStatus: install ok installed\nArchitecture: armel\n"
            f"Version: {pin.version}\nDescription: C library\n\n")


class Terminal(BoardTest):
    def setUp(self):
        super().setUp()
        for target in INSTALLED.values():
            self.terminal.check(f"rm {target}")
        for name in INSTALLED_NAMES:
            self.terminal.write(f"/tmp/{name}.deb", packages.path(name, "armel").read_bytes())
        self.terminal.write(DPKG_STATUS, c_library())
        self.terminal.check("mkdir -p /var/lib/dpkg/info")

    def _dpkg(self, word, names):
        self.terminal.check(f"cd /tmp && dpkg {word} {' '.join(names)}")

    def _use_tool(self):
        """The tool exports its output under the serial number that the stand-in reads."""
        stick = Stick(self.terminal.folder / "stick.img", True)
        self.terminal.plug(stick)
        self.run_tool("-d", "EIWD")
        self.terminal.unplug()
        self.assertEqual(stick.read(tool.export_name(SERIAL), 1).decode(), self.version())

    def _use_library(self):
        """A program that was built with liborvautil-dev, as docs/integrating.md has it."""
        with tempfile.TemporaryDirectory() as folder:
            packages.unpack(folder, "armel", "liborvautil-dev", "liborvautil1")
            program = f"{folder}/caller"
            flags = run("pkg-config", "--cflags", "--libs", "orvautil", env={
                **os.environ, "PKG_CONFIG_PATH": f"{folder}/usr/lib/arm-linux-gnueabi/pkgconfig"})
            run("arm-linux-gnueabi-gcc", "-Wall", "-Werror", packages.CALLER, *flags.split(),
                "-o", program)
            self.terminal.install(program, "/tmp/caller")
        self.assertEqual(packages.called(self.terminal.check("/tmp/caller")), packages.CALLED)

    def _installed(self, states):
        """The packages in one of these states, as dpkg lists them."""
        return self.terminal.check(f"dpkg -l | grep '^[{states}]'")

    def test_installs_works_and_leaves_nothing_when_removed_or_purged(self):
        before, installed = self.terminal.check(STATE), self._installed("i")
        # Without configuration files nothing is left to be purged of a package once removed.
        for word, states in ("-r", "i"), ("-P", "irpu"):
            self._dpkg("-i", [f"{name}.deb" for name in INSTALLED_NAMES])
            self.assertEqual(self._installed("i").count("\n"), 1 + len(INSTALLED_NAMES))
            self._use_tool()
            self._use_library()
            self._dpkg(word, reversed(INSTALLED_NAMES))
            self.assertEqual(self.terminal.check(STATE), before)
            self.assertEqual(self._installed(states), installed)


if __name__ == "__main__":
    session.begin(sys.argv[1])
    try:
        unittest.main(argv=sys.argv[:1], verbosity=2)
    finally:
        session.end()
