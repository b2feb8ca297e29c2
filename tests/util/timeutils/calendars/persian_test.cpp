// The Persian calendar: leap years, month lengths, day numbers and records.

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <type_traits>
#include <vector>

#include "tests/util/timeutils/calendars/converted_date.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils/calendars/day_number.h"

static_assert(std::is_same_v<decltype(&GetPersianMonthDay), int (*)(int, int)>);

namespace {

Date FromGregorian(const Date& gregorian) {
    return Converted(ChrisTmToPersianTm, gregorian);
}

Date ToGregorian(const Date& persian) {
    return Converted(PersianTmToChrisTm, persian);
}

struct Pair {
    Date gregorian;
    Date persian;
};

constexpr Pair kPairs[] = {
    {{2024, 3, 19}, {1402, 12, 29}}, {{2024, 3, 20}, {1403, 1, 1}},
    {{2024, 9, 21}, {1403, 6, 31}},  {{2024, 9, 22}, {1403, 7, 1}},
    {{2025, 3, 19}, {1403, 12, 29}}, {{2025, 3, 20}, {1404, 1, 1}},
    {{2026, 3, 20}, {1404, 12, 30}}, {{2026, 3, 21}, {1405, 1, 1}},
    {{2000, 1, 1}, {1378, 10, 11}},  {{1970, 1, 1}, {1348, 10, 11}},
    {{622, 3, 22}, {1, 1, 1}},       {{622, 3, 21}, {-1, 12, 30}},
    {{1096, 3, 21}, {475, 1, 1}},
};

}  // namespace

TEST(IsPersianLeap, FollowsThe2820YearRule) {
    const std::set<int> kLeapYears = {1391, 1395, 1399, 1404, 1408, 1412, 1416};
    for (int year = 1390; year <= 1419; ++year) {
        EXPECT_EQ(IsPersianLeap(year), kLeapYears.contains(year) ? 1 : 0) << year;
    }
}

TEST(IsPersianLeap, Has683LeapYearsInACycle) {
    for (const int start : {475, 1404, 3000}) {
        int leap_years = 0;
        for (int year = start; year < start + 2820; ++year) {
            leap_years += IsPersianLeap(year);
        }
        EXPECT_EQ(leap_years, 683) << start;
    }
}

TEST(IsPersianLeap, CountsYearZeroAmongThoseBefore) {
    // Up to year 0 the rule is that of the year one later.
    for (int year = -5000; year <= 0; ++year) {
        const int phase = ((year - 473) % 2820 * 682 + 349184) % 2816;
        ASSERT_EQ(IsPersianLeap(year), phase < 682 ? 1 : 0) << year;
    }
    EXPECT_EQ(IsPersianLeap(-1), 1);
    EXPECT_EQ(IsPersianLeap(0), 0);
    EXPECT_EQ(IsPersianLeap(1), 0);
    EXPECT_EQ(IsPersianLeap(4), 1);
    EXPECT_EQ(IsPersianLeap(-5), 1);
}

TEST(IsPersianLeap, ANegativePhaseCountsAsLeap) {
    // Remainders keep their signs, and all that is negative is below the threshold.
    for (int year = -2346; year <= -40; ++year) {
        ASSERT_EQ(IsPersianLeap(year), 1) << year;
    }
    EXPECT_EQ(IsPersianLeap(-38), 0);
}

TEST(IsPersianLeap, WrapsAtTheLowestYears) {
    EXPECT_EQ(IsPersianLeap(INT_MIN), ((INT_MAX - 472) % 2820 * 682 + 349184) % 2816 < 682);
    EXPECT_EQ(IsPersianLeap(INT_MAX), ((INT_MAX - 474) % 2820 * 682 + 349184) % 2816 < 682);
}

TEST(GetPersianMonthDay, KnowsEveryMonth) {
    const int kDays[] = {0, 31, 31, 31, 31, 31, 31, 30, 30, 30, 30, 30, 29, 0};
    for (int month = 0; month <= 13; ++month) {
        EXPECT_EQ(GetPersianMonthDay(1403, month), kDays[month]) << month;
        EXPECT_EQ(GetPersianMonthDay(1404, month), month == 12 ? 30 : kDays[month]) << month;
    }
}

TEST(GetPersianMonthDay, RefusesOtherMonths) {
    for (const int month : {INT_MIN, -1, 0, 13, INT_MAX}) {
        EXPECT_EQ(GetPersianMonthDay(1404, month), 0) << month;
    }
}

TEST(PersianToJd, NumbersDaysAtMidnight) {
    EXPECT_EQ(PersianToJd(1, 1, 1), 1948320.5);
    EXPECT_EQ(PersianToJd(475, 1, 1), 2121445.5);
    EXPECT_EQ(PersianToJd(1403, 1, 1), GregorianToJd(2024, 3, 20));
    EXPECT_EQ(PersianToJd(1403, 7, 1), PersianToJd(1403, 1, 1) + 186);
    EXPECT_EQ(PersianToJd(1403, 8, 1), PersianToJd(1403, 1, 1) + 216);
    EXPECT_EQ(PersianToJd(1403, 12, 1), PersianToJd(1403, 1, 1) + 336);
}

TEST(PersianToJd, RepeatsAfterACycle) {
    for (int year = 1; year <= 2820; ++year) {
        ASSERT_EQ(PersianToJd(year + 2820, 5, 6), PersianToJd(year, 5, 6) + 1029983) << year;
    }
}

TEST(PersianToJd, CountsYearZeroFromTheEpoch) {
    // Unlike the leap rule: year 0 is the year before 1, and -1 is the same year again.
    EXPECT_EQ(PersianToJd(0, 1, 1), 1947954.5);
    EXPECT_EQ(PersianToJd(-1, 1, 1), 1947954.5);
    EXPECT_EQ(PersianToJd(-2, 1, 1), 1947589.5);
}

TEST(PersianToJd, DoesNotWrapItsYears) {
    // The base is a double: of the lowest year too.
    const double base = -2147483648.0 - 473;
    const double cycle = floor(base / 2820);
    const double year = base - 2820 * cycle + 474;
    EXPECT_EQ(PersianToJd(INT_MIN, 1, 1), 1 + floor((year * 682 - 110) / 2816) + (year - 1) * 365 +
                                              cycle * 1029983 + 1948319.5);
}

TEST(PersianToJd, WrapsMonthsAndDays) {
    EXPECT_EQ(PersianToJd(1403, INT_MAX, 1), PersianToJd(1403, 1, 1) - 54);
    EXPECT_EQ(PersianToJd(1403, 2, INT_MAX), PersianToJd(1403, 1, 1) + (INT_MIN + 30) - 1);
    EXPECT_EQ(PersianToJd(1403, INT_MIN, 1), PersianToJd(1403, 1, 1) + (INT_MAX - 30));
}

TEST(ChrisTmToPersianTm, ConvertsGregorianDates) {
    for (const auto& [gregorian, persian] : kPairs) {
        EXPECT_EQ(FromGregorian(gregorian), persian) << gregorian;
    }
}

TEST(PersianTmToChrisTm, ConvertsPersianDates) {
    for (const auto& [gregorian, persian] : kPairs) {
        EXPECT_EQ(ToGregorian(persian), gregorian) << persian;
    }
}

TEST(ChrisTmToPersianTm, DiffersFromPrintedCalendarsIn1404) {
    EXPECT_EQ(FromGregorian({2025, 3, 21}), (Date{1404, 1, 2}));
}

TEST(PersianTmToChrisTm, CountsImpossibleDatesOn) {
    EXPECT_EQ(ToGregorian({1403, 12, 30}), ToGregorian({1404, 1, 1}));
    EXPECT_EQ(ToGregorian({1403, 7, 31}), ToGregorian({1403, 8, 1}));
    EXPECT_EQ(ToGregorian({1403, 1, 0}), ToGregorian({1402, 12, 29}));
    // Month 13 would begin on the day 31 of month 12.
    EXPECT_EQ(ToGregorian({1403, 13, 1}), ToGregorian({1404, 1, 2}));
    EXPECT_EQ(ToGregorian({1403, 0, 1}), ToGregorian({1403, 1, -30}));
}

TEST(ChrisTmToPersianTm, NumbersTheLastDayOfACycle) {
    // 1029982 days after the start of 475: the 2820th year of the cycle, a leap year.
    const Date last = ToGregorian({3294, 12, 30});
    EXPECT_EQ(FromGregorian(last), (Date{3294, 12, 30}));
    EXPECT_EQ(FromGregorian({last.year, last.month, last.day + 1}), (Date{3295, 1, 1}));
    EXPECT_EQ(FromGregorian({last.year, last.month, last.day - 1}), (Date{3294, 12, 29}));
}

TEST(ChrisTmToPersianTm, KnowsNoYearZero) {
    EXPECT_EQ(FromGregorian({622, 3, 21}).year, -1);
    EXPECT_EQ(FromGregorian({622, 3, 22}).year, 1);
    EXPECT_EQ(FromGregorian({621, 3, 21}), (Date{-1, 1, 1}));
    EXPECT_EQ(FromGregorian({621, 3, 20}).year, -2);
}

TEST(ChrisTmToPersianTm, ChangesTheDateOnly) {
    struct tm rec = MarkedRecord({2024, 3, 20});
    ChrisTmToPersianTm(&rec);
    EXPECT_TRUE(SameBytes(rec, MarkedRecord({1403, 1, 1})));
    PersianTmToChrisTm(&rec);
    EXPECT_TRUE(SameBytes(rec, MarkedRecord({2024, 3, 20})));
}
