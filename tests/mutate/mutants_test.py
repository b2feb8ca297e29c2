"""The faults that are planted, and the order in which they are drawn."""

import itertools
import sys
import tempfile
import unittest
from pathlib import Path

from tests.mutate.mutants import drawn, mutants_of


def lines(source, category=None):
    """The changed lines of all mutants."""
    return [mutant.after for mutant in mutants_of("x.cpp", source + "\n")
            if category in (None, mutant.category)]


class TokenFaults(unittest.TestCase):
    def test_constants_are_one_off(self):
        self.assertEqual(lines("int a = 7;", "number"), ["int a = 8;", "int a = 6;"])
        self.assertEqual(lines("a = 0;", "number"), ["a = 1;"])
        self.assertEqual(lines("a = 0xFFu;", "number"), ["a = 0x100u;", "a = 0xfeu;"])
        self.assertEqual(lines("a = 1.5;", "number"), ["a = (1.5 + 1);", "a = (1.5 - 1);"])
        self.assertEqual(lines("a = 1'000;", "number"), ["a = 1001;", "a = 999;"])

    def test_comparisons_are_turned(self):
        self.assertEqual(lines("x(a < b);", "comparison"), ["x(a <= b);", "x(a >= b);"])
        self.assertEqual(lines("x(a == b);", "comparison"), ["x(a != b);"])

    def test_brackets_of_templates_are_no_comparisons(self):
        self.assertEqual(lines("static_cast<int>(b);", "comparison"), [])

    def test_signs_are_turned(self):
        self.assertEqual(lines("x(a + b);", "sign"), ["x(a - b);"])
        self.assertEqual(lines("x(-a);", "sign"), ["x(a);"])
        self.assertEqual(lines("return !a;", "sign"), ["return a;"])
        self.assertEqual(lines("f(); ++a;", "sign"), ["f(); --a;"])

    def test_pointers_are_no_products(self):
        self.assertEqual(lines("const char* a;", "sign"), [])
        self.assertEqual(lines("x(*a, &b);", "sign"), [])

    def test_and_is_or(self):
        self.assertEqual(lines("x(a && b);", "logic"), ["x(a || b);"])

    def test_each_character_of_a_text_changes_once(self):
        self.assertEqual(lines('f("aB1\\n");', "text"),
                         ['f("AB1\\n");', 'f("ab1\\n");', 'f("aB2\\n");', 'f("aB1x");',
                          'f("aB1");'])
        self.assertEqual(lines("f('-');", "text"), ["f('_');"])

    def test_constants_and_members_take_the_place_of_others(self):
        self.assertEqual(lines("f(kOne, kTwo);", "name"), ["f(kTwo, kTwo);", "f(kOne, kOne);"])
        self.assertEqual(lines("a.x = b->y;", "name"), ["a.y = b->y;", "a.x = b->x;"])


class StatementFaults(unittest.TestCase):
    def test_conditions_are_turned_and_fixed(self):
        self.assertEqual(lines("void f() { if (a < b) { c(); } }", "condition"),
                         ["void f() { if (!(a < b)) { c(); } }",
                          "void f() { if (false) { c(); } }", "void f() { if (true) { c(); } }"])

    def test_a_loop_is_never_made_endless_by_true(self):
        self.assertEqual(lines("void f() { while (a) { b(); } }", "condition"),
                         ["void f() { while (!(a)) { b(); } }",
                          "void f() { while (false) { b(); } }"])
        self.assertEqual(lines("void f() { for (; a; ++b) { c(); } }", "condition"),
                         ["void f() { for (; !(a); ++b) { c(); } }",
                          "void f() { for (; false; ++b) { c(); } }"])

    def test_calls_and_assignments_are_lost(self):
        found = lines("void f() { call(1); a.b = 2; ++c; (void)d(); }", "removal")
        for expected in ("void f() { ; a.b = 2; ++c; (void)d(); }",
                         "void f() { call(1); ; ++c; (void)d(); }",
                         "void f() { call(1); a.b = 2; ; (void)d(); }",
                         "void f() { call(1); a.b = 2; ++c; ; }"):
            self.assertIn(expected, found)

    def test_declarations_are_kept(self):
        self.assertEqual(lines("void f() { int a = 1; const T* b = a; UniqueFd c{a}; }",
                               "removal"), [])

    def test_clearings_are_lost(self):
        self.assertEqual(lines("void f() { char a[9] = {}; }", "clearing"),
                         ["void f() { char a[9]; }"])

    def test_results_change(self):
        self.assertEqual(lines("int f() { return a + g(); }", "result"),
                         ["int f() { return {}; }"])
        self.assertEqual(lines("bool f() { return a < b; }", "result"),
                         ["bool f() { return !(a < b); }"])
        self.assertEqual(lines("x = a ? b : c;", "result"), ["x = a ? c : b;"])

    def test_neighbouring_arguments_are_swapped(self):
        self.assertEqual(lines("f(a, g(b), 1);", "swap"), ["f(g(b), a, 1);", "f(a, 1, g(b));"])

    def test_a_conversion_is_lost(self):
        self.assertIn("x = (a);", lines("x = Wrap(a);", "removal"))

    def test_what_the_compiler_proves_is_left_alone(self):
        self.assertEqual(lines("static_assert(sizeof(a) == 4);"), [])


class Mutants(unittest.TestCase):
    SOURCE = "void f() {\n    call(a,\n         b);\n    g();  // why\n}\n"

    def test_keep_the_numbers_of_the_lines(self):
        for mutant in mutants_of("x.cpp", self.SOURCE):
            self.assertEqual(mutant.mutated.count("\n"), self.SOURCE.count("\n"))

    def test_are_known_by_their_lines_whatever_stands_elsewhere(self):
        keys = {mutant.key for mutant in mutants_of("x.cpp", self.SOURCE)}
        self.assertIn(("x.cpp", "call(a, b);", ";"), keys)
        self.assertIn(("x.cpp", "g();", ";"), keys)
        moved = "// more\nint z;\n" + self.SOURCE.replace("  // why", "  // or not")
        self.assertLessEqual(keys, {mutant.key for mutant in mutants_of("x.cpp", moved)})

    def test_are_drawn_from_each_file_in_turn_and_the_same_for_a_seed(self):
        with tempfile.TemporaryDirectory() as folder:
            files = ["a.cpp", "b.cpp", "c.cpp"]
            for file in files:
                (Path(folder) / file).write_text(self.SOURCE, encoding="utf-8")

            def first(seed):
                return [(mutant.file, mutant.key)
                        for mutant in itertools.islice(drawn(folder, files, seed), 6)]

            self.assertEqual({file: [f for f, _ in first(1)].count(file) for file in files},
                             {file: 2 for file in files})
            self.assertEqual(first(1), first(1))
            self.assertNotEqual(first(1), first(2))
            self.assertEqual(len(list(drawn(folder, files, 1))),
                             3 * len(mutants_of("a.cpp", self.SOURCE)))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
