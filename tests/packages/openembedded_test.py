"""The OpenEmbedded recipe, as far as it can be tried without bitbake.

Its variables are read here, and the sources built with what OpenEmbedded makes of them, under the
flags of a distribution with 64-bit time_t. Not tried are its parser, its own checks of packages,
and what its classes do beside building.
"""

import hashlib
import os
import re
import unittest
from fnmatch import fnmatch

from tests.packages.packages import ROOT, VERSION
from tests.packages.recipes import TOOLCHAIN, RecipeTest
from tests.support.succeeding import run

LAYER = ROOT / "packaging/openembedded"
RECIPE = LAYER / f"recipes-support/orvatool/orvatool_{VERSION}.bb"
STATEMENT = re.compile(r'^([\w:\-\[\]${}]+) *(?:=|\?\?=|=\+) *"([^"]*)"$', re.MULTILINE)
WIDE_TIME = " -D_TIME_BITS=64 -D_FILE_OFFSET_BITS=64"


def statements():
    """The recipe's variables as they are written."""
    text = RECIPE.read_text(encoding="ascii").replace("\\\n", "")
    meaningful = [line for line in text.splitlines() if line and line[0] != "#"]
    found = dict(STATEMENT.findall(text))
    assert len(found) + 1 == len(meaningful), "a line that is neither `inherit` nor an assignment"
    return found


class OpenEmbedded(RecipeTest):
    def setUp(self):
        super().setUp()
        self.recipe = statements()

    def _build(self, standins):
        """Builds as the class for CMake does, where a distribution widens types in both places."""
        compiler = self.recipe.get("GLIBC_64BIT_TIME_FLAGS", WIDE_TIME)
        choices = self.recipe["PACKAGECONFIG[standins]"].split(",")
        words = [f"-DCMAKE_{language}_FLAGS={compiler} -O2 -D_FILE_OFFSET_BITS=64"
                 f"{self.recipe[name + ':append']}"
                 for language, name in (("C", "CFLAGS"), ("CXX", "CXXFLAGS"))]
        run("cmake", "-S", ROOT, "-B", self.folder / "build", f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}",
            "-DCMAKE_INSTALL_PREFIX:PATH=/usr", "-DCMAKE_INSTALL_SBINDIR:PATH=sbin",
            "-DCMAKE_INSTALL_LIBDIR:PATH=lib", "-DCMAKE_INSTALL_INCLUDEDIR:PATH=include",
            "-DCMAKE_EXPORT_NO_PACKAGE_REGISTRY=ON", *words, choices[0 if standins else 1])
        run("cmake", "--build", self.folder / "build", "--parallel")
        run("cmake", "--install", self.folder / "build",
            env={**os.environ, "DESTDIR": str(self.folder / "image")})
        return self.folder / "image"

    def _package_of(self, path):
        """The package of the recipe's own that takes a file first."""
        for key, pattern in self.recipe.items():
            if key.startswith("FILES:") and fnmatch(path, pattern.replace("${libdir}", "/usr/lib")):
                return key.removeprefix("FILES:")
        return None

    def test_installs_tool_and_library_with_narrow_types(self):
        self.assert_terminal_s(self._build(standins=False), standins=False)
        with self.subTest("stand-in"):
            image = self._build(standins=True)
            self.assert_terminal_s(image, standins=True)
            for path in (image / "usr/lib").glob("*.so*"):
                wanted = {"libtroption.so": "${PN}-standins", "liborvautil.so": None}
                self.assertEqual(self._package_of(f"/usr/lib/{path.name}"),
                                 wanted.get(path.name, "liborvautil"))

    def test_names_the_licence_file_as_it_is(self):
        md5 = hashlib.md5((ROOT / "LICENSE").read_bytes()).hexdigest()
        self.assertEqual(self.recipe["LIC_FILES_CHKSUM"], f"file://LICENSE;md5={md5}")

    def test_builds_the_tree_that_it_is_in(self):
        steps, = re.findall(r"\$\{THISDIR\}/([./]+)", self.recipe["EXTERNALSRC"])
        self.assertEqual((RECIPE.parent / steps).resolve(), ROOT)


if __name__ == "__main__":
    unittest.main(verbosity=2)
