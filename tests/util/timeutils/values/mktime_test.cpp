// EncodeTime and mktime_1: fields brought into range, counted, and refused.

#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <type_traits>

#include "tests/support/log_lines.h"
#include "tests/support/time_zone.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

static_assert(std::is_same_v<TTime, struct tm>);
static_assert(std::is_same_v<decltype(mktime_1(nullptr)), time_t>);
static_assert(std::is_same_v<decltype(EncodeTime(nullptr)), time_t>);

namespace {

struct Moment {
    Date date;
    Clock clock;
};

struct tm RecordAt(const Moment& moment) {
    return RecordOf(moment.date, moment.clock);
}

// Encodes what stands in a moment and expects its normal form.
void ExpectNormalised(const Moment& moment, const Moment& normal) {
    struct tm rec = RecordAt(moment);
    struct tm expected = RecordAt(normal);
    const time_t seconds = EncodeTime(&rec);
    EXPECT_EQ(seconds, EncodeTime(&expected));
    EXPECT_NE(seconds, -1);
    EXPECT_EQ(FieldsOf(rec), FieldsOf(expected));
    EXPECT_EQ(DateIn(rec), normal.date);
    EXPECT_EQ(rec.tm_hour, normal.clock.hour);
    EXPECT_EQ(rec.tm_min, normal.clock.minute);
    EXPECT_EQ(rec.tm_sec, normal.clock.second);
}

}  // namespace

TEST(EncodeTime, CountsSecondsSince1970) {
    const struct {
        Moment moment;
        time_t seconds;
        int weekday;
        int day_of_year;
    } kCases[] = {
        {{{1970, 1, 1}, {0, 0, 0}}, 0, 4, 0},
        {{{1970, 1, 1}, {0, 0, 1}}, 1, 4, 0},
        {{{1970, 1, 1}, {0, 1, 0}}, 60, 4, 0},
        {{{1970, 1, 1}, {1, 0, 0}}, 3600, 4, 0},
        {{{1970, 1, 2}, {0, 0, 0}}, 86400, 5, 1},
        {{{1970, 12, 31}, {23, 59, 59}}, 31535999, 4, 364},
        {{{2000, 2, 29}, {12, 0, 0}}, 951825600, 2, 59},
        {{{2024, 3, 5}, {13, 7, 9}}, 1709644029, 2, 64},
        {{{2024, 12, 31}, {0, 0, 0}}, 1735603200, 2, 365},
        {{{2038, 1, 19}, {3, 14, 7}}, INT_MAX, 2, 18},
    };
    for (const auto& [moment, seconds, weekday, day_of_year] : kCases) {
        struct tm rec = RecordAt(moment);
        EXPECT_EQ(EncodeTime(&rec), seconds) << moment.date;
        EXPECT_EQ(rec.tm_wday, weekday) << moment.date;
        EXPECT_EQ(rec.tm_yday, day_of_year) << moment.date;
    }
}

TEST(EncodeTime, BringsFieldsIntoRange) {
    const struct {
        Moment moment;
        Moment normal;
    } kCases[] = {
        // Each field at and beyond both edges of its range.
        {{{2024, 1, 1}, {0, 0, 59}}, {{2024, 1, 1}, {0, 0, 59}}},
        {{{2024, 1, 1}, {0, 0, 60}}, {{2024, 1, 1}, {0, 1, 0}}},
        {{{2024, 1, 1}, {0, 0, -1}}, {{2023, 12, 31}, {23, 59, 59}}},
        {{{2024, 1, 1}, {0, 0, -60}}, {{2023, 12, 31}, {23, 59, 0}}},
        {{{2024, 1, 1}, {0, 0, -61}}, {{2023, 12, 31}, {23, 58, 59}}},
        {{{2024, 1, 1}, {0, 59, 0}}, {{2024, 1, 1}, {0, 59, 0}}},
        {{{2024, 1, 1}, {0, 60, 0}}, {{2024, 1, 1}, {1, 0, 0}}},
        {{{2024, 1, 1}, {0, -1, 0}}, {{2023, 12, 31}, {23, 59, 0}}},
        {{{2024, 1, 1}, {0, -60, 0}}, {{2023, 12, 31}, {23, 0, 0}}},
        {{{2024, 1, 1}, {23, 0, 0}}, {{2024, 1, 1}, {23, 0, 0}}},
        {{{2024, 1, 1}, {24, 0, 0}}, {{2024, 1, 2}, {0, 0, 0}}},
        {{{2024, 1, 1}, {-1, 0, 0}}, {{2023, 12, 31}, {23, 0, 0}}},
        {{{2024, 1, 1}, {-24, 0, 0}}, {{2023, 12, 31}, {0, 0, 0}}},
        {{{2024, 1, 1}, {-25, 0, 0}}, {{2023, 12, 30}, {23, 0, 0}}},
        {{{2023, 13, 1}, {}}, {{2024, 1, 1}, {}}},
        {{{2023, 25, 1}, {}}, {{2025, 1, 1}, {}}},
        {{{2024, 0, 1}, {}}, {{2023, 12, 1}, {}}},
        {{{2024, -11, 1}, {}}, {{2023, 1, 1}, {}}},
        {{{2024, -12, 1}, {}}, {{2022, 12, 1}, {}}},
        {{{2024, 3, 0}, {}}, {{2024, 2, 29}, {}}},
        {{{2023, 3, 0}, {}}, {{2023, 2, 28}, {}}},
        {{{2024, 3, -29}, {}}, {{2024, 1, 31}, {}}},
        {{{2024, 2, 30}, {}}, {{2024, 3, 1}, {}}},
        {{{2023, 2, 29}, {}}, {{2023, 3, 1}, {}}},
        {{{2024, 4, 31}, {}}, {{2024, 5, 1}, {}}},
        {{{2023, 12, 32}, {}}, {{2024, 1, 1}, {}}},
        {{{2024, 1, 367}, {}}, {{2025, 1, 1}, {}}},
        {{{2024, 1, 0}, {}}, {{2023, 12, 31}, {}}},
        // The day count carries over years of both lengths.
        {{{1970, 1, 20000}, {}}, {{2024, 10, 3}, {}}},
        {{{2037, 12, -24000}, {}}, {{1972, 3, 16}, {}}},
        // All at once, against each other.
        {{{2024, 14, -30}, {47, -61, 3661}}, {{2025, 1, 2}, {23, 0, 1}}},
    };
    for (const auto& [moment, normal] : kCases) {
        SCOPED_TRACE(moment.date);
        ExpectNormalised(moment, normal);
    }
}

TEST(EncodeTime, SetsTheSummerTimeFlagToUnknown) {
    for (const int year : {1969, 1970, 2039}) {
        for (const int flag : {0, 1, -7}) {
            struct tm rec = RecordOf({year, 6, 1});
            rec.tm_isdst = flag;
            EncodeTime(&rec);
            EXPECT_EQ(rec.tm_isdst, -1) << year;
        }
    }
}

TEST(mktime_1, LeavesTheSummerTimeFlagAlone) {
    for (const int flag : {0, 1, -7, INT_MIN}) {
        struct tm rec = RecordOf({2024, 7, 1});
        rec.tm_isdst = flag;
        EXPECT_EQ(mktime_1(&rec), 1719792000);
        EXPECT_EQ(rec.tm_isdst, flag);
    }
}

TEST(mktime_1, LeavesTheTrailingFieldsAlone) {
    struct tm rec = RecordOf({2024, 1, 1}, {0, 0, -1});
    rec.tm_gmtoff = 12345;
    rec.tm_zone = "mine";
    mktime_1(&rec);
    EXPECT_EQ(rec.tm_gmtoff, 12345);
    EXPECT_STREQ(rec.tm_zone, "mine");
}

TEST(EncodeTime, RefusesYearsBefore1970ButBringsThemIntoRange) {
    struct tm rec = RecordOf({1969, 12, 31}, {23, 59, 59});
    EXPECT_EQ(EncodeTime(&rec), time_t{-1});
    EXPECT_EQ(DateIn(rec), (Date{1969, 12, 31}));

    rec = RecordOf({1970, 1, 1}, {0, 0, -1});
    EXPECT_EQ(EncodeTime(&rec), time_t{-1});
    EXPECT_EQ(FieldsOf(rec), (std::array{59, 59, 23, 31, 11, 69, kMark, kMark, -1}));
}

TEST(EncodeTime, RefusesEveryDateOf1969) {
    for (int day = 1; day <= 365; ++day) {
        struct tm rec = RecordOf({1969, 1, day}, {12, 0, 0});
        ASSERT_EQ(EncodeTime(&rec), time_t{-1});
        ASSERT_EQ(rec.tm_year, 69);
        ASSERT_EQ(rec.tm_wday, kMark);
        ASSERT_EQ(rec.tm_yday, kMark);
    }
}

TEST(EncodeTime, SetsWeekdayAndDayOfYearAlsoBeyondTheLastSecond) {
    struct tm rec = RecordOf({2038, 1, 19}, {3, 14, 8});
    EXPECT_EQ(EncodeTime(&rec), time_t{-1});
    EXPECT_EQ(FieldsOf(rec), (std::array{8, 14, 3, 19, 0, 138, 2, 18, -1}));

    rec = RecordOf({2100, 12, 31});
    EXPECT_EQ(EncodeTime(&rec), time_t{-1});
    EXPECT_EQ(rec.tm_wday, 5);
    EXPECT_EQ(rec.tm_yday, 364);
}

TEST(EncodeTime, RefusesWhatOnlyLooksSmallAfterTheWrap) {
    // 2106-02-07 06:28:16 comes 2^32 seconds after 1970. After it day counts grow, wrap, and come
    // back to what 1981 has: some 4,000 days, after 1, 100 and 182 rounds.
    for (const Date& date :
         {Date{2106, 2, 8}, Date{5885486, 1, 1}, Date{5885487, 1, 1}, Date{11761203, 1, 1},
          Date{1175924087, 1, 1}, Date{2140180213, 1, 1}, Date{INT_MAX, 12, 31}}) {
        struct tm rec = RecordOf(date, {6, 28, 16});
        EXPECT_EQ(EncodeTime(&rec), time_t{-1}) << date;
        EXPECT_EQ(DateIn(rec), date);
    }
}

TEST(EncodeTime, TheWeekdayWrapsWithTheDayCount) {
    // 5881580-07-11 is day 2147483647; with the 4 of the first Thursday the sum wraps, and
    // remainders keep their sign.
    const int kWeekdays[] = {1, -2, -1, 0, -6, -5};  // from 7 July on
    for (int i = 0; i < 6; ++i) {
        struct tm rec = RecordOf({5881580, 7, 7 + i});
        EXPECT_EQ(EncodeTime(&rec), time_t{-1});
        EXPECT_EQ(rec.tm_wday, kWeekdays[i]) << i;
        EXPECT_EQ(rec.tm_yday, 188 + i);
    }
}

TEST(EncodeTime, IgnoresTheZoneOfTheSystem) {
    const ScopedTimeZone zone(kCentralEurope);
    struct tm rec = RecordOf({2024, 7, 1}, {8, 0, 0});
    EXPECT_EQ(EncodeTime(&rec), 1719820800);
    struct tm decoded;
    DecodeTime(&decoded, 1719820800);
    EXPECT_EQ(decoded.tm_hour, 10);
}

TEST(EncodeTime, DoesNotLog) {
    CapturedLog log;
    for (const int year : {1960, 2024, 2050}) {
        struct tm rec = RecordOf({year, 1, 1});
        EncodeTime(&rec);
    }
    EXPECT_EQ(log.TakeText(), "");
}
