"""What the linked executable exports, needs and allows.

Called with the executable, its exports list and that of the log, the target's nm and readelf, cmake
and the build folder for an installation, and the objects of the library.
"""

import re
import subprocess
import sys
import tempfile
import unittest

from tests.binary.exported_names import NAMES
from tests.support import exports_list

executable, list_path, log_list_path, nm, readelf, cmake, build_folder, *objects = sys.argv[1:]


def output_of(*command):
    run = subprocess.run(command, check=True, capture_output=True, text=True)
    return run.stdout


def dynamic_symbols(which, file=executable):
    """(name, type) of the dynamic symbols; a version after @ is left out."""
    lines = output_of(nm, "-D", which, file).splitlines()
    return [(line.split()[-1].split("@")[0], line.split()[-2]) for line in lines]


class Exports(unittest.TestCase):
    def test_list_holds_plain_names_once(self):
        names = exports_list.names(list_path)
        self.assertEqual(len(names), len(set(names)))
        for name in names:
            self.assertRegex(name, r"^[A-Za-z_]\w*$")  # a pattern would export more than it shows

    def test_exactly_the_listed_names(self):
        exported = [name for name, _ in dynamic_symbols("--defined-only")]
        self.assertCountEqual(exported, exports_list.names(list_path))

    def test_the_names_that_other_programs_call(self):
        exported = [name for name, _ in dynamic_symbols("--defined-only")]
        with self.subTest("lost names"):
            if lost := ", ".join(sorted(set(NAMES) - set(exported))):
                self.fail(f"{lost}: other programs call it, and the executable has it no more")
        with self.subTest("new names"):
            if new := ", ".join(sorted(set(exported) - set(NAMES))):
                self.fail(f"{new}: once exported, a name is kept for good: write it down in"
                          f" tests/binary/exported_names.py")

    def test_the_library_shows_exactly_the_listed_names(self):
        symbols = output_of(readelf, "-s", "-W", *objects)
        visible = re.findall(r" (?:GLOBAL|WEAK) +(?:DEFAULT|PROTECTED) +\d+ (\S+)$", symbols,
                             flags=re.MULTILINE)
        listed = exports_list.names(list_path) + exports_list.names(log_list_path)
        with self.subTest("visible names"):
            if unlisted := ", ".join(sorted(set(visible) - set(listed))):
                self.fail(f"{unlisted}: visible in the library but not in tool/exports.list: name"
                          f" them below their header")
        with self.subTest("listed names"):
            if hidden := ", ".join(sorted(set(listed) - set(visible))):
                self.fail(f"{hidden}: in tool/exports.list but not visible: declare them in the"
                          f" public header before #pragma GCC visibility pop")

    def test_functions_are_code_and_globals_are_data(self):
        for name, kind in dynamic_symbols("--defined-only"):
            self.assertIn(kind, exports_list.DATA_TYPES.get(name, "T"), name)


class Needs(unittest.TestCase):
    def setUp(self):
        self.dynamic = output_of(readelf, "-d", "-W", executable)

    def test_no_library_but_the_c_library_and_the_option_store(self):
        needed = re.findall(r"\(NEEDED\).*\[(.*)\]", self.dynamic)
        self.assertIn("libtroption.so", needed)
        self.assertIn("libc.so.6", needed)
        for name in needed:
            self.assertRegex(name, r"^(libtroption\.so|libc\.so\.6|libm\.so\.6|ld-linux.*\.so\.\d)$")

    def test_the_option_store_is_called_dynamically(self):
        undefined = [name for name, _ in dynamic_symbols("--undefined-only")]
        self.assertIn("InitOption", undefined)
        self.assertIn("LoadOptionStr", undefined)


def run_paths(file):
    return re.findall(r"\((?:RPATH|RUNPATH)\).*\[(.*)\]", output_of(readelf, "-d", "-W", file))


class RunPath(unittest.TestCase):
    """An empty entry, also one in front or at the end, would be the current folder."""

    def test_in_the_build_folder_is_the_one_beside_the_executable(self):
        self.assertEqual(run_paths(executable), ["$ORIGIN/../lib"])

    def test_is_taken_off_when_installed(self):
        with tempfile.TemporaryDirectory() as prefix:
            # Of one component, which leaves the list of the last full installation as it is.
            output_of(cmake, "--install", build_folder, "--prefix", prefix, "--component",
                      "Unspecified")
            installed = f"{prefix}/sbin/orvatool"
            self.assertEqual(run_paths(installed), [])
            for which in ("--defined-only", "--undefined-only"):
                self.assertEqual(dynamic_symbols(which, installed), dynamic_symbols(which))


class Hardening(unittest.TestCase):
    def setUp(self):
        self.headers = output_of(readelf, "-h", "-l", "-W", executable)
        self.dynamic = output_of(readelf, "-d", "-W", executable)

    def test_is_position_independent(self):
        self.assertRegex(self.headers, r"Type:\s+DYN ")
        self.assertRegex(self.dynamic, r"\(FLAGS_1\).*\bPIE\b")

    def test_has_no_relocations_in_code(self):
        self.assertNotIn("TEXTREL", self.dynamic)

    def test_binds_at_start(self):
        self.assertRegex(self.dynamic, r"\(FLAGS_1\).*\bNOW\b|\(BIND_NOW\)")

    def test_relocated_data_becomes_read_only(self):
        self.assertIn("GNU_RELRO", self.headers)

    def test_stack_is_not_executable(self):
        stack = re.search(r"GNU_STACK(?:\s+0x\w+){5}\s+(\S[RWE ]*?)\s+0x", self.headers)
        self.assertEqual(stack.group(1), "RW")

    def test_no_segment_is_writable_and_executable(self):
        for flags in re.findall(r"LOAD(?:\s+0x\w+){5}\s+([RWE ]+?)\s+0x", self.headers):
            self.assertFalse("W" in flags and "E" in flags, flags)

    def test_stack_protector_is_in(self):
        undefined = [name for name, _ in dynamic_symbols("--undefined-only")]
        self.assertIn("__stack_chk_fail", undefined)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
