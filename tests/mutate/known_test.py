"""The list of mutants that nothing can see."""

import sys
import unittest
from pathlib import Path

from tests.mutate import known
from tests.mutate.mutants import mutants_of
from tests.mutate.product import product_files

ROOT = Path(sys.argv.pop(1))


class Read(unittest.TestCase):
    def test_gives_the_reason_of_each_entry(self):
        text = ("# comment\n\na.cpp\n- x = 1;\n+ x = 2;\n    Nobody reads x,\n    ever.\n"
                "- y = 1;\n+\n- z = 1;\n+ z = 0;\n    Both.\n")
        self.assertEqual(known.read(text), {
            ("a.cpp", "x = 1;", "x = 2;"): "Nobody reads x, ever.",
            ("a.cpp", "y = 1;", ""): "Both.",
            ("a.cpp", "z = 1;", "z = 0;"): "Both.",
        })

    def test_refuses_what_has_no_reason_or_comes_twice(self):
        entry = "a.cpp\n- x = 1;\n+ x = 2;\n"
        for text in (entry, entry + "    why\n" + entry + "    why\n", "- x\n+ y\n    why\n",
                     "a.cpp\n+ y\n    why\n", "    why\n"):
            with self.assertRaises(known.Malformed, msg=text):
                known.read(text)


class Listed(unittest.TestCase):
    def test_each_entry_is_a_fault_that_can_be_planted(self):
        mutants = [mutant for file in product_files(ROOT)
                   for mutant in mutants_of(file, (ROOT / file).read_text(encoding="utf-8"))]
        self.assertEqual(
            known.unknown(known.read(known.LIST.read_text(encoding="utf-8")), mutants), [])

    def test_an_entry_that_is_none_is_found(self):
        mutants = mutants_of("a.cpp", "x = 1;\n")
        entry = ("a.cpp", "x = 1;", "x = 7;")
        self.assertEqual(known.unknown({entry: "why"}, mutants), [entry])

    def test_every_file_that_ships_has_faults(self):
        files = product_files(ROOT)
        sources = [file for file in files if file.endswith(".cpp")]
        self.assertGreater(len(sources), 30)
        for file in sources:
            self.assertTrue(mutants_of(file, (ROOT / file).read_text(encoding="utf-8")), file)


if __name__ == "__main__":
    unittest.main()
