// mktime_1 on records far out of range, against the naive walk from month to month.

#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <iterator>

#include "tests/util/timeutils/any_int.h"
#include "tests/util/timeutils/date_records.h"
#include "tests/util/timeutils/values/naive_mktime.h"
#include "util/timeutils.h"

namespace {

// The walk takes a few nanoseconds a month, under qemu-arm ten times as long, and there are 70
// million months in the days of an int: under qemu there are fewer records and fewer full walks.
#ifdef __arm__
constexpr int kRandomRecords = 1'000;
constexpr size_t kFullWalks = 1;
#else
constexpr int kRandomRecords = 10'000;
constexpr size_t kFullWalks = 4;  // all
#endif

constexpr int kCycleDays = 146097;
constexpr int kLastTmYear = INT_MAX - 1900;  // 1900 + tm_year wraps after it

struct tm Record(int year, int month, int day, const Clock& clock = {}) {
    struct tm rec = RecordOf({}, clock);
    rec.tm_year = year;
    rec.tm_mon = month;
    rec.tm_mday = day;
    return rec;
}

// Results, all fields, and all other bytes.
void ExpectAsNaive(const struct tm& given) {
    struct tm rec = given;
    struct tm naive_rec = given;
    const time_t seconds = mktime_1(&rec);
    ASSERT_EQ(seconds, naive::mktime_1(&naive_rec)) << testing::PrintToString(FieldsOf(given));
    ASSERT_EQ(FieldsOf(rec), FieldsOf(naive_rec)) << testing::PrintToString(FieldsOf(given));
    ASSERT_TRUE(SameBytes(rec, naive_rec));
}

}  // namespace

TEST(mktime_1, AgreesWithTheNaiveOneOnRandomRecords) {
    Random random(1970);
    for (int i = 0; i < kRandomRecords && !HasFatalFailure(); ++i) {
        // Day counts stay within some 20 cycles, so that a walk is short.
        struct tm rec = Record(AnyInt(random), AnyInt(random), SmallInt(random, 21),
                               {SmallInt(random, 26), AnyInt(random), AnyInt(random)});
        rec.tm_isdst = AnyInt(random);
        ExpectAsNaive(rec);
    }
}

TEST(mktime_1, AgreesWithTheNaiveOneInYearsThatAreCounted) {
    Random random(2038);
    for (int i = 0; i < kRandomRecords && !HasFatalFailure(); ++i) {
        ExpectAsNaive(Record(random.Between(60, 150), SmallInt(random, 10), SmallInt(random, 14),
                             {SmallInt(random, 18), SmallInt(random, 24), AnyInt(random)}));
    }
}

TEST(mktime_1, AgreesWithTheNaiveOneAcrossTheWrapOfTheYear) {
    for (int cycles = 0; cycles <= 3 && !HasFatalFailure(); ++cycles) {
        for (const int year : {0, 1, 99, 100, 365, 399, 400, 401, 800, 1247}) {
            for (const int over : {-1, 0, 1, 2, 366, 36524, kCycleDays - 1}) {
                for (const int month : {0, 1, 2, 11}) {
                    const int days = cycles * kCycleDays + over;
                    ExpectAsNaive(Record(kLastTmYear - year, month, days));
                    ExpectAsNaive(Record(kLastTmYear + year + 1, month, -days));
                }
            }
        }
    }
}

TEST(mktime_1, AgreesWithTheNaiveOneAfterTheWrapOfTmYear) {
    // tm_year wraps 1900 years before 1900 + tm_year does; the leap years do not notice.
    for (const int days : {-kCycleDays, -366, -1, 0, 1, 366, 36525, kCycleDays, 6 * kCycleDays}) {
        for (const int offset : {0, 1, 3, 4, 100, 399, 400, 1899, 1900}) {
            ExpectAsNaive(Record(INT_MIN + offset, 0, days));
            ExpectAsNaive(Record(INT_MAX - offset, 11, days));
        }
    }
}

TEST(mktime_1, AgreesWithTheNaiveOneAtWholeCycles) {
    for (int cycles = -3; cycles <= 3 && !HasFatalFailure(); ++cycles) {
        for (int year = 98; year <= 102; ++year) {
            for (int month = -1; month <= 12; ++month) {
                for (int over = -2; over <= 2; ++over) {
                    ExpectAsNaive(Record(year, month, cycles * kCycleDays + over));
                }
            }
        }
    }
}

TEST(mktime_1, AgreesWithTheNaiveOneOverAllDaysOfAnInt) {
    // The first two cross the wrap of the year, from either side.
    const struct tm kRecords[] = {
        Record(Cut(int64_t{kLastTmYear} + 3'000'000), 1, -INT_MAX),
        Record(kLastTmYear - 3'000'000, 1, INT_MAX),
        Record(124, 0, INT_MIN),  // the day before it wraps to the latest
        Record(INT_MAX, INT_MAX, INT_MAX, {INT_MAX, INT_MAX, INT_MAX}),
    };
    static_assert(std::size(kRecords) >= kFullWalks);
    for (size_t i = 0; i < kFullWalks && !HasFatalFailure(); ++i) {
        ExpectAsNaive(kRecords[i]);
    }
}

TEST(mktime_1, TakesTheLimitsInEachField) {
    for (const int limit : {INT_MIN, INT_MIN + 1, INT_MAX - 1, INT_MAX}) {
        for (int tm::*field : {&tm::tm_sec, &tm::tm_min, &tm::tm_mon, &tm::tm_year, &tm::tm_wday,
                               &tm::tm_yday, &tm::tm_isdst}) {
            struct tm rec = RecordOf({2024, 2, 29}, {12, 30, 45});
            rec.*field = limit;
            ExpectAsNaive(rec);
        }
    }
}

TEST(mktime_1, TakesTheLimitsOfTheHours) {
#ifdef __arm__
    const int kHours[] = {INT_MIN};  // each walks 245,000 years
#else
    const int kHours[] = {INT_MIN, INT_MIN + 1, INT_MAX - 1, INT_MAX};
#endif
    for (const int hours : kHours) {
        ExpectAsNaive(RecordOf({2024, 2, 29}, {hours, 30, 45}));
    }
}

TEST(mktime_1, NormalisesEveryMixOfLimits) {
    constexpr int kLimits[] = {INT_MIN, 0, INT_MAX};
    constexpr int kMixes = 3 * 3 * 3 * 3 * 3 * 3;
    for (int mix = 0; mix < kMixes; ++mix) {
        struct tm rec = Record(kLimits[mix % 3], kLimits[mix / 3 % 3], kLimits[mix / 9 % 3],
                               {kLimits[mix / 27 % 3], kLimits[mix / 81 % 3], kLimits[mix / 243]});
        const time_t seconds = mktime_1(&rec);
        // What is in range is its own normal form.
        struct tm again = rec;
        ASSERT_EQ(naive::mktime_1(&again), seconds) << mix;
        ASSERT_TRUE(SameBytes(again, rec)) << mix;
        ASSERT_TRUE(rec.tm_sec >= 0 && rec.tm_sec < 60) << mix;
        ASSERT_TRUE(rec.tm_min >= 0 && rec.tm_min < 60) << mix;
        ASSERT_TRUE(rec.tm_hour >= 0 && rec.tm_hour < 24) << mix;
        ASSERT_TRUE(rec.tm_mon >= 0 && rec.tm_mon < 12) << mix;
        ASSERT_TRUE(rec.tm_mday >= 1 && rec.tm_mday <= 31) << mix;
    }
}
