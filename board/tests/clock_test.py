"""The clock, really set: by how much, what is printed, and what the ticks make of the jump."""

import re
from datetime import datetime, timezone

from board.tests.support.library import LibraryTest

START = datetime(2020, 2, 3, 4, 5, 6, tzinfo=timezone.utc)
TARGET = datetime(2024, 5, 7, 8, 9, 10, tzinfo=timezone.utc)
TARGET_WORDS = (2024, 5, 7, 8, 9, 10)
DATES = re.compile(r"(.*) UTC (\d+)\n(.*) UTC (\d+)\n")  # one of `date` before, one after
LOGGED = """\
Debug timeutils SyncSysTime: set time test by qhm begin
Debug timeutils SyncSysTime: set time test by qhm end
"""
WRAP = 1 << 32  # ticks


class Clock(LibraryTest):

    def setUp(self):
        super().setUp()
        self.terminal.check(f"date -s @{seconds(START)}")

    def set_clock(self, *words, scenario="SyncSysTime"):
        """Runs the call and keeps what it left. Returns the rest of the output."""
        output = self.call(scenario, *words)
        dates = DATES.match(output)
        self.old, self.new = (parsed(f"{dates[i]} {dates[i + 1]}") for i in (1, 3))
        ticks = re.findall(r"tick (\d+) (-?\d+) (\d+)\n", output)
        self.ticks = [tuple(map(int, tick)) for tick in ticks]
        self.took_ms = int(re.search(r"took (\d+)\n", output)[1])
        return re.sub(r"(tick|took) .*\n", "", output[dates.end():])

    def assert_counted_on_from(self, second):
        """The clock reads what it does if it got this second at some moment during the call."""
        late_ms = self.ticks[1][0] - second * 1000
        self.assertIn(late_ms, range(0, self.took_ms + 2))  # both readings are rounded
        self.assertIn(self.new - second, range(0, self.took_ms // 1000 + 2))

    def assert_ticks_follow(self):
        """Each tick is the wall clock's in 32 bits, whatever that was set to in between."""
        for before, tick, after in self.ticks:
            self.assertLessEqual((tick - before) % WRAP, after - before)
            self.assertIn(tick, range(-WRAP // 2, WRAP // 2))

    def test_sets_the_clock_a_second_ahead(self):
        rest = self.set_clock(*TARGET_WORDS)
        self.assert_counted_on_from(seconds(TARGET) + 1)
        self.assertEqual(rest, LOGGED + "result 1\nrecord 2024-5-7 8:9:10 isdst -1\n")
        self.assertGreaterEqual(float(self.terminal.check("date +%s")), seconds(TARGET) + 1)

    def test_prints_the_old_date_first(self):
        self.set_clock(*TARGET_WORDS)
        self.assertIn(self.old, range(seconds(START), self.ticks[0][2] // 1000
                                      + self.took_ms // 1000 + 2))

    def test_ticks_follow_the_jump(self):
        self.set_clock(*TARGET_WORDS)
        self.assert_ticks_follow()

    def test_sets_the_clock_back(self):
        self.set_clock(2001, 9, 9, 1, 46, 40)
        self.assert_counted_on_from(1_000_000_000 + 1)
        self.assert_ticks_follow()

    def test_normalises_the_record(self):
        rest = self.set_clock(2023, 12, 31, 23, 59, 60)
        self.assert_counted_on_from(seconds(datetime(2024, 1, 1, tzinfo=timezone.utc)) + 1)
        self.assertIn("record 2024-1-1 0:0:0 isdst -1\n", rest)

    def test_record_before_1970_changes_nothing(self):
        # The call asks for 1970-01-01 00:00:00. A kernel of our days refuses a wall clock that
        # would be behind its own uptime; the terminal's older one sets it.
        rest = self.set_clock(1969, 12, 31, 23, 59, 0)
        self.assertEqual(rest, LOGGED + "result 1\nrecord 1969-12-31 23:59:0 isdst -1\n")
        self.assertGreaterEqual(self.new, self.old)
        self.assertLessEqual(self.ticks[1][0] - self.ticks[0][2], self.took_ms + 2)
        self.assert_ticks_follow()

    def test_c_library_refuses_time_and_zone_in_one_call(self):
        # So the terminal here is one of the new ones: the time that is set above is set alone.
        self.assertEqual(self.call("TimeAndZone"), "result -1, Invalid argument\n")

    def test_kernel_keeps_its_zone(self):
        rest = self.set_clock(-60, *TARGET_WORDS, scenario="SyncSysTimeInZone")
        self.assert_counted_on_from(seconds(TARGET) + 1)
        self.assertTrue(rest.endswith("zone -60\n"), rest)

    def test_without_the_right_nothing_changes(self):
        rest = self.set_clock(*TARGET_WORDS, scenario="SyncSysTimeWithoutRight")
        self.assertIn("result 1\n", rest)
        self.assertLess(self.new, seconds(TARGET))


def seconds(date):
    """Since 1970."""
    return int(date.timestamp())


def parsed(text):
    """Seconds since 1970 of a date as `date` prints it."""
    return seconds(datetime.strptime(f"{text} +0000", "%a %b %d %H:%M:%S %Y %z"))
