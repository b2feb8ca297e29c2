"""Where tests stand: each source file has its test file, each exported name its suite.

Called with the folder of the sources.
"""

import pathlib
import re
import sys
import unittest

from tests.support import exports_list

root = pathlib.Path(sys.argv[1])
exported = exports_list.names(root / "tool/exports.list")

# Every source file below these has a test file of its own. tool/ is left out: tests/process runs
# its main.cpp as a process.
SOURCE_FOLDERS = ("log", "splash", "udisk", "util")

# The exported names that are no functions share one suite.
DATA_SUITE = "Globals"

TEST_MACRO = re.compile(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST|TYPED_TEST_P)\(\s*(\w+),\s*\w+\)",
                        re.MULTILINE)
PYTHON_TEST = re.compile(r"^    def test_\w+\(self", re.MULTILINE)


def test_bodies():
    """(suite, text of the test) of every C++ test below tests/."""
    for path in sorted(root.glob("tests/**/*_test.cpp")):
        text = path.read_text(encoding="utf-8")
        heads = list(TEST_MACRO.finditer(text))
        ends = [head.start() for head in heads[1:]] + [len(text)]
        for head, end in zip(heads, ends):
            yield head.group(1), text[head.end():end]


class SourceFiles(unittest.TestCase):
    longMessage = False

    def test_each_has_a_test_file_of_its_path_and_name(self):
        for folder in SOURCE_FOLDERS:
            sources = sorted((root / folder).rglob("*.cpp"))
            self.assertTrue(sources, f"no source file below {folder}/")
            for source in sources:
                name = source.relative_to(root)
                test = pathlib.Path("tests") / name.with_name(name.stem + "_test.cpp")
                with self.subTest(source=str(name)):
                    self.assertTrue((root / test).is_file(),
                                    f"{name} has no test: add {test} and name it in the"
                                    f" CMakeLists.txt beside it")


class TestFiles(unittest.TestCase):
    longMessage = False

    def test_each_holds_tests(self):
        for folder, ending, test in (("tests", ".cpp", TEST_MACRO), ("tests", ".py", PYTHON_TEST),
                                     ("board/tests", ".py", PYTHON_TEST)):
            files = sorted((root / folder).rglob(f"*_test{ending}"))
            self.assertTrue(files, f"no test file in {folder}/ ends in {ending}")
            for file in files:
                with self.subTest(file=str(file.relative_to(root))):
                    self.assertRegex(file.read_text(encoding="utf-8"), test,
                                     "there is no test in this file")


class Suites(unittest.TestCase):
    longMessage = False

    def setUp(self):
        self.bodies = list(test_bodies())

    def test_each_exported_function_has_one_of_its_name(self):
        suites = {suite for suite, _ in self.bodies}
        for name in set(exported) - set(exports_list.DATA_TYPES):
            with self.subTest(function=name):
                self.assertTrue({name, name + "Test"} & suites,
                                f"{name} has no suite: add TEST({name}, ...), or TEST_F({name}Test,"
                                f" ...) with a fixture, to the test file of the source that"
                                f" defines it; what is data stands in"
                                f" tests/support/exports_list.py")

    def test_each_exported_data_object_stands_in_the_suite_of_globals(self):
        tests = "\n".join(text for suite, text in self.bodies if suite == DATA_SUITE)
        for name in exports_list.DATA_TYPES:
            with self.subTest(object=name):
                self.assertTrue(re.search(rf"\b{name}\b", tests),
                                f"no test looks at {name}: add a TEST({DATA_SUITE}, ...) to"
                                f" tests/util/timeutils/globals_test.cpp")

    def test_the_data_objects_are_exported(self):
        for name in set(exports_list.DATA_TYPES) - set(exported):
            self.fail(f"{name} is not exported: take it out of tests/support/exports_list.py")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
