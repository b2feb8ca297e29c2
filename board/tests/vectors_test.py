"""The tables of calls and results, given once more by the product on the terminal."""

import os
from pathlib import Path

from board.tests.support.case import BoardTest

TABLES = Path("tests/vectors")
PROGRAM = "/tmp/vectors"
BOUND_S = 600
# With 100,000 calls of each function instead of 2,000: that takes minutes.
RANDOM_CALLS = "random_all.txt" if os.environ.get("VECTORS") == "all" else "random.txt"


class Vectors(BoardTest):

    def assert_given(self, name):
        table = (TABLES / name).read_text(encoding="ascii")
        self.terminal.install(self.build("bin/vectors"), PROGRAM)
        result = self.terminal.run(f"{PROGRAM} product", table.encode("ascii"), bound_s=BOUND_S)
        self.assertEqual((result.status, result.errors), (0, ""))
        self.assertEqual(result.output.splitlines(), table.splitlines())

    def test_product_gives_each_result(self):
        self.assert_given("calls.txt")

    def test_product_gives_the_digests_of_random_calls(self):
        self.assert_given(RANDOM_CALLS)
