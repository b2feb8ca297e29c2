"""musl in place of glibc: 64-bit time_t and off_t, and what else docs/old-terminals.md tells.

The process tests run with it too. The GoogleTest suites need a C++ run-time library, which Debian
does not have for musl.
"""

import os
import re
import subprocess
import sys
import unittest

from tests import skipped
from tests.support import private_mounts
from tests.support.succeeding import run
from tests.sysroots.build import C_COMPILER, ROOT
from tests.sysroots.callers import WIDE, Callers, add_figure

PROBE_SOURCES = [f"tests/process/{name}.c" for name in ("allocations", "output", "probe")]
LINE_BY_LINE = """\
mount -t tmpfs tmpfs /mnt
mkdir /mnt/ramdisk
"$@" -d I -x 2>/mnt/report
cat /mnt/ramdisk/output.txt /mnt/report
"""


class Musl(Callers, unittest.TestCase):
    NAME = "musl"
    FLAGS = (), WIDE  # which change nothing here
    PRINTED = """\
time_t 8 off_t 8
last second 2147483647
one more -1
of a text 1715069350
hour 8 minute 9
hour 8 minute 9
124-4-7 wday 9 yday 999
one has 5 bytes
two has 3221225472 bytes
Error [caller ShowLog 1]: No such file or directory
checksum 65532
"""

    def test_the_configuration_header_tells_the_layout(self):
        config = (self.build.installed / "include/orvautil/config.h").read_text(encoding="ascii")
        sizes = dict(re.findall(r"^#define ORVAUTIL_SIZEOF_(\w+) (\d+)$", config, re.MULTILINE))
        self.assertEqual(sizes, {"POINTER": "4", "OFF_T": "8", "TIME_T": "8", "DIRENT": "280",
                                 "STAT": "152"})

    def test_callers_of_another_c_library_are_refused(self):
        for header, record in (("fileutils", "struct stat"), ("timeutils", "time_t")):
            with self.subTest(header=header):
                compiled = subprocess.run(
                    [C_COMPILER, "-std=c11", "-fsyntax-only", "-x", "c", "-", "-I",
                     self.build.installed / "include"], input=f"#include <orvautil/{header}.h>\n",
                    capture_output=True, text=True, check=False)
                self.assertNotEqual(compiled.returncode, 0)
                self.assertIn(f"{record} has another size here than in orvautil", compiled.stderr)

    def test_nothing_of_glibc_is_needed(self):
        for file in self.build.tool, self.build.folder / "lib/liborvautil.so":
            with self.subTest(file=file):
                needed = re.findall(r"\(NEEDED\).*\[(.*)\]",
                                    run("arm-linux-gnueabi-readelf", "-d", "-W", file))
                self.assertEqual([name for name in needed if name != "libtroption.so"],
                                 ["libc.so"])
                self.assertEqual(self.build.needed_versions(file), set())

    def run_with_private_mounts(self, *words, **variables):
        """Runs a command that mounts, and must end well where that is allowed."""
        done = subprocess.run(["tests/process/private_mounts", *words], cwd=ROOT,
                              env={**os.environ, **variables, "FIGURES": ""},  # not among ours
                              capture_output=True, text=True, check=False)
        private_mounts.skip_where_refused(self, done)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done

    def test_output_reaches_the_file_line_by_line(self):
        done = self.run_with_private_mounts("sh", "-e", "-c", LINE_BY_LINE, "sh",
                                            *self.build.emulator, self.build.tool)
        first, version, usage, report = done.stdout.splitlines()
        self.assertEqual(first, "Set Debug Level Message...[EIWD]")  # with glibc behind the version
        self.assertRegex(version, "^Linux version ")
        self.assertEqual(usage, "Usage: orvatool [-d EIWD]")
        self.assertRegex(report, r"orvatool: unrecognized option: x$")

    def test_process_tests(self):
        probe = self.build.compile(self.build.folder / "lib/libprobe.so", "-std=c11", "-O1",
                                   "-fPIC", "-shared", "-I.", *PROBE_SOURCES)
        root = self.folder / "sysroot"  # a name without blanks, where every user may look
        root.symlink_to(self.build.sysroot)
        self.folder.chmod(0o755)
        done = self.run_with_private_mounts(
            "python3", "-B", "-m", "unittest", "discover", "--verbose", "--start-directory",
            "tests/process", "--pattern", "*_test.py", C_LIBRARY="musl", TOOL=str(self.build.tool),
            PROBE=str(probe), EMULATOR=f"qemu-arm -L {root}")
        print(f"\n{done.stderr}", file=sys.stderr)  # which names those that are skipped
        ran, = re.findall(r"^Ran (\d+) tests", done.stderr, re.MULTILINE)
        count = skipped.count_in(done.stderr)
        self.assertGreater(int(ran), 100)
        add_figure("musl, process tests", int(ran) - count)
        add_figure("musl, process tests that are skipped under an emulator", count)


if __name__ == "__main__":
    unittest.main()
