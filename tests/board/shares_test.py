"""The tests of the emulated terminal in halves: each file is in one, and none takes far longer."""

import unittest

from board import __main__ as board

HALVES = "1/2", "2/2"


class Shares(unittest.TestCase):
    def setUp(self):
        suite = unittest.TestLoader().discover(board.TESTS, "*_test.py", board.TESTS.parent.parent)
        self.tests = list(board.all_tests(suite))
        self.halves = [{board.names(test)[1] for test in board.selected(self.tests, word)}
                       for word in HALVES]

    def test_hold_each_test_once(self):
        found = [test.id() for word in HALVES for test in board.selected(self.tests, word)]
        self.assertCountEqual(found, [test.id() for test in self.tests])

    def test_share_no_file(self):
        self.assertEqual(set.intersection(*self.halves), set())

    def test_take_about_the_same_time(self):
        first, second = (sum(map(board.seconds, half)) for half in self.halves)
        self.assertLessEqual(abs(first - second), board.OTHER_SECONDS)

    def test_are_weighed_by_files_that_there_are(self):
        self.assertLessEqual(set(board.SECONDS), set.union(*self.halves))


if __name__ == "__main__":
    unittest.main()
