"""The gate of script/coverage turns red for whatever it is there for."""

import unittest

from tests.coverage import gate
from tests.coverage.counts import BRANCHES, CONDITIONS, LINES, Goal, decision_counts, summed
from tests.coverage.counts import line_counts

SOURCES = {"util/a.cpp": ["int f() {", "    return a || b;", "}"]}
RETURN = gate.Entry("util/a.cpp", "return a || b;", "nobody calls it")
MISSED = Goal(LINES, "util/a.cpp", (2,), "never runs")


def complaints(missed, listed):
    return list(gate.complaints(missed, listed, lambda file: SOURCES.get(file, [])))


class Gate(unittest.TestCase):
    def test_is_green_when_all_is_reached(self):
        self.assertEqual(complaints([], []), [])

    def test_names_what_is_missed(self):
        self.assertEqual(complaints([MISSED], []),
                         ["util/a.cpp:2: never runs: return a || b;"])

    def test_excuses_a_listed_line(self):
        branch = Goal(BRANCHES, "util/a.cpp", (2, 12, 2, 13), "is never true")
        self.assertEqual(complaints([MISSED, branch], [RETURN]), [])

    def test_excuses_no_other_line(self):
        other = Goal(LINES, "util/a.cpp", (1,), "never runs")
        self.assertEqual(complaints([MISSED, other], [RETURN]),
                         ["util/a.cpp:1: never runs: int f() {"])

    def test_takes_no_line_that_is_reached(self):
        self.assertEqual(complaints([], [RETURN]),
                         ["util/a.cpp: `return a || b;` is listed and reached"])

    def test_takes_no_line_that_is_not_there(self):
        for file, text in ("util/a.cpp", "return c;"), ("util/b.cpp", "return a || b;"):
            self.assertEqual(complaints([], [gate.Entry(file, text, "reason")]),
                             [f"{file}: `{text}` is listed and does not exist"])

    def test_takes_no_line_without_a_reason(self):
        self.assertEqual(complaints([MISSED], [RETURN._replace(reason="")]),
                         ["util/a.cpp: `return a || b;` is listed without a reason"])

    def test_takes_five_lines_at_most(self):
        self.assertEqual(complaints([MISSED], [RETURN] * gate.MOST), [])
        self.assertEqual(complaints([MISSED], [RETURN] * (gate.MOST + 1)),
                         ["6 lines are listed, 5 may be"])


class Uncounted(unittest.TestCase):
    def test_are_the_sources_and_headers_with_code(self):
        for text in ("int F() {", "constexpr int F(int a)\n{", "int F() const {",
                     "T(int a) : a_(a) {}", "void F() noexcept {"):
            self.assertEqual(gate.uncounted({"a.h": text}, set()), ["a.h"], text)
        self.assertEqual(gate.uncounted({"a.cpp": "", "b.cpp": ""}, {"b.cpp"}), ["a.cpp"])
        self.assertEqual(gate.uncounted({"a.h": "int F() {"}, {"a.h"}), [])

    def test_are_no_headers_that_declare(self):
        for text in ("int F();\nstruct S {", "// F() {", "/* F()\n{ */", "enum { A = (1) };"):
            self.assertEqual(gate.uncounted({"a.h": text}, set()), [], text)


class Document(unittest.TestCase):
    def test_has_a_row_for_each_line(self):
        text = "# Head\n\n| file | line | reason |\n|---|---|---|\n" \
               "| `util/a.cpp` | `return a \\|\\| b;` | nobody calls it |\n| `x.cpp` | `y` |  |\n"
        self.assertEqual(gate.entries(text), [RETURN, gate.Entry("x.cpp", "y", "")])


class Counts(unittest.TestCase):
    def test_of_lines(self):
        lcov = "SF:/r/a.cpp\nFN:1,f\nDA:1,3\nDA:2,0\nend_of_record\n"
        self.assertEqual(list(line_counts(lcov)),
                         [(Goal(LINES, "/r/a.cpp", (1,), "never runs"), 3),
                          (Goal(LINES, "/r/a.cpp", (2,), "never runs"), 0)])

    def test_of_a_template_are_taken_together(self):
        place = [2, 12, 2, 18]
        file = {"filename": "a.cpp",
                "branches": [[*place, 0, 4, 0, 0, 4], [*place, 3, 0, 0, 0, 4]],
                "mcdc_records": [[*place, 0, 5, [True, False]], [*place, 0, 5, [False, False]]]}
        self.assertEqual(summed(decision_counts([file])), {
            Goal(BRANCHES, "a.cpp", tuple(place), "is never true"): 3,
            Goal(BRANCHES, "a.cpp", tuple(place), "is never false"): 4,
            Goal(CONDITIONS, "a.cpp", tuple(place), "condition 1 never decides alone"): 1,
            Goal(CONDITIONS, "a.cpp", tuple(place), "condition 2 never decides alone"): 0})


if __name__ == "__main__":
    unittest.main()
