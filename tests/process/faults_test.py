"""The fixture of the catalogue's rows: no row passes without its checks."""

import shutil
import unittest
import unittest.mock
from pathlib import Path

from faults import ELSEWHERE, WHOLE_RUN, FaultTest
from terminal import write
from tests.support import tool
from tests.support.faults import PROMISES, fault


HERE = str(Path(__file__).parent)


def failures_of(body, **exceptions):
    """What a row with this body reports when it is run."""
    class Row(FaultTest):
        def test_row(self):
            body(self)
        test_row = fault("Inputs", "none of the catalogue", **exceptions)(test_row)
    result = unittest.TestResult()
    with unittest.mock.patch("faults.run_rows", set()):  # it is no row
        Row("test_row").run(result)
    return "".join(text for _, text in result.failures + result.errors)


def marked_tests(suite):
    """Every test of the suites that is a row."""
    for each in suite:
        if isinstance(each, unittest.TestSuite):
            yield from marked_tests(each)
        elif hasattr(getattr(each, each._testMethodName, None), "fault"):
            yield each


def end_with_1(row):
    """The tool's runs end as if with status 1."""
    start_tool = row.start_tool

    def start(*words):
        run, trace = start_tool(*words)
        run.returncode = 1
        return run, trace
    row.start_tool = start


class Rows(unittest.TestCase):
    def test_that_runs_as_told_passes(self):
        self.assertEqual(failures_of(lambda row: row.run_row(WHOLE_RUN, "-d", "EIWD")), "")

    def test_that_checks_no_run_fails(self):
        for body in (lambda row: None), (lambda row: row.run_tool("-d", "EIWD")):
            self.assertIn("has checked no run", failures_of(body))

    def test_without_the_fixture_is_not_there(self):
        tests = list(marked_tests(unittest.TestLoader().discover(HERE, "*_test.py")))
        self.assertGreater(len(tests), 20)
        for test in tests:
            self.assertIsInstance(test, FaultTest, str(test))

    def test_whose_status_is_not_expected_fails(self):
        def body(row):
            end_with_1(row)
            row.run_row(WHOLE_RUN, "-d", "EIWD")

        for exceptions in {}, {"exit": "it may be 2"}:
            self.assertIn("AssertionError: 1 != 0", failures_of(body, **exceptions))

    def test_whose_promise_is_broken_fails(self):
        def run_then(change):
            def body(row):
                run_tool = row.run_tool
                row.run_tool = lambda *words: (run_tool(*words), change())[0]
                row.run_row(WHOLE_RUN, "-d", "EIWD")
            return body

        def expect_1(row):  # a row names the status that it excepts
            end_with_1(row)
            row.status = 1
            row.run_row(WHOLE_RUN, "-d", "EIWD")

        def stay_mounted(row):
            row.umount_results = "-1"
            row.run_row(WHOLE_RUN[:-3] + WHOLE_RUN[-1:], "-d", "EIWD")

        def be_late(row):
            with unittest.mock.patch("faults.BOUND_S", 0):
                row.run_row(WHOLE_RUN, "-d", "EIWD")

        broken = {
            "exit": expect_1,
            "output": run_then(lambda: write(tool.OUTPUT_FILE, "")),
            "mounts": stay_mounted,
            "files": run_then(lambda: shutil.rmtree(f"{tool.MOUNT_POINT}/photos")),
            "time": be_late}
        self.assertEqual(set(broken), set(PROMISES) - {ELSEWHERE})
        for promise, body in broken.items():
            with self.subTest(promise=promise):
                self.assertIn(f"the row promises {promise}", failures_of(body))
                self.assertNotIn("the row promises", failures_of(body, **{promise: "it may"}))
