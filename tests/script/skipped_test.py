"""What is told of skipped tests: each kind is named with its reason, and none is hidden."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from tests import skipped
from tests.script.commands import ROOT

PYTHON = """\
import unittest

class Some(unittest.TestCase):
    def test_four(self):
        self.skipTest("no day")

    def test_one(self):
        self.skipTest("it's Sunday")

    def test_two(self):
        "A first line."
        with self.subTest(day=1):
            self.skipTest("no reason")

    def test_three(self):
        pass

unittest.main(verbosity={verbosity})
"""
GOOGLE = """\
[ RUN      ] Limits.Hard
/some/limits_test.cpp:151: Skipped
the hard limit is 4,
below 100

[  SKIPPED ] Limits.Hard (0 ms)
[ RUN      ] Limits.Soft
/some/limits_test.cpp:161: Skipped
the soft limit is 4

[  SKIPPED ] Limits.Soft (0 ms)
[==========] 3 tests from 1 test suite ran. (0 ms total)
[  PASSED  ] 1 test.
[  SKIPPED ] 2 tests, listed below:
[  SKIPPED ] Limits.Hard
[  SKIPPED ] Limits.Soft
"""


class Skipped(unittest.TestCase):
    maxDiff = None

    def run_of(self, text, properties=""):
        """(program, test, reason) of a real run of CTest, whose one program prints the text."""
        with tempfile.TemporaryDirectory() as folder:
            folder = Path(folder)
            (folder / "text").write_text(text)
            (folder / "CTestTestfile.cmake").write_text(
                f"add_test(program sh -c \"cat '{folder}/text'; exit 77\")\n"
                f"set_tests_properties(program PROPERTIES {properties or 'WILL_FAIL ON'})\n")
            run = subprocess.run(["ctest"], cwd=folder, capture_output=True, text=True, check=True)
            log = (folder / "Testing/Temporary/LastTest.log").read_text()
        return list(skipped.of_run(log, run.stdout))

    def python(self, verbosity):
        """What Python's unittest prints of some tests that are skipped."""
        return subprocess.run([sys.executable, "-"], input=PYTHON.format(verbosity=verbosity),
                              capture_output=True, text=True, check=True).stderr

    def test_names_tests_of_unittest(self):
        self.assertCountEqual(self.run_of(self.python(2)), [
            ("program", "Some.test_four", "no day"),
            ("program", "Some.test_one", "it's Sunday"),
            ("program", "Some.test_two", "no reason")])

    def test_names_tests_of_googletest(self):
        self.assertEqual(self.run_of(GOOGLE),
                         [("program", "Limits.Hard", "the hard limit is 4, below 100"),
                          ("program", "Limits.Soft", "the soft limit is 4")])

    def test_names_a_program(self):
        self.assertEqual(self.run_of("skipped: no mounts\n", "SKIP_RETURN_CODE 77"),
                         [("program", "all of it", "no mounts")])

    def test_finds_nothing_in_other_tests(self):
        self.assertEqual(self.run_of("Ran 3 tests\n\nOK\n"), [])

    def test_refuses_names_that_are_hidden(self):
        for text, properties in ((self.python(1), ""), (GOOGLE.replace(": Skipped", ""), ""),
                                 ("", "SKIP_RETURN_CODE 77"), ("", "DISABLED ON"),
                                 ("skipped: in part\n", "")):
            with self.subTest(text=text, properties=properties):
                with self.assertRaises(skipped.Hidden):
                    self.run_of(text, properties)

    def counted(self, words):
        """The status of tests/counted with Python's unittest, and the lines that it leaves."""
        with tempfile.TemporaryDirectory() as folder:
            folder = Path(folder)
            (folder / "build").mkdir()
            (folder / "tests").symlink_to(ROOT / "tests")
            (folder / "some_test.py").write_text(PYTHON.partition("unittest.main")[0])
            run = subprocess.run(["tests/counted", sys.executable, "-m", "unittest", *words],
                                 cwd=folder, capture_output=True, check=False)
            return run.returncode, (folder / "build/skipped.txt").read_text()

    def test_of_a_program_alone_are_put_with_the_others(self):
        status, lines = self.counted(["--verbose", "some_test.py"])
        self.assertEqual(status, 0)
        self.assertCountEqual(lines.splitlines(), ["proof\tsome_test\tSome.test_four\tno day",
                                                   "proof\tsome_test\tSome.test_one\tit's Sunday",
                                                   "proof\tsome_test\tSome.test_two\tno reason"])

    def test_of_a_program_alone_are_not_hidden(self):
        self.assertEqual(self.counted(["some_test.py"]), (1, ""))

    def test_tells_count_and_names_by_reason(self):
        self.assertEqual(skipped.told([("arm", "some_test", "A.one", "why"),
                                       ("arm", "some_test", "A.two", "why"),
                                       ("host", "some_test", "A.one", "else")]),
                         "Skipped: 3\n"
                         "    arm some_test: why: A.one, A.two\n"
                         "    host some_test: else: A.one\n")
        self.assertEqual(skipped.told([]), "Nothing was skipped.\n")


if __name__ == "__main__":
    unittest.main()
