"""Memory that is refused: each allocation from the entry of main to the end, once."""

import story
from faults import COVERAGE, SANITIZER, add_figure
from outcomes import REFUSED, OutcomeTest, outcomes
from terminal import EMULATOR
from tests.support.faults import fault


class Allocations(OutcomeTest):
    def check_refusals(self, at_least, expected):
        """Refuses one allocation after the other, until a run asks for no more."""
        if EMULATOR:
            self.skipTest("the steps are those of this machine's tool, at ten times the cost")
        self.skip_with(SANITIZER, "a sanitizer's allocations are not the C library's")
        self.skip_with(COVERAGE, "an instrumented tool takes memory of its own")
        for self.refused in range(1, 1000):
            with self.subTest(allocation=self.refused):
                run = self.run_checked(lambda run: self.assert_known(run, expected),
                                       "-d", "EIWD")
            if REFUSED not in run.trace:
                break
        self.assertGreater(self.refused, at_least)
        add_figure(f"refused allocations, {self._testMethodName}", self.refused - 1)

    @fault("Failing system calls", "each allocation from the entry of `main` to the end fails once,"
           " those of the C library for the tool included, in an export to the first disk")
    def test_export(self):
        self.check_refusals(10, outcomes(story.good_attempt("sda", 7639)))

    @fault("Failing system calls", "each allocation fails once, in an export to a partition"
           " of a disk that shows on the bus alone")
    def test_disk_on_the_bus(self):
        self.set_bus_devices("002")
        self.mount_results = "-1,0"
        self.check_refusals(10, outcomes(story.failed_attempt("sda"),
                                         story.good_attempt("sda1", 7638)))
