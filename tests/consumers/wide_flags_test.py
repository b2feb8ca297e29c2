"""Flags for 64-bit records, in a build for a terminal whose programs have 32-bit ones: refused."""

from tests.consumers import target

FILE_OFFSET = "-D_FILE_OFFSET_BITS=64"
TIME = "-D_TIME_BITS=64"
BOTH = f"{FILE_OFFSET} {TIME}"
NARROW = ("the terminal's programs pass 4 of each. Take -D_FILE_OFFSET_BITS=64 and -D_TIME_BITS=64"
          " out of the flags, or put -U_FILE_OFFSET_BITS -U_TIME_BITS behind them.")


class WideFlags(target.ConfigureTest):
    def test_are_refused_and_can_be_taken_back(self):
        self.assert_refused(
            "CMAKE_CXX_FLAGS",
            (FILE_OFFSET,
             f'With the flags "{FILE_OFFSET}" off_t has 8 bytes and time_t 4; {NARROW}'),
            (TIME, f'With the flags "{TIME}" the C library\'s headers do not compile',
             "take that out of the flags."),
            (BOTH, f'With the flags "{BOTH}" off_t has 8 bytes and time_t 8; {NARROW}'))
        self.assert_ends(self.configured(f"-DCMAKE_CXX_FLAGS={BOTH} -U_FILE_OFFSET_BITS"
                                         " -U_TIME_BITS"), 0)
