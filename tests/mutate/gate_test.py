"""The command as a gate, on a small product: what no suite notices turns it red."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from tests.support import private_mounts

ROOT = Path(sys.argv.pop(1)).resolve()
KEPT = "/var/tmp"  # seen by the suites, which get an empty /tmp

PROJECT = """\
cmake_minimum_required(VERSION 3.25)
project(small LANGUAGES CXX)
enable_testing()
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
include(cmake/product.cmake)
add_library(orvautil_objects OBJECT ${util_sources})
target_include_directories(orvautil_objects PRIVATE ${PROJECT_SOURCE_DIR})
add_executable(sum_test tests/sum_test.cpp $<TARGET_OBJECTS:orvautil_objects>)
target_include_directories(sum_test PRIVATE ${PROJECT_SOURCE_DIR})
add_test(NAME sum_test COMMAND sum_test)
"""
SOURCE = """\
#include "util/limit.h"
int Sum(int a) {
    const int sum = a + a;
    return sum < kLimit ? sum : kLimit;
}
"""
SUITE = """\
int Sum(int a);
int main() {
    return Sum(2) == 4 && Sum(5) == 10 && Sum(8) == 10 && Sum(-20000) == -40000 ? 0 : 1;
}
"""
FILES = {
    "CMakeLists.txt": PROJECT,
    "cmake/product.cmake": "set(util_sources\n    util/sum.cpp)\n",
    "tool/exports.list": "{\n    /* util/sum.h */\n    Sum;\n};\n",
    "tool/main.cpp": "",
    "util/limit.h": "constexpr int kLimit = 10;\n",
    "util/sum.cpp": SOURCE,
    "tests/sum_test.cpp": SUITE,
    "equivalent.txt": "",
}


class Gate(unittest.TestCase):
    def run_on(self, **changes):
        """(exit status, output) of all faults; the changes are files by name, dots as one _."""
        with tempfile.TemporaryDirectory(dir=KEPT) as folder:
            root, build = Path(folder), Path(folder) / "build"
            names = {name.rpartition("/")[2].replace(".", "_"): name for name in FILES}
            texts = FILES | {names[name]: text for name, text in changes.items()}
            for name, text in texts.items():
                (root / name).parent.mkdir(parents=True, exist_ok=True)
                (root / name).write_text(text, encoding="utf-8")
            for command in (["cmake", "-S", root, "-B", build, "-GNinja",
                             "-DCMAKE_CXX_COMPILER_WORKS=1", "-DCMAKE_CXX_FLAGS=-O2"],
                            ["cmake", "--build", build]):
                subprocess.run(command, check=True, capture_output=True)
            run = subprocess.run(
                [ROOT / "tests/mutate/enter", root, build, "env", f"PYTHONPATH={ROOT}",
                 sys.executable, "-B", "-m", "tests.mutate", root, build, "100", "1",
                 root / "equivalent.txt"],
                capture_output=True, text=True, check=False)
            private_mounts.skip_where_refused(self, run)
            return run.returncode, run.stdout + run.stderr

    def test_is_green_when_all_are_killed(self):
        status, output = self.run_on()
        self.assertEqual(status, 0, output)
        self.assertIn("\nsurvivors: 0\n", output)
        self.assertIn("\nkilled, of those not equivalent: 100.0 %\n", output)
        self.assertRegex(output, r"\nsame code: [1-9]")  # at the limit both are equal

    def test_is_red_when_a_suite_looks_away(self):
        weak = "int Sum(int a);\nint main() { return Sum(2) == 4 ? 0 : 1; }\n"
        status, output = self.run_on(sum_test_cpp=weak)
        self.assertEqual(status, 1, output)
        self.assertIn("util/limit.h:1: survived", output)
        self.assertIn("\n+ constexpr int kLimit = 11;\n", output)

    def test_is_red_when_a_function_is_not_tested(self):
        status, output = self.run_on(sum_cpp=SOURCE + "int Twice(int a) {\n    return 2 * a;\n}\n")
        self.assertEqual(status, 1, output)
        self.assertIn("\n- return 2 * a;\n+ return 3 * a;\n", output)

    def test_is_green_for_survivors_that_are_listed(self):
        twice = SOURCE + "void Nothing() {\n    static volatile int a;\n    ++a;\n}\n"
        entries = "".join(f"- ++a;\n+ {after}\n" for after in ("--a;", ";"))
        entries += "- static volatile int a;\n+ static volatile short a;\n    Nobody reads it.\n"
        status, output = self.run_on(sum_cpp=twice, equivalent_txt="util/sum.cpp\n" + entries)
        self.assertEqual(status, 0, output)
        self.assertIn("\nequivalent, listed: 3\n", output)

    def test_is_red_for_an_entry_that_is_no_fault(self):
        status, output = self.run_on(
            equivalent_txt="util/sum.cpp\n- return a;\n+ return b;\n    why\n")
        self.assertEqual(status, 1, output)
        self.assertIn("no fault of util/sum.cpp", output)

    def test_is_red_when_a_suite_fails_without_a_fault(self):
        status, output = self.run_on(sum_test_cpp="int main() { return 1; }\n")
        self.assertEqual(status, 1, output)
        self.assertIn("fail without a fault: sum_test", output)


if __name__ == "__main__":
    unittest.main(verbosity=2)  # names what is skipped
