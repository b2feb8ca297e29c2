"""Callers that would see other records or other levels than the library: refused in a sentence."""

import re
import unittest
from pathlib import Path

from tests.consumers import target
from tests.consumers.target import PROGRAMS, output_of

RECORD_HEADERS = ("fileutils.h", "timeutils.h")
OFFSET = "-D_FILE_OFFSET_BITS=64"
TIME = "-D_TIME_BITS=64"
OFFSET_REFUSAL = "orvautil has a 32-bit off_t: compile its callers without -D_FILE_OFFSET_BITS=64."
TIME_REFUSAL = "orvautil has a 32-bit time_t: compile its callers without -D_TIME_BITS=64."
LIBC_REFUSAL = "_TIME_BITS=64 is allowed only with _FILE_OFFSET_BITS=64"
SYSLOG_FIRST = ("<syslog.h> has other LOG_ levels: define ORVAUTIL_PREFIXED_LEVELS and use"
                " ORVAUTIL_LOG_...")
SYSLOG_LAST = "beside <syslog.h> define ORVAUTIL_PREFIXED_LEVELS"
ERROR = re.compile(r"error: (?:#error )?\"?(.*?)\"?$", re.MULTILINE)


class Caller(target.Test):
    def setUp(self):
        super().setUp()
        self.include = f"-I{target.installation()}/usr/include"

    def errors_of(self, command, text):
        """The errors of the compilation, in C and in C++; none where it succeeds."""
        self.write("caller.c", text)
        ended = target.run(f"{command} {self.include} -fsyntax-only caller.c", self.folder)
        errors = ERROR.findall(ended.stderr)
        self.assertEqual(ended.returncode == 0, not errors, ended.stderr)
        return errors

    def commands(self):
        """The compilers of the target, each of them for C and for C++."""
        compilers = [f"{target.compiler('c')} -x c", f"{target.compiler('cpp')} -x c++"]
        if target.CLANG:
            compilers += [f"{target.CLANG} -x c", f"{target.CLANG} -x c++"]
        return compilers


class Clang(Caller):
    @unittest.skipUnless(target.CLANG, target.NO_CLANG)
    def test_is_tried_too(self):
        self.assertIn(f"{target.CLANG} -x c++", self.commands())


class Records(Caller):
    def refusals(self, flags):
        if not target.ARM:
            return []  # one layout, whatever the flags
        return {(): [], (OFFSET,): [OFFSET_REFUSAL],
                (TIME,): [LIBC_REFUSAL], (OFFSET, TIME): [OFFSET_REFUSAL, TIME_REFUSAL]}[flags]

    def test_flags_that_change_them_are_refused(self):
        for flags in (), (OFFSET,), (OFFSET, TIME), (TIME,):
            if flags == (TIME,) and not target.ARM:
                continue  # the C library itself refuses it
            for command in self.commands():
                for header in RECORD_HEADERS:
                    with self.subTest(flags=flags, command=command, header=header):
                        errors = self.errors_of(f"{command} {' '.join(flags)}",
                                                f"#include <orvautil/{header}>\n")
                        refusals = self.refusals(flags)
                        self.assertEqual(errors[:len(refusals)], refusals, errors)
                        self.assertEqual(not errors, not refusals, errors)

    def test_flags_that_are_taken_back_do_no_harm(self):
        for command in self.commands():
            for header in RECORD_HEADERS:
                with self.subTest(command=command, header=header):
                    errors = self.errors_of(
                        f"{command} {OFFSET} {TIME} -U_FILE_OFFSET_BITS -U_TIME_BITS",
                        f"#include <orvautil/{header}>\n")
                    self.assertEqual(errors, [], errors)

    @unittest.skipUnless(target.ARM, "the library of another processor is there on ARM only")
    def test_library_of_another_processor_is_refused(self):
        include = target.installation() / "usr/include"
        headers = [path.relative_to(include) for path in include.rglob("*.h")]
        self.assertIn(Path("orvautil/trstrutils.h"), headers)
        for header in headers:
            with self.subTest(header=header):
                errors = self.errors_of("cc", f"#include <{header}>\n")
                self.assertEqual(errors[:1], ["This orvautil was built for another kind of"
                                              " processor: install the one of your target."])


class Levels(Caller):
    def test_syslog_before_our_header_is_refused(self):
        for command in self.commands():
            with self.subTest(command=command):
                errors = self.errors_of(command,
                                        "#include <syslog.h>\n#include <orvautil/log.h>\n")
                self.assertEqual(errors[0], SYSLOG_FIRST, errors)

    def test_syslog_after_our_header_is_refused(self):
        for command in self.commands():
            with self.subTest(command=command):
                errors = self.errors_of(command,
                                        "#include <orvautil/log.h>\n#include <syslog.h>\n")
                self.assertEqual(errors, [SYSLOG_LAST], errors)

    def test_prefixed_names_stand_beside_those_of_syslog(self):
        text = (PROGRAMS / "levels.c").read_text(encoding="utf-8")
        syslog = "#include <syslog.h>\n"
        for order, source in (("before", text), ("after", text.replace(syslog, "").replace(
                "log.h>\n", f"log.h>\n{syslog}"))):
            self.write("levels.c", source)
            for command in self.commands():
                with self.subTest(syslog=order, command=command):
                    output_of(f"{command} -Wall -Wextra -Werror {self.include} levels.c"
                              f" -x none {target.installation()}/usr/lib/liborvautil.a -o levels",
                              self.folder)
                    printed = output_of([*target.EMULATOR, self.folder / "levels"])
                    self.assertRegex(printed, r"^\[[^\]]*\] Warning \[levels main 1\]: level 2\n"
                                     r"syslog's warning is 4\n$", printed)
