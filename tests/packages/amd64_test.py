"""The packages of this machine in a fresh Debian: the way of somebody who has them in a server."""

import shutil
import subprocess
import sys
import tempfile
import unittest

from tests.packages import fresh_root, packages
from tests.support import tool

SERIAL = "4711-0815"
SOURCE = "deb [trusted=yes] file:/packages ./"
LIST = "/etc/apt/sources.list"


class FreshDebian(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        try:
            self.root = fresh_root.FreshRoot(folder.name)
        except fresh_root.Refused as reason:
            self.skipTest(f"the fresh root: {reason}")
        self._serve()

    def _serve(self):
        """Puts the packages into the root as a server of packages, its only one."""
        served = self.root.folder / "packages"
        served.mkdir()
        for name in packages.NAMES:
            shutil.copy(packages.path(name, "amd64"), served)
        index = subprocess.run(["dpkg-scanpackages", "."], cwd=served, check=True,
                               capture_output=True).stdout
        (served / "Packages").write_bytes(index)
        (self.root.folder / LIST[1:]).write_text(f"{SOURCE}\n", encoding="ascii")
        self.root.run("apt-get -q update")
        self.before = self.root.state()
        self.known = self._known()

    def _known(self):
        """What dpkg knows, down to what was removed and not purged."""
        return self.root.run("dpkg-query -W -f '${Package} ${Status}\\n'").splitlines()

    def _apt(self, words):
        self.root.run(f"apt-get -q -y {words}")

    def _use_tool(self):
        """The tool finds the serial number in the stand-in, and no stick."""
        output = self.root.run(
            f"mkdir /mnt/ramdisk /mnt/mtdblock"
            f"; echo '~SerialNumber={SERIAL}' >/mnt/mtdblock/options.txt"
            f"; orvatool -d EIWD; cat {tool.OUTPUT_FILE}; rm -r /mnt/*")
        self.assertIn(tool.started(SERIAL), tool.without_times(output))
        self.assertTrue(tool.without_times(output).endswith(tool.NO_STICK), output)
        manual = self.root.run("gunzip -c /usr/share/man/man8/orvatool.8.gz")
        self.assertEqual(manual, (packages.ROOT / "docs/orvatool.8").read_text(encoding="utf-8"))

    def _use_library(self):
        """A program is built with the shared library, and one with the archive."""
        shutil.copy(packages.CALLER, self.root.folder / "tmp")
        for program, library in ("shared", "-lorvautil"), ("static", "-l:liborvautil.a"):
            self.root.run("cd /tmp; libraries=$(pkg-config --static --libs orvautil)"
                          "; gcc -Wall -Werror $(pkg-config --cflags orvautil) caller.c"
                          f" -o {program} $(echo $libraries | sed 's/-lorvautil/{library}/')")
            self._run_program(program)
            needed = self.root.run(f"readelf -d /tmp/{program}")
            self.assertEqual("[liborvautil.so.1]" in needed, program == "shared")

    def _run_program(self, program):
        self.assertEqual(packages.called(self.root.run(f"/tmp/{program}")), packages.CALLED)

    def test_installs_works_and_leaves_nothing_when_purged(self):
        self._apt("install orvatool")
        # Recommended, because the tool cannot start without.
        self.assertTrue("orvatool-standins install ok installed" in self._known(), "no stand-in")
        self._use_tool()
        self._apt("install liborvautil-dev")
        self._use_library()
        self._apt("remove liborvautil-dev")
        self._run_program("shared")  # the library alone is enough for it
        installed = "orvatool orvatool-standins liborvautil1"
        self._apt(f"remove {installed}")
        self.assertEqual(packages.changed(self.before, self.root.state()), {})
        self._apt(f"purge {installed} liborvautil-dev")
        self.assertEqual(packages.changed(self.before, self.root.state()), {})
        self.assertEqual(self._known(), self.known)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
