"""A big-endian processor is refused with a sentence: in_chksum's odd byte would be wrong there.

Called with the folder of the sources, cmake, the C and the C++ compiler for ARM, which compile for
a big-endian one with a flag, and the folder of the generated header.
"""

import pathlib
import subprocess
import sys
import tempfile
import unittest

root, cmake, c_compiler, cxx_compiler, headers = sys.argv[1:]
BIG = "-mbig-endian"
LITTLE = "-mlittle-endian"


def complaints(*command, given=""):
    """The status of the command, and what it complains of, as one line."""
    run = subprocess.run(command, input=given, capture_output=True, text=True, check=False)
    return run.returncode, " ".join(run.stderr.split())


class ByteOrder(unittest.TestCase):
    def configure(self, order):
        with tempfile.TemporaryDirectory() as folder:
            return complaints(
                cmake, "-S", root, "-B", folder, "-DCMAKE_SYSTEM_NAME=Linux",
                f"-DCMAKE_C_COMPILER={c_compiler}", f"-DCMAKE_CXX_COMPILER={cxx_compiler}",
                f"-DCMAKE_C_FLAGS={order}", f"-DCMAKE_CXX_FLAGS={order}",
                # There is no big-endian C library here to link the trials with.
                "-DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY")

    def test_a_big_endian_compiler_is_refused(self):
        status, text = self.configure(BIG)
        self.assertNotEqual(status, 0)
        self.assertIn("is big-endian; the checksum of an odd number of bytes", text)

    def test_nothing_but_the_order_is_what_is_refused(self):
        status, text = self.configure(LITTLE)
        self.assertEqual(status, 0, text)

    def test_the_headers_refuse_a_big_endian_caller(self):
        names = [path.relative_to(headers) for path in pathlib.Path(headers).rglob("*.h")]
        self.assertIn(pathlib.Path("orvautil/trstrutils.h"), names)
        for order, is_refused in ((LITTLE, False), (BIG, True)):
            for name in names:
                with self.subTest(order=order, header=name):
                    status, text = complaints(
                        c_compiler, order, "-I", headers, "-x", "c", "-fsyntax-only", "-",
                        given=f"#include <{name}>\n")
                    self.assertEqual(status != 0, is_refused, text)
                    self.assertEqual("orvautil is for little-endian processors" in text, is_refused)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
