"""What the tests of the recipes share: what a build of the terminal by them has to hold."""

import re
import tempfile
import unittest
from pathlib import Path

from tests.packages.packages import ROOT
from tests.support.succeeding import run

TOOLCHAIN = ROOT / "cmake/arm-linux-gnueabi.cmake"  # stands for theirs


class RecipeTest(unittest.TestCase):
    """A test with an empty folder."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def assert_terminal_s(self, root, standins):
        """Tool and library are installed, with the narrow types, and the stand-in if asked for."""
        config = (root / "usr/include/orvautil/config.h").read_text(encoding="ascii")
        sizes = re.findall(r"^#define ORVAUTIL_SIZEOF_(\w+_T) (\d)$", config, re.MULTILINE)
        self.assertEqual(sizes, [("OFF_T", "4"), ("TIME_T", "4")])
        self.assertIn("Machine:                           ARM",
                      run("readelf", "-h", root / "usr/sbin/orvatool"))
        libraries = sorted(path.name for path in (root / "usr/lib").glob("*.so*"))
        self.assertIn("liborvautil.so.1", libraries)
        self.assertEqual("libtroption.so" in libraries, standins)
