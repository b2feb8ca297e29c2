"""tests/mutate/enter: a faulty program writes to its own folder and to no other mount."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from tests.support import private_mounts

ROOT = Path(sys.argv.pop(1)).resolve()
KEPT = "/var/tmp"  # /tmp is empty in there


class Enter(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(dir=KEPT)
        self.addCleanup(folder.cleanup)
        self.own = Path(folder.name, "own")
        self.own.mkdir()

    def write_to(self, place):
        """The exit status of a program that writes a file there, where that is a mount."""
        place.mkdir(exist_ok=True)
        command = ('mount -t tmpfs tmpfs "$1" && exec "$2/tests/mutate/enter" "$2" "$3"'
                   ' sh -c \'>"$0/file"\' "$1"')
        run = subprocess.run([ROOT / "tests/process/private_mounts", "sh", "-c", command, "sh",
                              place, ROOT, self.own], capture_output=True, text=True, check=False)
        private_mounts.skip_where_refused(self, run)
        return run.returncode

    def test_lets_a_program_write_to_its_own_folder(self):
        self.assertEqual(self.write_to(self.own), 0)

    def test_lets_no_program_write_to_other_mounts(self):
        for name in "other", "an other":
            with self.subTest(name=name):
                self.assertNotEqual(self.write_to(self.own.parent / name), 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
