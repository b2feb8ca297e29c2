"""docs/integrating.md, followed to the letter: its commands build, install and find the library."""

import os
import re
import shutil
import unittest

from tests.consumers import target
from tests.consumers.target import PROGRAMS, output_of

PAGE = (target.ROOT / "docs/integrating.md").read_text(encoding="utf-8")
SECTION = PAGE.partition("\n## Getting the library into your build\n")[2].partition("\n## ")[0]
BLOCKS = re.findall(r"(?:^    .*\n)+", SECTION, re.MULTILINE)
ROWS = {route: re.findall(r"`([^`]+)`", words)
        for route, words in re.findall(r"^\| ([^|]+) \| (.*) \|$", SECTION, re.MULTILINE)}
PROJECT = """
cmake_minimum_required(VERSION 3.16)
project(other C)
{}
add_executable(prog prog.c)
{}
"""
NO_SOURCES = shutil.ignore_patterns("build", ".git", "__pycache__")


class Page(target.Test):
    def setUp(self):
        super().setUp()
        self.sources = self.folder / "orvatool"
        shutil.copytree(target.ROOT, self.sources, ignore=NO_SOURCES, symlinks=True)
        shutil.copy(PROGRAMS / "prog.c", self.folder)

    def follow(self, commands, folder):
        """What the page's commands print, where its FOLDER and ROOT are two of the test's."""
        for name, path in ("FOLDER", "prefix"), ("ROOT", "root"):
            commands = commands.replace(name, str(self.folder / path))
        # Without optimisation, which takes long.
        return output_of(f"set -e\n{commands}", folder, CMAKE_BUILD_TYPE="Debug",
                         CMAKE_BUILD_PARALLEL_LEVEL=str(os.cpu_count()))

    def test_its_commands_lead_to_programs_with_the_library(self):
        install, = (block for block in BLOCKS if "cmake --install" in block
                    and ("CMAKE_TOOLCHAIN_FILE" in block) == target.ARM)
        self.follow(install, self.sources)
        if target.ARM:
            for name in "sbin/orvatool", "lib/liborvautil.so.1", "share/man/man8/orvatool.8":
                self.assertTrue((self.folder / "root/usr" / name).is_file(), name)

        find, = (block for block in BLOCKS if "export " in block)
        (pkg_config,), (flags,) = ROWS["pkg-config"], ROWS["plain flags"]
        self.write("CMakeLists.txt", PROJECT.format(*ROWS["CMake, installed"]))
        toolchain = f"-DCMAKE_TOOLCHAIN_FILE='{target.TOOLCHAIN}'" if target.ARM else ""
        cmake = f"cmake -S . -B . {toolchain} && cmake --build . && mv prog a.out"
        for command in pkg_config, flags, cmake:
            with self.subTest(command=command):
                command = re.sub("^cc ", f"{target.COMPILERS['c']} ", command)
                run = " ".join([*target.EMULATOR, "./a.out"])
                printed = self.follow(f"{find}\n{command}\n{run}\nrm a.out", self.folder)
                self.assertIn("\nseconds 1709208000, weekday 4\n", f"\n{printed}")


if __name__ == "__main__":
    unittest.main()
