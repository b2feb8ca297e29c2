"""The oldest C library that tool and library run with: symbols above GLIBC_2.7 are reviewed.

Called with the reviewed list, the target's nm, and the files.
"""

import re
import subprocess
import sys
import unittest

list_path, nm, *files = sys.argv[1:]
OLDEST = (2, 7)  # what the sources themselves need, on any C library


def reviewed():
    """(symbol, version) of the list's lines, each with its reason."""
    with open(list_path, encoding="ascii") as file:
        lines = [line.split(maxsplit=2) for line in file if line.strip() and line[0] != "#"]
    return {(symbol, version): reason for symbol, version, reason in lines}


def needed(file):
    """(symbol, version) of what the file takes from others."""
    run = subprocess.run([nm, "-D", "--undefined-only", file], check=True, capture_output=True,
                         text=True)
    return set(re.findall(r" [Uwv] (\w+)@(\w[\w.]*)$", run.stdout, flags=re.MULTILINE))


def is_new(version):
    """Whether a version is newer than the oldest; one that is no number is, too."""
    number = re.fullmatch(r"GLIBC_(\d+)\.(\d+)(?:\.\d+)?", version)
    return not number or tuple(map(int, number.groups())) > OLDEST


class SymbolVersions(unittest.TestCase):
    def test_each_new_one_is_in_the_list(self):
        for file in files:
            with self.subTest(file=file):
                found = needed(file)
                self.assertIn(("fopen", "GLIBC_2.4"), found)  # versions show at all
                new = {need for need in found if is_new(need[1])}
                if unlisted := ", ".join("@".join(need) for need in sorted(new - set(reviewed()))):
                    self.fail(f"{unlisted}: an older terminal lacks it. Do without, or write it"
                              f" down with its reason in tests/binary/symbol_versions.txt")

    def test_each_of_the_list_is_needed(self):
        found = set().union(*map(needed, files))
        if stale := ", ".join("@".join(need) for need in sorted(set(reviewed()) - found)):
            self.fail(f"{stale}: nothing needs it any more: take it out of"
                      f" tests/binary/symbol_versions.txt")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
