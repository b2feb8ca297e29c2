// mktime_1 and its naive walk against exact counts in 64 bits, which know no overflow.

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <ctime>

#include "tests/support/inputs.h"
#include "tests/util/timeutils/any_int.h"
#include "tests/util/timeutils/date_records.h"
#include "tests/util/timeutils/values/mktime_checks.h"
#include "tests/util/timeutils/values/naive_mktime.h"
#include "tests/util/timeutils/values/naive_seconds.h"
#include "util/timeutils.h"

namespace {

constexpr int kRecords = kRandomInputs / 10;
constexpr int kFieldBits = 29;                      // sums of fields then fit
constexpr int kFarthestYear = 1 << 30;              // likewise
constexpr int64_t kLastWholeWeekday = INT_MAX - 4;  // with the 4 of the first Thursday

struct tm SomeRecord(Random& random, int year) {
    struct tm rec = MarkedRecord({});
    rec.tm_year = year;
    rec.tm_mon = SmallInt(random, kFieldBits);
    rec.tm_mday = SmallInt(random, kFieldBits);
    rec.tm_hour = SmallInt(random, kFieldBits);
    rec.tm_min = SmallInt(random, kFieldBits);
    rec.tm_sec = SmallInt(random, kFieldBits);
    rec.tm_isdst = random.Between(-1, 1);
    return rec;
}

// What a record becomes: brought into range, and from 1970 on with weekday and day of the year.
struct tm Normal(const struct tm& given) {
    const int64_t seconds = naive::SecondsSince1970(given);
    struct tm rec = naive::RecordAt(seconds);
    rec.tm_isdst = given.tm_isdst;
    if (seconds < 0) {
        rec.tm_wday = given.tm_wday;
        rec.tm_yday = given.tm_yday;
    }
    return rec;
}

void ExpectExact(const struct tm& given, int zone = 0, int bias = 0) {
    const bool weekday_is_whole = naive::SecondsSince1970(given) / 86400 <= kLastWholeWeekday;
    ExpectCounted(given, zone, bias, naive::CountOrRefuse(given, zone, bias), Normal(given),
                  weekday_is_whole);
}

// A record of 1970 that is so many seconds old, spread over its fields.
struct tm After1970(Random& random, int64_t seconds) {
    struct tm rec = naive::RecordAt(seconds);
    rec.tm_isdst = random.Between(-1, 1);
    const int hours = random.Between(-1000, 1000);
    rec.tm_hour -= hours;
    rec.tm_min += 60 * hours;
    return rec;
}

}  // namespace

TEST(mktime_1, CountsExactlyOrRefusesForRecordsOfAnySize) {
    Random random(64);
    for (int i = 0; i < kRecords && !HasFatalFailure(); ++i) {
        ExpectExact(SomeRecord(random, random.Between(-kFarthestYear, kFarthestYear)));
        ExpectExact(SomeRecord(random, SmallInt(random, 20)));
    }
}

TEST(mktime_1, RefusesExactlyWhatLeavesTheRange) {
    Random random(2147483647);
    for (const int64_t edge : {int64_t{0}, int64_t{INT_MAX}, int64_t{1} << 32,
                               int64_t{INT_MAX} * 86400, int64_t{5883516} * 365 * 86400}) {
        for (int i = 0; i < kRecords / 100 && !HasFatalFailure(); ++i) {
            ExpectExact(After1970(random, edge + random.Between(-5, 5)));
            ExpectExact(After1970(random, edge + random.Between(-100'000, 100'000)));
        }
    }
}

TEST(mktime_1, RefusesExactlyWhatTheZoneMovesOutOfTheRange) {
    Random random(3600);
    for (int i = 0; i < kRecords / 10 && !HasFatalFailure(); ++i) {
        const int zone = std::max(AnyInt(random), -INT_MAX);
        const int bias = random.Between(0, 1) == 0 ? 0 : AnyInt(random) & INT_MAX;
        for (const int64_t edge : {int64_t{INT_MAX} - zone, -int64_t{zone}, int64_t{bias} - zone}) {
            const int64_t seconds = edge + random.Between(-2, 2);
            if (seconds >= 0 && seconds <= INT_MAX) {
                ExpectExact(After1970(random, seconds), zone, bias);
            }
        }
    }
}

TEST(mktime_1, TheNaiveWalkCountsExactlyToo) {
    Random random(400);
    for (int i = 0; i < kRecords / 100 && !HasFatalFailure(); ++i) {
        struct tm rec = After1970(random, AnyInt(random));
        rec.tm_year += SmallInt(random, 20);
        struct tm walked = rec;
        ASSERT_EQ(naive::mktime_1(&walked), naive::CountOrRefuse(rec));
        ASSERT_EQ(FieldsOf(walked)[5], FieldsOf(Normal(rec))[5]);
        ASSERT_EQ(DateIn(walked), DateIn(Normal(rec)));
    }
}

TEST(mktime_1, TheExactCountIsThatOfTheCLibrary) {
    Random random(1970);
    for (int i = 0; i < kRecords && !HasFatalFailure(); ++i) {
        const int64_t seconds =
            sizeof(time_t) == 4 ? AnyInt(random) : int64_t{AnyInt(random)} * 100'000;
        const auto count = static_cast<time_t>(seconds);
        struct tm rec;
        gmtime_r(&count, &rec);
        ASSERT_EQ(FieldsOf(naive::RecordAt(seconds)), FieldsOf(rec)) << seconds;
        ASSERT_EQ(naive::SecondsSince1970(rec), seconds);
    }
}
