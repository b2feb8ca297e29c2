"""The routes by which another project's programs get the library, in C and in C++.

The instructions are those of docs/integrating.md; `prefix` is where the library was installed.
"""

import os
import re
import shutil
import unittest

from tests.consumers import target
from tests.consumers.target import PROGRAMS, STANDARDS, output_of

PKG_CONFIG = "cc prog.c $(pkg-config --cflags --libs orvautil)"
STATIC_PKG_CONFIG = "cc -static prog.c $(pkg-config --static --cflags --libs orvautil)"
PLAIN_FLAGS = "cc prog.c -Iprefix/include -Lprefix/lib -lorvautil"
STATIC_PLAIN_FLAGS = "cc prog.c -Iprefix/include prefix/lib/liborvautil.a"
FIND_PACKAGE = "find_package(orvautil 1 REQUIRED)"
ADD_SUBDIRECTORY = "add_subdirectory(orvatool)"
LINK = "target_link_libraries(prog PRIVATE orvautil::orvautil)"

PROJECT = """
cmake_minimum_required(VERSION 3.16)
project(other {cmake_language})
set(CMAKE_C_STANDARD 11)
set(CMAKE_CXX_STANDARD 20)
{get}
add_executable(prog prog.{language})
{link}
"""
CMAKE_LANGUAGES = {"c": "C", "cpp": "CXX"}

PRINTED = """\
seconds 1709208000, weekday 4
picture 1
[prog:STAMP] Warning [trstrutils Str2Upcase LINE]: pStr is NULL
[prog:STAMP] Info [prog main LINE]: text ABc
"""


class Route(target.Test):
    def setUp(self):
        super().setUp()
        root = target.installation()
        self.prefix = self.folder / "prefix"
        self.prefix.symlink_to(root / "usr")
        for program in PROGRAMS.glob("prog.*"):
            shutil.copy(program, self.folder)
        self.settings = {"PKG_CONFIG_LIBDIR": str(root / "usr/lib/pkgconfig"),
                         "PKG_CONFIG_SYSROOT_DIR": str(root)}

    def assert_runs(self, program, **variables):
        """The program prints what it should, whenever it runs and whatever line a call is on."""
        printed = output_of([*target.EMULATOR, self.folder / program], **variables)
        printed = re.sub(r":\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\]", ":STAMP]", printed)
        self.assertEqual(re.sub(r" \d+\]:", " LINE]:", printed), PRINTED, printed)

    def assert_command_builds(self, command, language, **variables):
        command = command.replace("cc", target.compiler(language), 1)
        command = command.replace("prog.c", f"prog.{language}", 1)
        output_of(command, self.folder, **self.settings)
        self.assert_runs("a.out", **variables)

    def build(self, language, get, link, *options):
        self.write("CMakeLists.txt", PROJECT.format(cmake_language=CMAKE_LANGUAGES[language],
                                                    language=language, get=get, link=link))
        build = self.folder / f"build-{language}"
        self.assert_ends(target.configure(self.folder, build, *options), 0)
        output_of([target.CMAKE, "--build", build, "--parallel", str(os.cpu_count())])
        return build


class Page(unittest.TestCase):
    longMessage = False

    def test_tells_what_is_tried_here(self):
        page = (target.ROOT / "docs/integrating.md").read_text(encoding="utf-8")
        for text in (PKG_CONFIG, PLAIN_FLAGS, FIND_PACKAGE, ADD_SUBDIRECTORY, LINK,
                     "orvautil::orvautil_static", "liborvautil.a"):
            self.assertIn(f"`{text}`", page, f"docs/integrating.md does not tell `{text}`")


class Commands(Route):
    def test_pkg_config(self):
        for language in STANDARDS:
            with self.subTest(language=language):
                self.assert_command_builds(PKG_CONFIG, language,
                                           LD_LIBRARY_PATH=f"{self.prefix}/lib")

    def test_plain_flags(self):
        for language in STANDARDS:
            with self.subTest(language=language):
                self.assert_command_builds(PLAIN_FLAGS, language,
                                           LD_LIBRARY_PATH=f"{self.prefix}/lib")

    def test_archive_by_pkg_config(self):
        self.assert_command_builds(STATIC_PKG_CONFIG, "c")

    def test_archive_by_plain_flags(self):
        for language in STANDARDS:
            with self.subTest(language=language):
                self.assert_command_builds(STATIC_PLAIN_FLAGS, language)


class Projects(Route):
    def test_find_package(self):
        for language in STANDARDS:
            with self.subTest(language=language):
                build = self.build(language, FIND_PACKAGE, LINK,
                                   f"-DCMAKE_PREFIX_PATH={self.prefix}")
                self.assert_runs(build / "prog")

    def test_archive_by_find_package(self):
        build = self.build("c", FIND_PACKAGE, LINK.replace("::orvautil)", "::orvautil_static)"),
                           f"-DCMAKE_PREFIX_PATH={self.prefix}")
        self.assert_runs(build / "prog")

    def test_find_package_refuses_another_major_version(self):
        self.write("CMakeLists.txt", PROJECT.format(cmake_language="C", language="c", link="",
                                                    get="find_package(orvautil 2 REQUIRED)"))
        self.assert_ends(target.configure(self.folder, self.folder / "build",
                                          f"-DCMAKE_PREFIX_PATH={self.prefix}"),
                         1, 'compatible with requested version "2"')

    def test_add_subdirectory(self):
        (self.folder / "orvatool").symlink_to(target.ROOT)
        for language in STANDARDS:
            static = LINK.replace("prog", "progstatic").replace("::orvautil)", "::orvautil_static)")
            more = f"{LINK}\nadd_executable(progstatic prog.{language})\n{static}"
            build = self.build(language, ADD_SUBDIRECTORY, more, "-DCMAKE_BUILD_TYPE=Debug")
            for program in "prog", "progstatic":
                with self.subTest(language=language, program=program):
                    self.assert_runs(build / program)
            with self.subTest("installs nothing of ours", language=language):
                output_of([target.CMAKE, "--install", build, "--prefix", self.folder / "installed"])
                self.assertFalse((self.folder / "installed").exists())

    def test_add_subdirectory_brings_functions_of_our_prefix_only(self):
        lists = (target.ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
        included = re.findall(r"^include\((cmake/\S+)\)", lists, re.MULTILINE)
        texts = [(target.ROOT / name).read_text(encoding="utf-8") for name in included]
        names = re.findall(r"^(?:function|macro)\((\w+)", "\n".join(texts), re.MULTILINE)
        self.assertTrue(names, "no function was found")
        self.assertEqual([name for name in names if not name.startswith("orvatool_")], [])


if __name__ == "__main__":
    unittest.main()
