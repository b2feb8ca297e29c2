// Fixed texts read into records and counts.

#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <string>
#include <type_traits>

#include "tests/support/dirty_stack.h"
#include "tests/support/exact_copy.h"
#include "tests/support/log_lines.h"
#include "tests/support/time_zone.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

static_assert(std::is_same_v<decltype(&StrTimeToTm), int (*)(struct tm*, const char*)>);
static_assert(std::is_same_v<decltype(&StrTimeToTTime), int (*)(TTime*, const char*)>);
static_assert(std::is_same_v<decltype(&StrTimeToSec), time_t (*)(const char*)>);
static_assert(std::is_same_v<decltype(&OldStrTimeToSec), int (*)(const char*)>);

namespace {

constexpr int kUnread = kMark;

struct tm Marked() {
    struct tm rec;
    memset(&rec, 0x5A, sizeof rec);
    return rec;
}

// The six fields in the order in which they are read; what the text does not give stays marked.
struct Read {
    const char* text;
    int tm_year, tm_mon, tm_mday, tm_hour, tm_min, tm_sec;
};

template <typename Parse>
void ExpectReads(Parse parse, std::initializer_list<Read> cases) {
    for (const Read& expected : cases) {
        struct tm rec = Marked();
        EXPECT_EQ(parse(&rec, ExactCopy(expected.text).get()), 1) << expected.text;
        EXPECT_EQ(rec.tm_year, expected.tm_year) << expected.text;
        EXPECT_EQ(rec.tm_mon, expected.tm_mon) << expected.text;
        EXPECT_EQ(rec.tm_mday, expected.tm_mday) << expected.text;
        EXPECT_EQ(rec.tm_hour, expected.tm_hour) << expected.text;
        EXPECT_EQ(rec.tm_min, expected.tm_min) << expected.text;
        EXPECT_EQ(rec.tm_sec, expected.tm_sec) << expected.text;
        EXPECT_EQ(rec.tm_isdst, kMark) << expected.text;
    }
}

}  // namespace

TEST(StrTimeToTm, ReadsADate) {
    ExpectReads(StrTimeToTm, {
                                 {"2024-05-07", 124, 4, 7, kUnread, kUnread, kUnread},
                                 {"1999-12-31", 99, 11, 31, kUnread, kUnread, kUnread},
                                 {"2024-5-7", 124, 4, 7, kUnread, kUnread, kUnread},
                                 {"2024-05-07T08:09:10", 124, 4, 7, kUnread, kUnread, kUnread},
                             });
}

TEST(StrTimeToTm, LeavesFieldsThatTheTextDoesNotGive) {
    ExpectReads(StrTimeToTm, {
                                 {"2024-05", 124, 4, kUnread, kUnread, kUnread, kUnread},
                                 {"2024-05-", 124, 4, kUnread, kUnread, kUnread, kUnread},
                                 {"2024-05-xx", 124, 4, kUnread, kUnread, kUnread, kUnread},
                                 {"2024", 124, kUnread, kUnread, kUnread, kUnread, kUnread},
                                 {"2024/05/07", 124, kUnread, kUnread, kUnread, kUnread, kUnread},
                                 {"2024-13-07", 124, kUnread, kUnread, kUnread, kUnread, kUnread},
                                 {"x", kUnread, kUnread, kUnread, kUnread, kUnread, kUnread},
                                 {"", kUnread, kUnread, kUnread, kUnread, kUnread, kUnread},
                             });
}

TEST(StrTimeToTm, SetsWeekdayAndDayOfYearOfAWholeDateAlone) {
    struct tm rec = Marked();
    StrTimeToTm(&rec, "2024-05-07");
    EXPECT_EQ(rec.tm_wday, 2);  // a Tuesday
    EXPECT_EQ(rec.tm_yday, 127);
    rec = Marked();
    StrTimeToTm(&rec, "2024-05");
    EXPECT_EQ(rec.tm_wday, kMark);
    EXPECT_EQ(rec.tm_yday, kMark);
}

TEST(StrTimeToTm, RefusesNoText) {
    struct tm rec = Marked();
    EXPECT_EQ(StrTimeToTm(&rec, nullptr), 0);
    EXPECT_TRUE(SameBytes(rec, Marked()));
    EXPECT_EQ(StrTimeToTm(nullptr, nullptr), 0);
}

TEST(StrTimeToTTime, ReadsDateAndTime) {
    ExpectReads(StrTimeToTTime, {
                                    {"2024-05-07T08:09:10", 124, 4, 7, 8, 9, 10},
                                    {"1969-12-31T23:59:59", 69, 11, 31, 23, 59, 59},
                                    {"2024-05-07T08:09:10Z", 124, 4, 7, 8, 9, 10},
                                    {"2024-02-30T00:00:00", 124, 1, 30, 0, 0, 0},
                                });
}

TEST(StrTimeToTTime, LeavesFieldsThatTheTextDoesNotGive) {
    ExpectReads(StrTimeToTTime, {
                                    {"2024-05-07T08:09", 124, 4, 7, 8, 9, kUnread},
                                    {"2024-05-07T08:09:xx", 124, 4, 7, 8, 9, kUnread},
                                    {"2024-05-07T08", 124, 4, 7, 8, kUnread, kUnread},
                                    {"2024-05-07T24:00:00", 124, 4, 7, kUnread, kUnread, kUnread},
                                    {"2024-05-07", 124, 4, 7, kUnread, kUnread, kUnread},
                                    {"2024-05-07 08:09:10", 124, 4, 7, kUnread, kUnread, kUnread},
                                    {"", kUnread, kUnread, kUnread, kUnread, kUnread, kUnread},
                                });
}

TEST(StrTimeToTTime, LeavesTheWholeRecordWithAnEmptyText) {
    struct tm rec = Marked();
    EXPECT_EQ(StrTimeToTTime(&rec, ""), 1);
    EXPECT_TRUE(SameBytes(rec, Marked()));
}

TEST(StrTimeToTTime, RefusesNull) {
    struct tm rec = Marked();
    EXPECT_EQ(StrTimeToTTime(&rec, nullptr), 0);
    EXPECT_TRUE(SameBytes(rec, Marked()));
    EXPECT_EQ(StrTimeToTTime(nullptr, "2024-05-07T08:09:10"), 0);
    EXPECT_EQ(StrTimeToTTime(nullptr, nullptr), 0);
}

TEST(StrTimeToSec, CountsTheRecordWithoutAZone) {
    const ScopedTimeZone zone(kCentralEurope);
    EXPECT_EQ(StrTimeToSec("1970-01-01T00:00:00"), 0);
    EXPECT_EQ(StrTimeToSec("2024-03-05T13:07:09"), 1709644029);
    EXPECT_EQ(StrTimeToSec("2024-07-01T08:00:00"), 1719820800);
    EXPECT_EQ(StrTimeToSec("2038-01-19T03:14:07"), INT_MAX);
}

TEST(StrTimeToSec, RefusesWhatCannotBeCounted) {
    EXPECT_EQ(StrTimeToSec("1969-12-31T23:59:59"), time_t{-1});
    EXPECT_EQ(StrTimeToSec("2038-01-19T03:14:08"), time_t{-1});
}

TEST(StrTimeToSec, IsZeroWithoutAText) {
    EXPECT_EQ(StrTimeToSec(nullptr), 0);
    EXPECT_EQ(StrTimeToSec(""), 0);
}

TEST(StrTimeToSec, BringsTheDateIntoRange) {
    EXPECT_EQ(StrTimeToSec("2024-02-30T00:00:00"), StrTimeToSec("2024-03-01T00:00:00"));
}

TEST(StrTimeToSec, CountsTheBiasAsEncodeTimeDoes) {
    _dstbias = 3600;
    EXPECT_EQ(StrTimeToSec("1970-01-01T02:00:00"), 3600);
    _dstbias = 0;
}

TEST(StrTimeToSec, CountsFieldsThatTheTextDoesNotGiveAsZero) {
    EXPECT_EQ(StrTimeToSec("2024-05-07"), 1715040000);
    EXPECT_EQ(StrTimeToSec("2024-05-07 08:09:10"), 1715040000);
}

TEST(StrTimeToSec, TakesNoFieldFromTheStack) {
    DirtyStackWith("7");
    EXPECT_EQ(StrTimeToSec("2024-05-07"), 1715040000);
}

TEST(OldStrTimeToSec, TakesNoFieldFromTheStack) {
    const int expected = OldStrTimeToSec("2024-05-07T00:00:00");
    DirtyStackWith("7");
    EXPECT_EQ(OldStrTimeToSec("2024-05-07"), expected);
}

TEST(OldStrTimeToSec, CountsMonthsOf31Days) {
    const ScopedTimeZone zone(kCentralEurope);
    EXPECT_EQ(OldStrTimeToSec("2000-01-01T00:00:00"), 0);
    EXPECT_EQ(OldStrTimeToSec("2000-02-01T00:00:00"), 2678400);
    EXPECT_EQ(OldStrTimeToSec("2001-01-01T00:00:01"), 372 * 86400 + 1);
    EXPECT_EQ(OldStrTimeToSec("1999-12-31T23:59:59"), -1);
    EXPECT_EQ(OldStrTimeToSec("2066-10-25T03:14:07"), INT_MAX);
    EXPECT_EQ(OldStrTimeToSec("2066-10-25T03:14:08"), INT_MIN);
}

TEST(OldStrTimeToSec, IsZeroWithoutATextOnly) {
    EXPECT_EQ(OldStrTimeToSec(nullptr), 0);
    const struct tm nothing_read = {};
    EXPECT_EQ(OldStrTimeToSec(""), OldEncodeTime(&nothing_read));
    EXPECT_NE(OldStrTimeToSec(""), 0);
}

TEST(StrTimeToSec, DoesNotLogNorDoTheOthers) {
    CapturedLog log;
    struct tm rec = Marked();
    for (const char* text : {"2024-05-07T08:09:10", "x", ""}) {
        StrTimeToTm(&rec, text);
        StrTimeToTTime(&rec, text);
        StrTimeToSec(text);
        OldStrTimeToSec(text);
    }
    StrTimeToTm(&rec, nullptr);
    StrTimeToTTime(nullptr, nullptr);
    StrTimeToSec(nullptr);
    OldStrTimeToSec(nullptr);
    EXPECT_EQ(log.TakeText(), "");
}
