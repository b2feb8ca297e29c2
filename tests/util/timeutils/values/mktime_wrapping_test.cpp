// mktime_1 over the whole range of each field, of the zone and of the bias, against 64-bit sums:
// minutes, hours and days are cut to 32 bits where the record holds them, and the years are a
// circle, on which the last one is followed by the first.

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <ctime>

#include "tests/support/inputs.h"
#include "tests/util/timeutils/any_int.h"
#include "tests/util/timeutils/date_records.h"
#include "tests/util/timeutils/values/mktime_checks.h"
#include "tests/util/timeutils/values/naive_seconds.h"
#include "util/timeutils.h"

namespace {

constexpr int kRecords = kRandomInputs / 10;
constexpr int kDaySeconds = 86400;

int64_t Floor(int64_t value, int64_t base) {
    return value / base - (value % base < 0 ? 1 : 0);
}

// Rounded down, what is left of a division.
int64_t Rest(int64_t value, int64_t base) {
    return value - Floor(value, base) * base;
}

// The day, counted from 1970, that the record's month and so many days more lead to.
int64_t DayOnTheCircle(const struct tm& given, int days) {
    static const int64_t kFirst = naive::DaysSince1970(INT_MIN, 1, 1);
    static const int64_t kDays = naive::DaysSince1970(int64_t{INT_MAX} + 1, 1, 1) - kFirst;
    const int tm_year = Cut(given.tm_year + Floor(given.tm_mon, 12));
    const int year = Cut(int64_t{tm_year} + 1900);
    const int64_t day = naive::DaysSince1970(year, Rest(given.tm_mon, 12) + 1, 1) + days;
    return kFirst + Rest(day - kFirst, kDays);
}

// What a record becomes: brought into range, and from tm_year 70 on with weekday and day of year.
struct tm Normal(const struct tm& given) {
    const int minutes = Cut(given.tm_min + Floor(given.tm_sec, 60));
    const int hours = Cut(given.tm_hour + Floor(minutes, 60));
    const int64_t clock = (Rest(hours, 24) * 60 + Rest(minutes, 60)) * 60 + Rest(given.tm_sec, 60);
    const int64_t day = DayOnTheCircle(given, Cut(Floor(hours, 24) + given.tm_mday - 1));
    struct tm rec = naive::RecordAt(day * kDaySeconds + clock);
    rec.tm_isdst = given.tm_isdst;
    rec.tm_wday = Cut(day + 4) % 7;  // 1970 began on a Thursday
    if (rec.tm_year < 70) {
        rec.tm_wday = given.tm_wday;
        rec.tm_yday = given.tm_yday;
    }
    return rec;
}

void ExpectNormalAndCounted(const struct tm& given, int zone = 0, int bias = 0) {
    const struct tm normal = Normal(given);
    const bool has_wrapped = normal.tm_year > INT_MAX - 1900;  // no calendar counts days there
    ExpectCounted(given, zone, bias, naive::CountOrRefuse(normal, zone, bias), normal,
                  !has_wrapped);
}

struct tm AnyRecord(Random& random) {
    struct tm rec = MarkedRecord({});
    for (int tm::*field :
         {&tm::tm_year, &tm::tm_mon, &tm::tm_mday, &tm::tm_hour, &tm::tm_min, &tm::tm_sec}) {
        rec.*field = AnyInt(random);
    }
    rec.tm_isdst = random.Between(-1, 1);
    return rec;
}

}  // namespace

TEST(mktime_1, WrapsEachFieldAt32Bits) {
    Random random(32);
    for (int i = 0; i < kRecords && !HasFatalFailure(); ++i) {
        ExpectNormalAndCounted(AnyRecord(random), AnyInt(random), AnyInt(random));
    }
}

TEST(mktime_1, WrapsTheYearsInACircle) {
    Random random(1900);
    for (int i = 0; i < kRecords && !HasFatalFailure(); ++i) {
        struct tm rec = AnyRecord(random);
        rec.tm_year = Cut(int64_t{INT_MAX} - 1900 + SmallInt(random, 23));
        rec.tm_mon = SmallInt(random, 8);
        ExpectNormalAndCounted(rec);
    }
}

TEST(mktime_1, TakesEveryMixOfLimits) {
    constexpr int kLimits[] = {INT_MIN, INT_MIN + 1, 0, INT_MAX - 1, INT_MAX};
    constexpr int kMixes = 5 * 5 * 5 * 5 * 5 * 5;
    for (int mix = 0; mix < kMixes && !HasFatalFailure(); ++mix) {
        struct tm rec = MarkedRecord({});
        int rest = mix;
        for (int tm::*field :
             {&tm::tm_year, &tm::tm_mon, &tm::tm_mday, &tm::tm_hour, &tm::tm_min, &tm::tm_sec}) {
            rec.*field = kLimits[rest % 5];
            rest /= 5;
        }
        ExpectNormalAndCounted(rec);
    }
}

TEST(mktime_1, TakesAnyZoneAndAnyBias) {
    Random random(86400);
    for (int i = 0; i < kRecords && !HasFatalFailure(); ++i) {
        const int zone = AnyInt(random);
        const int bias = AnyInt(random);
        struct tm rec = naive::RecordAt(AnyInt(random) & INT_MAX);
        rec.tm_isdst = random.Between(-1, 1);
        ExpectNormalAndCounted(rec, zone, bias);
        ExpectNormalAndCounted(rec, INT_MIN, -1 - (bias & INT_MAX));
    }
}
