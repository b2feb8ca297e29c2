"""Configurations that are refused, in a sentence that names the value and what to give instead.

A wrong value that is taken back leaves nothing behind: the next configuration is right.
"""

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
