"""What the packages hold, whoever installs them."""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from tests.packages import packages

ARCHITECTURES = sys.argv[1:]
NARROW_TYPES = {"amd64": "8", "armel": "4"}  # bytes of time_t in the library


class Files(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def _unpacked(self, architecture):
        root = self.folder / architecture
        packages.unpack(root, architecture, *packages.NAMES)
        return {str(path.relative_to(root)): path for path in root.rglob("*") if path.is_file()}

    def test_sizes_of_types_are_those_of_the_architecture(self):
        for architecture in ARCHITECTURES:
            files = self._unpacked(architecture)
            config, = (path for name, path in files.items() if name.endswith("orvautil/config.h"))
            self.assertRegex(config.read_text(encoding="ascii"),
                             rf"SIZEOF_TIME_T {NARROW_TYPES[architecture]}\n")

    def test_two_architectures_stand_side_by_side(self):
        first, second = map(self._unpacked, ("amd64", "armel"))
        shared = {name for name in first.keys() & second.keys() if name != "usr/sbin/orvatool"}
        self.assertTrue(shared)  # manual pages and the like
        for name in shared:
            self.assertEqual(first[name].read_bytes(), second[name].read_bytes(), name)

    def test_scripts_of_packages_are_those_of_debhelper_or_none(self):
        for architecture in ARCHITECTURES:
            for name in packages.NAMES:
                control = subprocess.run(["dpkg-deb", "--info", packages.path(name, architecture)],
                                         check=True, capture_output=True, text=True).stdout
                scripts = re.findall(r"(preinst|postinst|prerm|postrm|conffiles)\b", control)
                self.assertEqual(scripts, [], name)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
