"""The installed headers by both compilers, in each version of C and C++, without a warning.

Each alone, so that it has all it needs, and all of them before and after the system's own.
"""

import os
import shlex
import unittest
from concurrent.futures import ThreadPoolExecutor

from tests.consumers import target

SYSTEM_HEADERS = """
assert ctype dirent errno fcntl limits math pthread signal stdio stdlib string sys/stat time unistd
""".split()
WARNINGS = "-Wall -Wextra -Wpedantic -Werror"
C = ("c99", "c11", "c17", "c2x")
CXX = ("c++11", "c++14", "c++17", "c++20", "c++2b")  # the last one becomes C++23


def including(headers):
    return "".join(f"#include <{header}>\n" for header in headers)


class Headers(target.Test):
    def setUp(self):
        super().setUp()
        self.include = target.installation() / "usr/include"
        headers = sorted(str(path.relative_to(self.include))
                         for path in self.include.rglob("*.h"))
        self.assertEqual(headers[0], "orvautil/config.h")
        system = [f"{name}.h" for name in SYSTEM_HEADERS]
        texts = [including([header]) for header in headers]
        texts += [including(headers + system), including(system + headers)]
        self.sources = {
            ending: [self.write(f"{number}.{ending}", text + "extern int something;\n")
                     for number, text in enumerate(texts)]
            for ending in ("c", "cpp")}

    def complaints(self, how):
        """What a compiler says of the sources, with a flag for the version of the language."""
        (program, standards, ending), standard = how
        sources = shlex.join(map(str, self.sources[ending]))
        ended = target.run(f"{program} -std={standard} {WARNINGS} -fsyntax-only"
                           f" -I{self.include} {sources}")
        return f"{program} -std={standard}", ended.returncode, ended.stderr

    def check(self, c_compiler, cpp_compiler):
        compilers = (c_compiler, C, "c"), (cpp_compiler, CXX, "cpp")
        ways = [(each, standard) for each in compilers for standard in each[1]]
        with ThreadPoolExecutor(os.cpu_count()) as pool:
            for way, status, said in pool.map(self.complaints, ways):
                with self.subTest(way=way):
                    self.assertEqual(status, 0, said)

    def test_compile_without_a_warning(self):
        self.check(target.COMPILERS["c"], target.COMPILERS["cpp"])

    @unittest.skipUnless(target.CLANG, target.NO_CLANG)
    def test_compile_without_a_warning_by_clang(self):
        self.check(target.CLANG, target.CLANG.replace("clang", "clang++", 1))
