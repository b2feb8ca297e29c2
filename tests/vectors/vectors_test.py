"""The tables of calls, given once more by the product and by the second implementations.

Called with the folder of the sources, the names of the tables, and the command that gives results.
"""

import difflib
import pathlib
import re
import subprocess
import sys
import unittest

from tests.support import exports_list

root = pathlib.Path(sys.argv[1])
tables = [word for word in sys.argv[2:] if word.endswith(".txt")]
command = sys.argv[2 + len(tables):]

CALL = re.compile(r"^(\w+) .*= .", re.MULTILINE)
RANDOM = re.compile(r'^random "(\w+)" (\d+) = [0-9a-f]{16}$', re.MULTILINE)

# What the same arguments do not always give the same, or what does its work elsewhere.
NOT_PURE = {
    "PrintLog", "_timezone", "_dstbias", "_daylight",
    "GetCurDateTime", "GetCurDate", "GetCurTime", "GetCurTimeNoSec", "GetClockDT", "GetTime",
    "GetLocalTime", "Trmmsleep", "SyncSysTime", "TrGetTickCount", "GetSysSecond",
    "GetMac", "set_mac_addr",
    "DiskSpaceUsed", "CheckFileExists", "CopyFileContent", "FileCopy", "GetAssignEnvPath",
    "GetEnvFilePath", "TrOpenFolder", "TrGetFileName", "TrCloseFolder", "GetFileCountOfFolder",
    "CopyFolder", "CreateMulvPath", "systemEx", "CloseChildProcFd",
}


def read(name):
    return (root / "tests/vectors" / name).read_text(encoding="ascii")


class Tables(unittest.TestCase):
    longMessage = False

    def assert_given_by(self, implementation):
        for name in tables:
            with self.subTest(table=name):
                given = subprocess.run([*command, implementation], input=read(name), check=True,
                                       stdout=subprocess.PIPE, text=True, encoding="ascii").stdout
                difference = difflib.unified_diff(
                    read(name).splitlines(), given.splitlines(), name, implementation,
                    lineterm="", n=0)
                self.assertEqual(given, read(name), "\n".join(list(difference)[:40]))

    def test_the_product_gives_each_result(self):
        self.assert_given_by("product")

    def test_the_second_implementations_give_the_tables_byte_by_byte(self):
        self.assert_given_by("naive")


class Functions(unittest.TestCase):

    def setUp(self):
        self.pure = set(exports_list.names(root / "tool/exports.list")) - NOT_PURE

    def test_each_pure_one_has_calls(self):
        self.assertEqual(set(CALL.findall(read("calls.txt"))), self.pure)

    def test_each_pure_one_has_a_digest_of_random_calls(self):
        for table, count in (("random.txt", "2000"), ("random_all.txt", "100000")):
            self.assertEqual(sorted(RANDOM.findall(read(table))),
                             sorted((name, count) for name in self.pure))

    def test_all_others_are_exported(self):
        self.assertLessEqual(NOT_PURE, set(exports_list.names(root / "tool/exports.list")))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
