"""cmake/terminal-sysroot.cmake refuses what it cannot build with, in one sentence.

Called with the folder of the sources and cmake.
"""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

root, cmake = sys.argv[1:]
WAY_OUT = ("give the whole path of the folder with the usr/include and usr/lib that programs of the"
           " terminal are built with.")
ELF_HEAD = b"\x7fELF\x01\x01\x01" + bytes(9) + b"\x01\x00"  # 32 bits, little-endian, an object
ARM, X86 = b"\x28\x00", b"\x03\x00"


class Refusals(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.sysroot = self.folder / "a sysroot"
        self.sysroot.mkdir()

    def add(self, path, content=b""):
        """Adds a file to the sysroot."""
        (self.sysroot / path).parent.mkdir(parents=True, exist_ok=True)
        (self.sysroot / path).write_bytes(content)

    def refusal(self, *options):
        """What a configuration with the options complains of, as one line."""
        run = subprocess.run(
            [cmake, "-S", root, "-B", self.folder / "build", "--fresh", *options,
             f"-DCMAKE_TOOLCHAIN_FILE={root}/cmake/terminal-sysroot.cmake"],
            capture_output=True, text=True, check=False)
        self.assertNotEqual(run.returncode, 0)
        return " ".join(run.stderr.split())

    def check_sysroot(self, given, reason):
        text = self.refusal(*given)
        value = given[0].partition("=")[2] if given else ""
        self.assertIn(f'CMAKE_SYSROOT is "{value}", {reason}: {WAY_OUT}', text)

    def test_no_sysroot(self):
        self.check_sysroot([], "which names nothing")

    def test_a_folder_that_is_not_there(self):
        for folder in "/nonexistent", "relative", f"{root}/README.md":
            with self.subTest(folder=folder):
                self.check_sysroot([f"-DCMAKE_SYSROOT={folder}"], "which is no such folder")

    def test_the_files_of_a_terminal_alone(self):
        self.check_sysroot([f"-DCMAKE_SYSROOT={self.sysroot}"], "without usr/include/features.h")
        self.add("usr/include/features.h")
        self.check_sysroot([f"-DCMAKE_SYSROOT={self.sysroot}"], "without usr/lib/libc.so")
        self.add("usr/lib/libc.so")
        self.check_sysroot([f"-DCMAKE_SYSROOT={self.sysroot}"], "without usr/lib/Scrt1.o")

    def test_another_processor(self):
        for path in "usr/include/features.h", "usr/lib/libc.so":
            self.add(path)
        self.add("usr/lib/Scrt1.o", ELF_HEAD + X86)
        reason = "whose start-up code is not for little-endian ARM"
        self.check_sysroot([f"-DCMAKE_SYSROOT={self.sysroot}"], reason)
        self.add("usr/lib/Scrt1.o", ELF_HEAD + ARM)
        # That is what was refused: with it mended, the configuration gets as far as the headers.
        text = self.refusal(f"-DCMAKE_SYSROOT={self.sysroot}",
                            "-DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY")
        self.assertNotIn("CMAKE_SYSROOT", text)
        self.assertIn("the C library's headers do not compile", text)

    def test_an_old_or_missing_compiler(self):
        old = self.folder / "g++"
        old.write_text("#!/bin/sh\necho 9\n", encoding="ascii")
        old.chmod(0o755)
        for compiler, version in ((old, "9"), ("/nonexistent/g++", "")):
            with self.subTest(compiler=compiler):
                self.assertIn(f'CMAKE_CXX_COMPILER is "{compiler}", version "{version}": give'
                              " g++ 10 or later for the terminal's processor.",
                              self.refusal(f"-DCMAKE_SYSROOT={self.sysroot}",
                                           f"-DCMAKE_CXX_COMPILER={compiler}"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
