"""The comparison finds what makes two builds differ: each cause is planted in a file of its own.

Each test builds the tool twice, as the README says.
"""

import unittest

from tests.reproduce.builds import Comparison

STRING = "static const char kPlanted[] __attribute__((used)) = {};\n"
BUILT = {"bin/orvatool", "installed/usr/sbin/orvatool"}  # the tool, and as it is installed
STORE = {"lib/libtroption.so"}


def append(place, name, text):
    """Adds a text to the end of a file of the sources."""
    path = place.sources / name
    path.write_text(path.read_text(encoding="utf-8") + text, encoding="utf-8")


def plant_one_of_each(place):
    """The date in the tool; the folder in the option store; umask and locale in installed files."""
    append(place, "tool/main.cpp", STRING.format("__DATE__"))
    append(place, "platform/CMakeLists.txt", "target_compile_definitions(orvatool_troption PRIVATE"
           ' PLANTED="${PROJECT_SOURCE_DIR}")\n')
    append(place, "platform/troption.c", STRING.format("PLANTED"))
    append(place, "cmake/install.cmake", r"""
execute_process(COMMAND sh -c "printf 'a\nB\n' | sort" OUTPUT_FILE ${PROJECT_BINARY_DIR}/sorted)
install(FILES ${PROJECT_BINARY_DIR}/sorted TYPE DATA)
install(CODE "file(WRITE \"\$ENV{DESTDIR}/usr/share/masked\" masked)")
install(CODE "execute_process(COMMAND date +%Z OUTPUT_FILE \$ENV{DESTDIR}/usr/share/zone)")
""")


def plant_paths_in_debug_data(place):
    """The build's own guard against paths, taken out."""
    place.edit("cmake/flags.cmake", "-ffile-prefix-map", "-Dunused")


class Seeds(unittest.TestCase):
    maxDiff = None

    def test_date_folder_zone_umask_and_locale_each_show_where_they_went(self):
        found = Comparison(prepare=plant_one_of_each)
        planted = {f"installed/usr/share/{name}" for name in ("sorted", "masked", "zone")}
        self.assertEqual(set(found.differences), BUILT | STORE | planted)
        self.assertEqual(found.paths, len(STORE) * 2)

    def test_paths_in_debug_data_show(self):
        found = Comparison(prepare=plant_paths_in_debug_data)
        self.assertLessEqual(BUILT | STORE, set(found.differences))
        self.assertGreater(found.paths, 0)


if __name__ == "__main__":
    unittest.main()
