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

FOREACH = re.compile(r"foreach\((\w+) (?:IN LISTS (\w+)|([^()]*))\)(.*?)endforeach\(\)", re.DOTALL)
ADD_TEST = re.compile(r"add_test\(NAME (\S+)\s+COMMAND ([^()]*)\)")
LIST = re.compile(r"(?:set|list)\((?:APPEND )?(\w+) ([^()]*)\)")
COUNTED = re.compile(r"expect_python_tests\(([^()$]*)\)")
SCRIPT_RUN = re.compile(r"^ *(.*)python3 .*?(tests[/.][\w/.]+?(?:\$\{name\})?_test)\b", re.MULTILINE)


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


def python_runs():
    """(name in CTest, files that it runs, whether it demands a test) of each run by Python."""
    for path in sorted(root.glob("tests/**/CMakeLists.txt")):
        text = path.read_text(encoding="utf-8")
        lists = {}
        for name, words in LIST.findall(text):
            lists[name] = f"{lists.get(name, '')} {words}"
        text = FOREACH.sub(lambda loop: "".join(
            loop[4].replace(f"${{{loop[1]}}}", word)
            for word in (loop[3] or lists.get(loop[2], '')).split()), text)
        # From the root: the path of the tree may have blanks.
        text = text.replace("${CMAKE_CURRENT_SOURCE_DIR}", str(path.parent.relative_to(root)))
        counted = {name for names in COUNTED.findall(text) for name in names.split()}
        for name, command in ADD_TEST.findall(text):
            words = command.split()
            files = {root / word for word in words if word.endswith("_test.py")}
            if "discover" in words:
                start = root / words[words.index("--start-directory") + 1]
                files |= set(start.glob("*_test.py"))
            if files or "unittest" in words:
                yield name, files, name in counted
    for path in sorted(root.glob("script/*")):
        for before, test in SCRIPT_RUN.findall(path.read_text(encoding="utf-8")):
            files = root.glob(test.replace(".", "/").replace("${name}", "*") + ".py")
            yield str(path.relative_to(root)), set(files), before == "tests/counted "


class PythonTests(unittest.TestCase):
    longMessage = False

    def test_each_file_is_run(self):
        run = set().union(*(files for _, files, _ in python_runs()))
        for file in sorted((root / "tests").rglob("*_test.py")):
            with self.subTest(file=str(file.relative_to(root))):
                self.assertIn(file, run, f"nothing runs {file}: add_test it in the CMakeLists.txt"
                                         f" beside")

    def test_each_run_must_find_tests(self):
        runs = list(python_runs())
        self.assertGreater(len(runs), 10, "hardly any run of a Python test is recognised")
        for name, _, is_counted in runs:
            with self.subTest(name):
                self.assertTrue(is_counted, f"{name} may lose its tests: expect_python_tests")


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
