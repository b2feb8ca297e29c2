"""Debian's glibc as a sysroot: the tool becomes what it is with the compiler's own C library."""

import unittest

from tests.support.succeeding import run
from tests.sysroots.callers import Callers, add_figure

REVIEWED = {"GLIBC_2.4", "GLIBC_2.7", "GLIBC_2.33", "GLIBC_2.34"}


class Glibc(Callers, unittest.TestCase):
    NAME = "glibc"
    PRINTED = """\
time_t 4 off_t 4
last second 2147483647
one more -1
of a text 1715069350
hour 8 minute 9
124-4-7 wday 2 yday 127
one has 5 bytes
Error [caller ShowLog 1]: No such file or directory
checksum 65532
"""

    def test_headers_and_start_up_code_are_the_sysroots(self):
        used = run("ninja", "-C", self.build.folder, "-t", "deps")
        self.assertIn(f"{self.build.sysroot}/usr/include/stdio.h", used)
        self.assertNotIn("/usr/arm-linux-gnueabi/include/stdio.h", used)

    def test_symbol_versions(self):
        versions = self.build.needed_versions(self.build.tool)
        self.assertEqual(versions, REVIEWED)
        add_figure("glibc, symbol versions that the tool needs", ", ".join(sorted(versions)))


if __name__ == "__main__":
    unittest.main()
