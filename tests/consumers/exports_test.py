"""What liborvautil.so and liborvautil.a offer and need, and a program's own names beside theirs."""

import os
import re

from tests.binary.exported_names import NAMES
from tests.consumers import target
from tests.consumers.target import PROGRAMS, output_of
from tests.support import exports_list

NM, READELF = os.environ["NM"], os.environ["READELF"]
LOG_NAMES = """
SetLogLevel GetLogLevel SetLogLevelByStr SetLogProgName RegisterLogThread SetLogOption
""".split()
CALLED = ("EncodeTime", "ChrisTmToLocalTm", "MergeSort", "SetLogLevel", "Str2Upcase", "main")
OWN_NAMES_PRINTED = r"""^1709164800: -?\d+-11-10
1 2 3
\[:\S+\] Warning \[trstrutils Str2Upcase \d+\]: pStr is NULL
$"""


class ExportsTest(target.Test):
    def setUp(self):
        super().setUp()
        self.lib = target.installation() / "usr/lib"
        self.shared, self.archive = self.lib / "liborvautil.so", self.lib / "liborvautil.a"

    def symbols(self, kinds):
        """The names of the archive that nm marks with one of the letters."""
        lines = [line.split() for line in output_of([NM, self.archive]).splitlines()]
        return [words[-1] for words in lines if len(words) > 1 and words[-2] in kinds]


class Shared(ExportsTest):
    def test_names_stand_in_their_nodes(self):
        defined = re.findall(r" (?:FUNC|OBJECT) +GLOBAL DEFAULT +\d+ (\S+)@@(\S+)$",
                             output_of([READELF, "--dyn-syms", "-W", self.shared]), re.MULTILINE)
        listed = [(name, "ORVAUTIL_1.0") for name in NAMES]
        listed += [(name, "ORVAUTIL_LOG_1.0") for name in LOG_NAMES]
        self.assertEqual(len(listed), 84 + 6, "the copies of the names")
        self.assertEqual(sorted(defined), sorted(listed), set(defined) ^ set(listed))
        exported = output_of([NM, "-D", "--defined-only", self.shared]).splitlines()
        nodes = [line.split()[-1] for line in exported if " A " in line]
        self.assertEqual(sorted(nodes), ["ORVAUTIL_1.0", "ORVAUTIL_LOG_1.0"], nodes)
        self.assertEqual(len(exported), len(listed) + len(nodes), exported)

    def test_needs_the_c_library_alone(self):
        dynamic = output_of([READELF, "-d", "-W", self.shared])
        needed = re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic)
        self.assertIn("libc.so.6", needed, dynamic)
        for name in needed:
            self.assertRegex(name, r"^(libc\.so\.6|libm\.so\.6|ld-linux.*\.so\.\d)$", dynamic)
        self.assertNotRegex(dynamic, r"\((?:RPATH|RUNPATH)\)", dynamic)

    def test_name_that_programs_need(self):
        self.assertIn("soname: [liborvautil.so.1]", output_of([READELF, "-d", "-W", self.shared]),
                      "the soname")
        self.assertEqual(os.readlink(self.shared), "liborvautil.so.1", "the name for linking")
        self.assertRegex(os.readlink(self.lib / "liborvautil.so.1"),
                         r"^liborvautil\.so\.1\.\d+\.\d+$", "the name for loading")

    def test_is_hardened(self):
        dynamic = output_of([READELF, "-d", "-W", self.shared])
        headers = output_of([READELF, "-l", "-W", self.shared])
        self.assertNotIn("TEXTREL", dynamic, dynamic)
        self.assertRegex(dynamic, r"\(FLAGS_1\).*\bNOW\b", dynamic)
        self.assertIn("GNU_RELRO", headers, headers)
        self.assertRegex(headers, r"GNU_STACK(?:\s+0x\w+){5}\s+RW\s+0x", headers)
        self.assertNotRegex(headers, r"LOAD(?:\s+0x\w+){5}\s+RWE", headers)


class Archive(ExportsTest):
    def test_shows_exactly_the_same_names(self):
        globals_ = self.symbols("ABCDGRSTVWi")  # what other objects of a program would see
        self.assertEqual(sorted(globals_), sorted(NAMES + LOG_NAMES),
                         set(globals_) ^ set(NAMES + LOG_NAMES))

    def test_functions_are_code_and_globals_are_data(self):
        found = {kind: self.symbols(kind) for kind in "TRBD"}
        for name in NAMES + LOG_NAMES:
            kinds = exports_list.DATA_TYPES.get(name, "T")
            self.assertTrue(any(name in found[kind] for kind in kinds), f"{name} is no {kinds}")


class Programs(ExportsTest):
    def build(self, program, *words):
        """The program below PROGRAMS, linked in this way."""
        output_of([target.COMPILERS["c"], PROGRAMS / program, "-o", self.folder / "program",
                   "-I", self.lib.parent / "include", *words])

    def printed(self):
        return output_of([*target.EMULATOR, self.folder / "program"],
                         LD_LIBRARY_PATH=str(self.lib))

    def own_names(self, names):
        """A source that defines functions of these names, which end the program."""
        text = "#include <stdlib.h>\n"
        for number, name in enumerate(names):
            text += (f'void Own{number}(void) __asm__("{name}");\n'
                     f"void Own{number}(void) {{ abort(); }}\n")
        return self.write("own.c", text)

    def test_own_functions_named_like_those_of_the_shared_library_are_not_called(self):
        functions = set(self.symbols("Tt")) - set(CALLED)
        self.assertGreater(functions, {"mktime_1", "PrintLog", "ChrisTmToPersianTm"})
        self.build("own_names.c", self.own_names(functions), "-rdynamic", self.shared)
        self.assertRegex(self.printed(), OWN_NAMES_PRINTED, self.printed())

    def test_own_functions_named_like_inner_ones_of_the_archive_are_not_called(self):
        functions = set(self.symbols("t"))
        self.assertGreater(functions, {"MergeSortByMerge", "ChrisTmToPersianTm"})
        self.build("own_names.c", self.own_names(functions), self.archive)
        self.assertRegex(self.printed(), OWN_NAMES_PRINTED, self.printed())

    def test_zone_that_a_program_sets_is_seen(self):
        for words in ("-fPIE", "-pie"), ("-fno-pie", "-no-pie"):
            for library in self.shared, self.archive:
                with self.subTest(words=words, library=library.name):
                    self.build("zone.c", *words, library)
                    self.assertEqual(self.printed(), "3600\n", self.printed())
