"""Shell commands in a real child, and what a program inherits."""

import signal

from board.tests.support.library import LibraryTest

NOT_FOUND = 127
NO_PROCESS = 99999
SEEN = "/tmp/seen"
LIST_DESCRIPTORS = f"ls /proc/$$/fd >>{SEEN}; exit"


class Processes(LibraryTest):

    def assert_status(self, command, status, errors=""):
        self.assertEqual(self.call("systemEx", command, errors=errors), f"result {status}\n")

    def test_exit_codes(self):
        for code in 0, 1, 3, 255:
            self.assert_status(f"exit {code}", code * 256)

    def test_command_that_there_is_not(self):
        self.assert_status("nosuch", NOT_FOUND * 256, errors="sh: 1: nosuch: not found\n")

    def test_signals(self):
        for number in signal.SIGKILL, signal.SIGSEGV:
            self.assert_status(f"kill -{number} $$", number)

    def test_output_goes_where_the_callers_does(self):
        self.assertEqual(self.call("systemEx", "echo mine"), "mine\nresult 0\n")

    def test_missing_shell_counts_as_success(self):
        self.terminal.check("mkdir /tmp/empty")
        self.assertEqual(self.call("systemExInside", "/tmp/empty", "exit 3"),
                         "result 0\nstatus 0\n")

    def test_closed_descriptors_reach_no_program(self):
        self.assertEqual(self.call("CloseInChild", SEEN, LIST_DESCRIPTORS), "status 0\n")
        # The file got the first free number; 1 is where the shell itself redirects to.
        self.assertEqual(self.terminal.read(SEEN), "result 1, next 0\n0\n1\n")

    def test_descriptors_of_no_process(self):
        self.assertEqual(
            self.call("CloseChildProcFd", NO_PROCESS),
            "Warning fileutils CloseChildProcFd: Couldn't open the directory.\nresult 1\n")
