// GetLocalTime.

#include <gtest/gtest.h>

#include <climits>
#include <ctime>

#include "tests/support/fake_clock.h"
#include "tests/support/log_lines.h"
#include "tests/support/time_zone.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

namespace {

// The start of local years in Central Europe, where it is an hour later than in UTC.
constexpr time_t kYear2000 = 946681200;
constexpr time_t kYear2038 = 2145913200;
constexpr time_t kSummer2024 = 1718443445;  // 2024-06-15 11:24:05 local

const TTime kStale = MarkedRecord({kMark, kMark, kMark});

// The C library's shared record after a call at the time now.
TTime SharedRecordAfter(int calendar_mode, time_t now) {
    const FakeClock clock(now);
    const time_t other = 86400;
    const TTime* const shared = localtime(&other);
    TTime out = kStale;
    EXPECT_EQ(GetLocalTime(calendar_mode, &out), 1);
    EXPECT_TRUE(SameBytes(out, kStale));
    return *shared;
}

// The fields besides the date are those of the local time.
void ExpectShared(int calendar_mode, time_t now, const Date& date) {
    const TTime rec = SharedRecordAfter(calendar_mode, now);
    EXPECT_EQ(DateIn(rec), date) << calendar_mode << " at " << now;
    struct tm expected;
    localtime_r(&now, &expected);
    expected.tm_year = rec.tm_year;
    expected.tm_mon = rec.tm_mon;
    expected.tm_mday = rec.tm_mday;
    EXPECT_EQ(FieldsOf(rec), FieldsOf(expected)) << calendar_mode << " at " << now;
    EXPECT_EQ(rec.tm_gmtoff, expected.tm_gmtoff);
    EXPECT_STREQ(rec.tm_zone, expected.tm_zone);
}

}  // namespace

TEST(GetLocalTime, LeavesTheLocalTimeInTheSharedRecord) {
    const ScopedTimeZone zone(kCentralEurope);
    for (const int calendar_mode : {0, 3, 7, -1, INT_MIN, INT_MAX}) {
        ExpectShared(calendar_mode, kSummer2024, {2024, 6, 15});
        ExpectShared(calendar_mode, kYear2000, {2000, 1, 1});
    }
    const TTime rec = SharedRecordAfter(0, kSummer2024);
    EXPECT_EQ(rec.tm_hour, 11);
    EXPECT_EQ(rec.tm_min, 24);
    EXPECT_EQ(rec.tm_sec, 5);
    EXPECT_EQ(rec.tm_isdst, 1);
}

TEST(GetLocalTime, ConvertsTheSharedRecord) {
    const ScopedTimeZone zone(kCentralEurope);
    ExpectShared(1, kYear2000, {1378, 10, 11});
    ExpectShared(2, kYear2000, {1420, 9, 24});
    ExpectShared(1, kSummer2024, {1403, 3, 26});
    ExpectShared(2, kSummer2024, {1445, 12, 8});
}

TEST(GetLocalTime, ConvertsTheDateOfTheLocalZone) {
    const time_t before_midnight = kYear2000 + 86400 - 1;
    const ScopedTimeZone zone(kCentralEurope);
    ExpectShared(1, before_midnight, {1378, 10, 11});
    ExpectShared(1, before_midnight + 1, {1378, 10, 12});
    const ScopedTimeZone west("XXX8");
    ExpectShared(1, before_midnight + 1, {1378, 10, 11});
}

TEST(GetLocalTime, KeepsTheYears2000To2037) {
    const ScopedTimeZone zone(kCentralEurope);
    ExpectShared(0, kYear2000, {2000, 1, 1});
    ExpectShared(0, kYear2038 - 1, {2037, 12, 31});
    ExpectShared(1, kYear2038 - 1, {1416, 10, 11});
    ExpectShared(2, kYear2038 - 1, {1459, 11, 23});
}

TEST(GetLocalTime, SetsTmYearTo2000OutsideThem) {
    const ScopedTimeZone zone(kCentralEurope);
    for (const int calendar_mode : {0, 7, -1}) {
        ExpectShared(calendar_mode, kYear2000 - 1, {3900, 12, 31});
        ExpectShared(calendar_mode, kYear2038, {3900, 1, 1});
        ExpectShared(calendar_mode, 0, {3900, 1, 1});
        EXPECT_EQ(SharedRecordAfter(calendar_mode, kYear2038).tm_year, 2000);
    }
}

TEST(GetLocalTime, ConvertsFromTmYear2000OutsideThem) {
    const ScopedTimeZone zone(kCentralEurope);
    ExpectShared(1, kYear2000 - 1, {3279, 10, 10});
    ExpectShared(2, kYear2000 - 1, {3380, 1, 26});
    ExpectShared(1, kYear2038, {3278, 10, 12});
    ExpectShared(2, kYear2038, {3379, 1, 16});
    ExpectShared(1, INT_MAX, {3278, 10, 30});
    ExpectShared(2, INT_MAX, {3379, 2, 4});
}

TEST(GetLocalTime, NullGives0AndDoesNotTouchTheSharedRecord) {
    const ScopedTimeZone zone(kCentralEurope);
    const FakeClock clock(kSummer2024);
    const time_t other = 86400;
    const TTime* const shared = localtime(&other);
    const TTime before = *shared;
    for (const int calendar_mode : {0, 1, 2, 7}) {
        EXPECT_EQ(GetLocalTime(calendar_mode, nullptr), 0);
        EXPECT_TRUE(SameBytes(*shared, before));
    }
}

TEST(GetLocalTime, DoesNotLog) {
    CapturedLog log;
    TTime out;
    GetLocalTime(1, &out);
    GetLocalTime(0, nullptr);
    EXPECT_EQ(log.TakeText(), "");
}
