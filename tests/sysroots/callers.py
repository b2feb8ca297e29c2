"""What every sysroot has to bear: our headers in callers, and callers that run."""

import os
import re
import tempfile
from pathlib import Path

from tests.support.work_place import work_place
from tests.sysroots.build import CXX_COMPILER, ROOT, Build

# What distributions add to everything.
STAMP = r"^\[caller:[-:\dT]*\] "
WIDE = ("-D_FILE_OFFSET_BITS=64", "-D_TIME_BITS=64")


def add_figure(label, figure):
    """Takes down a figure, when FIGURES names a file for it."""
    if file := os.environ.get("FIGURES"):
        with open(file, "a", encoding="ascii") as figures:
            figures.write(f"{label}\t{figure}\n")


class Callers:
    """The tests say which sysroot, and what the caller prints with it."""

    NAME = None
    FLAGS = ((),)     # those that callers may have
    PRINTED = None

    @classmethod
    def setUpClass(cls):
        cls.build = Build(cls.NAME)

    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def headers_in_use(self):
        """(header, compiler's words) of each way to include each header."""
        for header in self.build.headers:
            for language, standard in (("C", "c11"), ("C", "gnu17"), ("CXX", "c++20")):
                for flags in self.FLAGS:
                    yield header, language, (f"-std={standard}", "-Wpedantic", *flags)

    def test_each_header_alone_in_callers(self):
        count = 0
        for header, language, words in self.headers_in_use():
            with self.subTest(header=header, words=words):
                source = self.folder / ("one.c" if language == "C" else "one.cpp")
                source.write_text(f"#include <{header}>\nextern int one;\n", encoding="ascii")
                self.build.compile(self.folder / "one.o", *words, "-c", source,
                                   "-I", self.build.installed / "include", language=language,
                                   **({"compiler": CXX_COMPILER} if language == "CXX" else {}))
                count += 1
        self.assertGreater(count, 20)
        add_figure(f"{self.NAME}, headers as callers include them", count)

    def test_c_program_of_every_part(self):
        program = self.build.compile(
            self.folder / "parts", "-std=c11", "-D_POSIX_C_SOURCE=200809L", "-I.",
            "-I", self.build.folder / "include", "tests/c_header/c_header_test.c",
            *self.build.objects(), "-L", self.build.folder / "lib", "-ltroption")
        self.build.emulated(program, LD_LIBRARY_PATH=self.build.folder / "lib")

    def test_callers_with_the_installed_library(self):
        folder = Path(self.enterContext(
            tempfile.TemporaryDirectory(dir=work_place(is_emulated=True))))
        folders = [folder / "small", folder / "large"]
        for path in folders:
            path.mkdir()
        (folder / "small/one").write_text("12345", encoding="ascii")
        with open(folder / "large/two", "wb") as large:
            large.truncate(3 << 30)
        count = 0
        libraries = self.build.installed / "lib"
        for name, words in (("shared", ["-L", libraries, "-lorvautil"]),
                            ("static", [libraries / "liborvautil.a"])):
            for flags in self.FLAGS:
                with self.subTest(library=name, flags=flags):
                    program = self.build.compile(
                        self.folder / name, "-std=gnu11", *flags,
                        "-I", self.build.installed / "include",
                        ROOT / "tests/sysroots/caller.c", *words, "-lm")
                    printed = self.build.emulated(program, *folders)
                    self.assertEqual(re.sub(STAMP, "", printed, flags=re.MULTILINE), self.PRINTED)
                    count += 1
        add_figure(f"{self.NAME}, C programs with the installed library", count)
