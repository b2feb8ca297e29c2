"""There is one version, that of the first CMakeLists.txt: others that are told are the same.

Called with the folder of the sources.
"""

import pathlib
import re
import sys
import unittest

root = pathlib.Path(sys.argv[1])


def read(name):
    return (root / name).read_text(encoding="utf-8")


def first(pattern, name):
    """What stands in a file at the first place that looks so."""
    found = re.search(pattern, read(name), re.MULTILINE)
    return found.groups() if found else None


VERSION, = first(r"^project\(orvatool VERSION (\S+)", "CMakeLists.txt")
MONTHS = "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec".split()


class Version(unittest.TestCase):
    longMessage = False

    def test_is_the_newest_of_each_list_of_changes(self):
        for name, pattern in (("CHANGELOG.md", r"^## (\d[\d.]*), "),
                              ("packaging/debian/changelog", r"^orvatool \((\S+)\) ")):
            with self.subTest(file=name):
                self.assertEqual(first(pattern, name), (VERSION,), f"{name}: its newest release is"
                                 f" not project(VERSION) of CMakeLists.txt, {VERSION}")

    def test_has_one_date(self):
        year, month, day = first(r"^## \d[\d.]*, (\d{4})-(\d\d)-(\d\d)$", "CHANGELOG.md")
        there = first(r"^ -- .*  \w{3}, (\d\d \w{3} \d{4}) ", "packaging/debian/changelog")
        self.assertEqual(there, (f"{day} {MONTHS[int(month) - 1]} {year}",),
                         "the date of the release in CHANGELOG.md and packaging/debian/changelog")

    def test_list_of_symbols_names_no_version_that_is_still_to_come(self):
        since = re.findall(r"^ \S+@\S+ (\S+)$", read("packaging/debian/liborvautil1.symbols"),
                           re.MULTILINE)
        self.assertTrue(since)
        for version in since:
            self.assertLessEqual([int(part) for part in version.split(".")],
                                 [int(part) for part in VERSION.split(".")],
                                 "packaging/debian/liborvautil1.symbols")

    def test_names_of_packages_and_recipes_follow_it(self):
        recipe, = root.glob("packaging/**/orvatool_*.bb")
        self.assertEqual(recipe.name, f"orvatool_{VERSION}.bb")
        makefile, = root.glob("packaging/**/orvatool.mk")
        self.assertRegex(makefile.read_text(encoding="utf-8"),
                         rf"(?m)^ORVATOOL_VERSION = {re.escape(VERSION)}$")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
