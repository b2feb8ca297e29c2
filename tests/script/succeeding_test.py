"""What is raised when a command fails that has to succeed."""

import unittest

from tests.support import succeeding


class Succeeding(unittest.TestCase):
    def fault_of(self, call, *words):
        with self.assertRaises(AssertionError) as caught:
            call(*words)
        return str(caught.exception)

    def test_a_command_gives_what_it_prints(self):
        self.assertEqual(succeeding.run("printf", "%s-", "a b", 7), "a b-7-")

    def test_a_command_that_fails_is_told_with_its_words_and_all_it_said(self):
        self.assertEqual(self.fault_of(succeeding.run, "sh", "-c", "echo a; echo b >&2; exit 3"),
                         "sh -c 'echo a; echo b >&2; exit 3': status 3\na\nb\n")

    def test_each_command_of_a_pipe_has_to_succeed(self):
        self.assertEqual(succeeding.pipe('printf %s "$1" | cat', "it's a $word"), "it's a $word")
        for text in "false | cat", "true | false":
            with self.subTest(pipe=text):
                self.assertIn("status 1", self.fault_of(succeeding.pipe, text))


if __name__ == "__main__":
    unittest.main()
