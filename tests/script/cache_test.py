"""A cache that cannot be filled is told in one sentence by those who would put something there."""

import os
import subprocess
import sys
import unittest
from unittest import mock

from tests.packages import fresh_root
from tests.script.commands import ROOT

NOWHERE = "/proc/none/cache"  # where not even root can make a folder


@mock.patch.dict(os.environ, ORVATOOL_CACHE=NOWHERE)
class Cache(unittest.TestCase):
    def test_of_a_sysroot(self):
        run = subprocess.run([sys.executable, "-B", "-m", "tests.sysroots.packages", "glibc"],
                             cwd=ROOT, capture_output=True, text=True, check=False)
        self.assertEqual((run.returncode, run.stderr), (
            1, f"script/sysroot: nothing can be put into {NOWHERE}: No such file or directory;"
            " ORVATOOL_CACHE names another cache folder\n"))

    def test_of_a_fresh_root(self):
        with (mock.patch("shutil.which", return_value="/usr/sbin/debootstrap"),
              self.assertRaisesRegex(fresh_root.Refused, f"^nothing can be put into {NOWHERE}: ")):
            fresh_root.archive()


if __name__ == "__main__":
    unittest.main()
