"""Configurations that are refused, in a sentence that names the value and what to give instead.

A wrong value that is taken back leaves nothing behind: the next configuration is right.
"""

from pathlib import Path

from tests.consumers import target

BUILD_TYPES = "give MinSizeRel, as on the terminal, RelWithDebInfo, Release, Debug or None."
SWITCHES = ("TESTS", "BENCH", "COVERAGE", "FUZZ", "WERROR", "INSTALL", "INSTALL_STANDINS",
            "FORTIFY")
NO_FILE = ("and there is no such file: give the path of the terminal's libtroption.so, or nothing"
           " for our stand-in.")
NO_LIBRARY = "which is no library: give the terminal's libtroption.so itself."


class Refusals(target.ConfigureTest):
    def test_option_stores_that_are_none(self):
        text = self.write("libtext.so", "INPUT(libtroption.so.1)\n")
        empty = self.write("libempty.so", "")
        missing = self.folder / "libmissing.so"
        self.assert_refused("ORVATOOL_TROPTION", *(
            (path, f'ORVATOOL_TROPTION is "{path}", {why}') for path, why in (
                (missing, NO_FILE), (self.folder, NO_FILE), (text, NO_LIBRARY),
                (empty, NO_LIBRARY))))

    def test_option_store_of_another_processor(self):
        head = bytearray(Path("/proc/self/exe").read_bytes()[:64])
        for place, name in ((4, "class"), (5, "order"), (18, "machine")):
            with self.subTest(other=name):
                other = bytearray(head)
                other[place] ^= 3
                path = self.folder / f"lib{name}.so"
                path.write_bytes(other)
                self.assert_refused("ORVATOOL_TROPTION", (
                    path, f'ORVATOOL_TROPTION is "{path}", which is of another processor than that'
                    f" of {target.COMPILERS['c']}: give the library of this one, or choose the"
                    " terminal's compiler, as by --toolchain cmake/arm-linux-gnueabi.cmake."))

    def test_option_store_where_the_compiler_is_not_tried(self):
        store = self.folder / "libstore.so"
        store.write_bytes(Path("/proc/self/exe").read_bytes()[:64])
        self.assert_ends(target.configure(target.ROOT, self.folder / "build",
                                          "-DCMAKE_C_COMPILER_FORCED=ON",
                                          f"-DORVATOOL_TROPTION={store}"), 0)

    def test_sanitizers_that_the_compiler_has_not(self):
        compiler = target.COMPILERS["cpp"]
        self.assert_refused("ORVATOOL_SANITIZE", *(
            (value, f'ORVATOOL_SANITIZE is "{value}", with which {compiler} builds no program: give'
             " sanitizers that it has, as in address,undefined, or nothing.")
            for value in ("nonsense", "address,thread")))
        self.assert_ends(self.configured("-DORVATOOL_SANITIZE=address,undefined"), 0)
        self.configured("-UORVATOOL_SANITIZE")

    def test_what_needs_clang(self):
        for name in ("ORVATOOL_COVERAGE", "ORVATOOL_FUZZ"):
            self.assert_refused(name, ("ON", f"{name} needs clang, and the compiler is"
                                       f" {target.COMPILERS['cpp']}: give -DCMAKE_C_COMPILER=clang"
                                       " -DCMAKE_CXX_COMPILER=clang++ in an empty build folder."))

    def test_tests_without_googletest(self):
        ended = self.configured("-DORVATOOL_TESTS=ON", f"-DORVATOOL_GTEST_SOURCE={self.folder}")
        self.assert_ends(ended, 1, f'ORVATOOL_GTEST_SOURCE is "{self.folder}", without a'
                         " CMakeLists.txt: give the folder of GoogleTest's sources (script/setup"
                         " gets Debian's), or take ORVATOOL_TESTS=ON back.")
        self.configured("-UORVATOOL_TESTS", "-UORVATOOL_GTEST_SOURCE")

    def test_build_types_that_do_not_exist(self):
        self.assert_refused("CMAKE_BUILD_TYPE", *(
            (value, f'CMAKE_BUILD_TYPE is "{value}": {BUILD_TYPES}')
            for value in ("MinSize", "release!", "RelWithDebInfo;Debug")))

    def test_switches_that_are_neither_on_nor_off(self):
        for name in SWITCHES:
            ended = self.configured(f"-DORVATOOL_{name}=maybe")
            self.assert_ends(ended, 1, f'ORVATOOL_{name} is "maybe": give ON or OFF.')
            self.configured(f"-UORVATOOL_{name}")

    def test_values_that_say_something(self):
        self.assert_ends(self.configured("-DORVATOOL_INSTALL=no", "-DORVATOOL_FORTIFY=on",
                                         "-DCMAKE_BUILD_TYPE=None"), 0)
        self.assert_ends(self.configured("-DCMAKE_BUILD_TYPE=Own", "-DCMAKE_CXX_FLAGS_OWN=-O3"), 0)
