"""Each kind of break is caught: planted in a copy of the sources, built, compared.

Called with the cross compilers for C and C++, the folders of the sources and of the generated
header, libtroption.so and the objects of the executable. Of a seed only the source that it touches
is compiled anew.
"""

import dataclasses
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from tests.abi import lock

c_compiler, cxx_compiler, root, config, troption, *objects = sys.argv[1:]

EXPORTS_LIST = "tool/exports.list"
CLOCK_H, CLOCK = "util/timeutils/clock.h", "util/timeutils/clock/clock.cpp"
CALENDARS_H, GREGORIAN = "util/timeutils/calendars.h", "util/timeutils/calendars/gregorian.cpp"
FILES_H, FOLDERS = "util/fileutils.h", "util/fileutils/folders.cpp"
FILE_COPY = "util/fileutils/file_copy.cpp"


@dataclasses.dataclass(frozen=True)
class Seed:
    """A break: (file, text, what takes its place) each; the source that shows it; what is said."""
    name: str
    edits: tuple
    source: str
    said: str


SEEDS = (
    Seed("parameter type", ((FILES_H, "int GetFileCountOfFolder(const char* path)",
                             "int GetFileCountOfFolder(char* path)"),
                            (FOLDERS, "int GetFileCountOfFolder(const char* path)",
                             "int GetFileCountOfFolder(char* path)")),
         FOLDERS, "GetFileCountOfFolder"),
    Seed("lost name", ((EXPORTS_LIST, "    systemEx;\n", ""),), FOLDERS, "systemEx"),
    Seed("field", ((FILES_H, "} CopyFolderItem;", "    int more;\n} CopyFolderItem;"),),
         FOLDERS, "'int more'"),
    Seed("size", ((CLOCK_H, "unsigned short day_of_year;", "unsigned int day_of_year;"),),
         CLOCK, "day_of_year"),
    Seed("constant", ((CALENDARS_H, "CALENDAR_ISLAMIC = 2", "CALENDAR_ISLAMIC = 3"),),
         GREGORIAN, "CALENDAR_ISLAMIC' from value '2' to '3'"),
    Seed("result type", ((CLOCK_H, "int GetSysSecond(void)", "long GetSysSecond(void)"),
                         (CLOCK, "int GetSysSecond(void)", "long GetSysSecond(void)")),
         CLOCK, "GetSysSecond"),
    Seed("data object", ((CALENDARS_H, "_ytab[2][12]", "_ytab[2][13]"),
                         (GREGORIAN, "_ytab[2][12]", "_ytab[2][13]"),
                         (GREGORIAN, "sizeof _ytab == 2 * 12", "sizeof _ytab == 2 * 13")),
         GREGORIAN, "_ytab"),
    Seed("order of fields", ((FILES_H, "FILE* source;", "FILE* other;"),
                             (FILES_H, "FILE* destination;", "FILE* source;"),
                             (FILES_H, "FILE* other;", "FILE* destination;")),
         FILE_COPY, "destination"),
    Seed("added name", ((EXPORTS_LIST, "    systemEx;\n", "    systemEx;\n    systemEx2;\n"),
                        (FILES_H, "int systemEx(", "int systemEx2(void);\nint systemEx("),
                        (FOLDERS, "int CopyFolder(",
                         "int systemEx2(void) {\n    return 0;\n}\n\nint CopyFolder(")),
         FOLDERS, "systemEx2"),
    Seed("sign", ((CLOCK_H, "Trmmsleep(unsigned int ms)", "Trmmsleep(int ms)"),
                  (CLOCK, "Trmmsleep(unsigned int ms)", "Trmmsleep(int ms)")),
         CLOCK, "Trmmsleep"),
)


def plant(edits, folder):
    for file, text, replacement in edits:
        path = folder / file
        content = path.read_text(encoding="utf-8")
        assert content.count(text) == 1, f"{file} no longer holds {text!r} once"
        path.write_text(content.replace(text, replacement), encoding="utf-8")


def differences(edits, source):
    """What the two locks say about the sources with the edits."""
    with tempfile.TemporaryDirectory() as folder:
        folder = Path(folder)
        for part in ("log", "tests/abi", "tool", "util", "platform", "splash", "udisk"):
            shutil.copytree(f"{root}/{part}", folder / part)
        plant(edits, folder)
        flags = ("-g", "-fPIC", "-fvisibility=hidden", f"-I{folder}", f"-I{config}")
        built = folder / "built.o"
        compiled = subprocess.Popen((cxx_compiler, "-std=c++20", "-fno-exceptions", "-fno-rtti",
                                     *flags, "-c", folder / source, "-o", built))
        library = folder / "headers.so"
        subprocess.run((c_compiler, "-g", "-fPIC", "-shared", "-fno-eliminate-unused-debug-types",
                        f"-I{folder}", f"-I{config}", f"{root}/tests/abi/headers.c",
                        "-o", library), check=True)
        assert compiled.wait() == 0
        others = [file for file in objects if not file.endswith(f"/{source}.o")]
        assert len(others) == len(objects) - 1, f"not one object comes from {source}"
        tool = folder / "tool.exe"
        subprocess.run((c_compiler, "-pie", *others, built, troption, "-lm", "-o", tool,
                        f"-Wl,--dynamic-list={folder}/{EXPORTS_LIST},--as-needed"), check=True)
        return lock.EXPORTS.differences(tool, folder) + lock.CONSTANTS.differences(library, folder)


class Breaks(unittest.TestCase):
    def test_sources_without_one_are_accepted(self):
        self.assertEqual(differences((), CLOCK), "")

    def test_each_is_caught(self):
        for seed in SEEDS:
            with self.subTest(seed.name):
                self.assertIn(seed.said, differences(seed.edits, seed.source))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
