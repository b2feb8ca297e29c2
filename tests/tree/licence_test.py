"""The licence is told where people and tools look for it.

Called with the folder of the sources.
"""

import pathlib
import re
import sys
import unittest

root = pathlib.Path(sys.argv[1])
# REUSE-IgnoreStart
LINE = "SPDX-License-Identifier: MIT"
# REUSE-IgnoreEnd
HOLDER = "the orvatool authors"


def read(name):
    return (root / name).read_text(encoding="utf-8")


def public_headers():
    """The headers that cmake/library.cmake has installed, and the one that it writes."""
    listed, = re.findall(r"set\(public_headers\s([^)]*)\)", read("cmake/library.cmake"))
    return [*listed.split(), "cmake/config.h.in"]


class Licence(unittest.TestCase):
    longMessage = False

    def test_is_mit_of_the_authors(self):
        text = read("LICENSE")
        self.assertTrue(text.startswith("MIT License\n\n"))
        self.assertRegex(text, rf"\nCopyright \(c\) \d{{4}} {HOLDER}\n")

    def test_each_public_header_says_so_in_its_first_line(self):
        headers = public_headers()
        self.assertGreater(len(headers), 1)
        for header in headers:
            with self.subTest(header=header):
                self.assertEqual(read(header).partition("\n")[0], f"/* {LINE} */",
                                 f"{header} is installed and does not begin with its licence")

    def test_each_other_text_that_is_installed_says_so_in_its_first_line(self):
        for name, mark in (("cmake/orvautil.pc.in", "# "), ("cmake/orvautil-config.cmake.in", "# "),
                           ("docs/orvatool.8", '.\\" ')):
            with self.subTest(file=name):
                self.assertEqual(read(name).partition("\n")[0], mark + LINE)

    def test_pkg_config_knows_it(self):
        self.assertIn("\nLicense: MIT\n", read("cmake/orvautil.pc.in"))

    def test_reuse_finds_it_for_every_file(self):
        """What `reuse lint` reads: the licence by its short name, and who has which files."""
        self.assertEqual((root / "LICENSES/MIT.txt").resolve(), root.resolve() / "LICENSE")
        self.assertEqual((root / ".reuse/dep5").resolve(),
                         root.resolve() / "packaging/debian/copyright")

    def test_debian_packages_carry_the_same_text(self):
        copyright_file = read("packaging/debian/copyright")
        terms = read("LICENSE").split(f"{HOLDER}\n\n")[1]
        as_there = re.sub("^", " ", terms, flags=re.MULTILINE).replace("\n \n", "\n .\n").rstrip()
        self.assertIn(f"License: MIT\n{as_there}\n", copyright_file)
        years, = re.findall(rf"Copyright \(c\) (\S+) {HOLDER}", read("LICENSE"))
        self.assertIn(f"Files: *\nCopyright: {years} {HOLDER}\nLicense: MIT\n", copyright_file)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
