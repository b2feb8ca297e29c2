"""The page of figures: what adds up, and what keeps script/test all from passing."""

import contextlib
import io
import tempfile
import unittest
from pathlib import Path
from unittest import mock

from tests import proof

SECONDS = "both terminals, seconds that the rows took"
TORN, WALL = "torn sticks, seconds", "wall time"
DEMANDED = (("musl", "musl, process tests"), ("package", "packages, tests in a fresh root"))
AT_BOUNDS = (("board_1", SECONDS, 100), ("board_2", SECONDS, 80), ("power_cut", TORN, 60),
             ("mutate", WALL, 216))


class Proof(unittest.TestCase):
    """Each command has left a figure, and those with bounds are at them."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.page = self.folder / "proof.md"
        for name, value in (("FIGURES", self.folder), ("DOCUMENT", self.page),
                            ("commit", lambda: "1234567")):  # there may be no git here
            change = mock.patch.object(proof, name, value)
            change.start()
            self.addCleanup(change.stop)
        for name in proof.COMMANDS:
            self.write(name, "things", "1,234")
        for line in AT_BOUNDS:
            self.write(*line)
        for name, label in DEMANDED:
            self.write(name, label, 12)

    def write(self, name, label, figure):
        """A command leaves this figure."""
        unit = " s" if label == WALL else ""
        (self.folder / f"{name}.tsv").write_text(f"{label}\t{figure}{unit}\n", encoding="utf-8")

    def run_main(self):
        """What main answers, and says on standard error."""
        told = io.StringIO()
        with contextlib.redirect_stderr(told), contextlib.redirect_stdout(io.StringIO()):
            status = proof.main("60")
        return status, told.getvalue()

    def test_figures_at_their_bounds_pass(self):
        self.assertEqual(self.run_main(), (0, ""))

    def test_figures_of_both_terminals_are_added_up(self):
        self.run_main()
        text = self.page.read_text(encoding="utf-8")
        self.assertIn(f"| `script/test` | {SECONDS} | 180 |\n", text)
        self.assertEqual(text.count(SECONDS), 1)
        self.assertIn(", commit 1234567, ", text)
        self.assertIn("| `script/sweep` | things | 1,234 |\n", text)

    def test_a_figure_beyond_its_bound_fails(self):
        for name, label, figure in AT_BOUNDS:
            with self.subTest(name=name):
                self.write(name, label, figure + 1)
                status, told = self.run_main()
                self.assertEqual(status, 1)
                self.assertIn(label, told)
                self.write(name, label, figure)

    def test_a_bound_without_its_figure_fails(self):
        self.write("power_cut", "torn", 1)
        self.assertEqual(self.run_main(),
                         (1, f"script/board power_cut left no figure named: {TORN}\n"))

    def test_tests_that_could_not_run_fail(self):
        for name, label in DEMANDED:
            with self.subTest(label=label):
                self.write(name, "other things", 1)
                self.assertEqual(self.run_main(),
                                 (1, f"script/{name} left no figure named: {label}\n"))
                self.write(name, label, 12)

    def test_a_command_without_figures_fails(self):
        (self.folder / "fuzz.tsv").unlink()
        self.assertEqual(self.run_main()[0], 1)
        self.assertFalse(self.page.exists())

    def test_figures_of_no_command_fail(self):
        self.write("other", "things", 1)
        self.assertEqual(self.run_main()[0], 1)


if __name__ == "__main__":
    unittest.main()
