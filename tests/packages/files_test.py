"""What the packages hold, whoever installs them."""

import re
import subprocess
import tempfile
import unittest
from pathlib import Path

from tests.packages import packages

ARCHITECTURES = ("amd64", "armel")
TOOLCHAIN = packages.ROOT / "cmake/arm-linux-gnueabi.cmake"
RUNNERS = {"amd64": (), "armel": ("qemu-arm", "-L", "/usr/arm-linux-gnueabi")}
TIME_SIZES = {"amd64": "8", "armel": "4"}  # bytes of time_t in the library


# A program of somebody else, once with the library and once with the archive.
PROJECT = """
cmake_minimum_required(VERSION 3.13)
project(caller C)
find_package(orvautil {version} REQUIRED)
foreach(name orvautil orvautil_static)
    add_executable(with_${{name}} {source})
    target_link_libraries(with_${{name}} orvautil::${{name}})
endforeach()
"""


class Files(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def _unpacked(self, architecture):
        root = self.folder / architecture
        packages.unpack(root, architecture, *packages.NAMES)
        return {str(path.relative_to(root)): path for path in root.rglob("*") if path.is_file()}

    def test_sizes_of_types_are_those_of_the_architecture(self):
        for architecture in ARCHITECTURES:
            files = self._unpacked(architecture)
            config, = (path for name, path in files.items() if name.endswith("orvautil/config.h"))
            self.assertRegex(config.read_text(encoding="ascii"),
                             rf"SIZEOF_TIME_T {TIME_SIZES[architecture]}\n")

    def test_two_architectures_stand_side_by_side(self):
        first, second = map(self._unpacked, ("amd64", "armel"))
        shared = {name for name in first.keys() & second.keys() if name != "usr/sbin/orvatool"}
        self.assertTrue(shared)  # manual pages and the like
        for name in shared:
            self.assertEqual(first[name].read_bytes(), second[name].read_bytes(), name)

    def test_cmake_finds_the_library_of_the_architecture(self):
        text = PROJECT.format(version=packages.VERSION, source=packages.CALLER)
        (self.folder / "CMakeLists.txt").write_text(text, encoding="ascii")
        for architecture, words in ("amd64", ()), ("armel", ("--toolchain", TOOLCHAIN)):
            self._unpacked(architecture)
            build = self.folder / f"build-{architecture}"
            for command in (("-S", self.folder, "-B", build, *words,
                             f"-DCMAKE_PREFIX_PATH={self.folder / architecture / 'usr'}"),
                            ("--build", build)):
                run = subprocess.run(("cmake", *command), capture_output=True, text=True,
                                     check=False)
                self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
            for name in "orvautil", "orvautil_static":
                ran = subprocess.run((*RUNNERS[architecture], build / f"with_{name}"), check=True,
                                     capture_output=True, text=True)
                self.assertEqual(packages.called(ran.stdout), packages.CALLED)

    def test_scripts_of_packages_are_those_of_debhelper_or_none(self):
        for architecture in ARCHITECTURES:
            for name in packages.NAMES:
                control = subprocess.run(["dpkg-deb", "--info", packages.path(name, architecture)],
                                         check=True, capture_output=True, text=True).stdout
                scripts = re.findall(r"(preinst|postinst|prerm|postrm|conffiles)\b", control)
                self.assertEqual(scripts, [], name)


if __name__ == "__main__":
    unittest.main(verbosity=2)
