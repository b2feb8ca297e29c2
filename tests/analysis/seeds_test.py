"""Each analyser finds a fault of its kind that is planted in a copy of our files."""

import dataclasses
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).parents[2]
COPIED = (".clang-tidy", "log", "platform", "script", "splash", "tool", "udisk", "util",
          "build/analyse/include")

PARTITIONS, SORT, SCRIPT = "udisk/partitions.cpp", "util/trstrutils/merge_sort.cpp", "script/run"
UNCHECKED = (PARTITIONS, """\
    if (list == nullptr) {
        return nullptr;
    }
""", "")
UNRELEASED = (
    (SORT, "const UniqueMemory memory(malloc(size));", "void* const memory = malloc(size);"),
    (SORT, "if (!memory)", "if (memory == nullptr)"),
    (SORT, "memory.Get()", "memory"))


@dataclasses.dataclass(frozen=True)
class Seed:
    """A fault: the analyser, (file, text, what takes its place) each, what is said."""
    analyser: str
    edits: tuple
    said: str


SEEDS = (
    Seed("gcc", (UNCHECKED,), "analyzer-possible-null-dereference]"),
    Seed("gcc", UNRELEASED, "analyzer-malloc-leak]"),
    Seed("tidy", UNRELEASED, "clang-analyzer-unix.Malloc"),
    Seed("tidy", ((SORT, "array == nullptr || count < 2", "array == array || count < 2"),),
         "misc-redundant-expression"),
    Seed("tidy", ((PARTITIONS, '"sd", 2) == 0', '"sd", 2)'),),
         "bugprone-suspicious-string-compare"),
    Seed("tidy", ((SORT, "int* const merged", "auto const merged"),), "readability-qualified-auto"),
    Seed("cppcheck", UNRELEASED, "[memleak]"),
    Seed("cppcheck", ((SORT, "bool are_sorted = true;", "bool are_sorted;"),), "[legacyUninitvar]"),
    Seed("shell", ((SCRIPT, "board build/arm", "board $PWD/build/arm"),), "SC2086"),
)


def plant(edits, folder):
    for file, text, replacement in edits:
        content = (folder / file).read_text(encoding="utf-8")
        assert content.count(text) == 1, f"{file} no longer holds {text!r} once"
        (folder / file).write_text(content.replace(text, replacement), encoding="utf-8")


class Analysers(unittest.TestCase):
    def analyse(self, analyser, edits):
        """The exit status and what is said about the files of the edits."""
        with tempfile.TemporaryDirectory() as folder:
            folder = Path(folder)
            for name in COPIED:
                (folder / name).parent.mkdir(parents=True, exist_ok=True)
                copy = shutil.copytree if (ROOT / name).is_dir() else shutil.copy
                copy(ROOT / name, folder / name)
            plant(edits, folder)
            files = sorted({file for file, _, _ in edits})
            run = subprocess.run((folder / "script/analyse", analyser, *files), check=False,
                                 capture_output=True, text=True)
            return run.returncode, run.stdout + run.stderr

    def test_find_nothing_without_a_fault(self):
        for analyser, file, text in (("gcc", SORT, "malloc"), ("tidy", SORT, "malloc"),
                                     ("cppcheck", SORT, "malloc"), ("shell", SCRIPT, "exec")):
            with self.subTest(analyser):
                self.assertEqual(self.analyse(analyser, ((file, text, text),)), (0, ""))

    def test_find_a_suppression_without_its_reason(self):
        for file, text, replacement in (
                ("script/setup", "  # dpkg-query fills in the fields", ""),
                ("script/analyse", "  # tests ask how wide a result is", ""),
                (SORT, "// Merge sort", "// NOLINT(misc-any)\n// Merge sort")):
            with self.subTest(file):
                status, said = self.analyse("suppressions", ((file, text, replacement),))
                self.assertIn("put aside without a reason", said)
                self.assertNotEqual(status, 0)
                self.assertEqual(self.analyse("suppressions", ((file, text, text),))[0], 0)

    def test_find_each_fault(self):
        for seed in SEEDS:
            with self.subTest(f"{seed.analyser}: {seed.said}"):
                status, said = self.analyse(seed.analyser, seed.edits)
                self.assertIn(seed.said, said)
                self.assertNotEqual(status, 0)


if __name__ == "__main__":
    unittest.main()
