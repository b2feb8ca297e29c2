// The Islamic calendar: month lengths, day numbers and records.

#include <gtest/gtest.h>

#include <climits>
#include <type_traits>

#include "tests/util/timeutils/calendars/converted_date.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils/calendars/day_number.h"

static_assert(std::is_same_v<decltype(&GetIslamicMonthDay), int (*)(int, int)>);

namespace {

Date FromGregorian(const Date& gregorian) {
    return Converted(ChrisTmToIslamicTm, gregorian);
}

Date ToGregorian(const Date& islamic) {
    return Converted(IslamicTmToChrisTm, islamic);
}

Date ToDate(double jd) {
    Date date;
    EXPECT_EQ(JdToIslamic(jd, &date.year, &date.month, &date.day), 1);
    return date;
}

struct Pair {
    Date gregorian;
    Date islamic;
};

constexpr Pair kPairs[] = {
    {{2024, 3, 20}, {1445, 9, 10}}, {{2024, 3, 11}, {1445, 9, 1}},  {{2024, 3, 10}, {1445, 8, 29}},
    {{2024, 7, 8}, {1446, 1, 1}},   {{2024, 7, 7}, {1445, 12, 30}}, {{2000, 1, 1}, {1420, 9, 24}},
    {{1970, 1, 1}, {1389, 10, 22}}, {{622, 7, 19}, {1, 1, 1}},
};

}  // namespace

TEST(GetIslamicMonthDay, AlternatesThirtyAndTwentyNine) {
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(GetIslamicMonthDay(1446, month), month % 2 == 1 ? 30 : 29) << month;
    }
}

TEST(GetIslamicMonthDay, LastMonthIsLongInALeapYear) {
    for (int month = 1; month <= 11; ++month) {
        EXPECT_EQ(GetIslamicMonthDay(1445, month), month % 2 == 1 ? 30 : 29) << month;
    }
    EXPECT_EQ(GetIslamicMonthDay(1445, 12), 30);
}

TEST(GetIslamicMonthDay, DoesNotCheckTheMonth) {
    // The day that month 0 or 13 would end on lies in a month of another number.
    for (const int month : {INT_MIN, -1, 0, 13, 14, 1000, INT_MAX}) {
        EXPECT_EQ(GetIslamicMonthDay(1445, month), 29) << month;
    }
}

TEST(IslamicToJd, NumbersDaysAtMidnight) {
    EXPECT_EQ(IslamicToJd(1, 1, 1), 1948439.5);
    EXPECT_EQ(IslamicToJd(1, 2, 1), 1948469.5);
    EXPECT_EQ(IslamicToJd(1, 3, 1), 1948498.5);
    EXPECT_EQ(IslamicToJd(2, 1, 1), 1948793.5);
    EXPECT_EQ(IslamicToJd(3, 1, 1), 1949148.5);
    EXPECT_EQ(IslamicToJd(31, 1, 1), 1948439.5 + 10631);
}

TEST(IslamicToJd, TruncatesTowardZeroBeforeYearOne) {
    EXPECT_EQ(IslamicToJd(0, 1, 1), 1948439.5 - 354);
    EXPECT_EQ(IslamicToJd(-1, 1, 1), 1948439.5 - 2 * 354);
    EXPECT_EQ(IslamicToJd(-3, 1, 1), 1948439.5 - 4 * 354 - 1);
    EXPECT_EQ(IslamicToJd(-30, 1, 1), 1948439.5 - 31 * 354 - 10);
}

TEST(IslamicToJd, WrapsItsIntegerTerms) {
    // 354 x INT_MAX - 354 wraps to -708, and 11 x INT_MAX + 3 to INT_MAX - 7.
    EXPECT_EQ(IslamicToJd(INT_MAX, 1, 1), 1948439.5 - 708 + (INT_MAX - 7) / 30);
    EXPECT_EQ(IslamicToJd(INT_MIN, 1, 1), 1948439.5 - 354 + (INT_MIN + 3) / 30);
    EXPECT_EQ(IslamicToJd(1, INT_MIN, 1), 1948439.5 + ceil(INT_MAX * 29.5));
    EXPECT_EQ(IslamicToJd(1, 1, INT_MIN), 1948438.5 + INT_MIN);
}

TEST(JdToIslamic, UndoesTheDayNumberFor200Years) {
    for (int year = 1300; year < 1500; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const Date first = {year, month, 1};
            const Date last = {year, month, GetIslamicMonthDay(year, month)};
            ASSERT_EQ(ToDate(IslamicToJd(year, month, 1)), first);
            ASSERT_EQ(ToDate(IslamicToJd(year, month, last.day)), last);
        }
    }
}

TEST(JdToIslamic, PutsADayNumberOnItsMidnight) {
    // Half a day before .5 belongs to the same number of days.
    EXPECT_EQ(ToDate(1948439.0), (Date{1, 1, 1}));
    EXPECT_EQ(ToDate(1948439.5), (Date{1, 1, 1}));
    EXPECT_EQ(ToDate(1948439.9), (Date{1, 1, 1}));
    EXPECT_EQ(ToDate(1948440.0), (Date{1, 1, 2}));
}

TEST(JdToIslamic, HasNoMonthThirteen) {
    EXPECT_EQ(ToDate(IslamicToJd(1445, 12, 30)), (Date{1445, 12, 30}));
    EXPECT_EQ(ToDate(IslamicToJd(1445, 12, 31)), (Date{1446, 1, 1}));
}

TEST(ChrisTmToIslamicTm, ConvertsGregorianDates) {
    for (const auto& [gregorian, islamic] : kPairs) {
        EXPECT_EQ(FromGregorian(gregorian), islamic) << gregorian;
    }
}

TEST(IslamicTmToChrisTm, ConvertsIslamicDates) {
    for (const auto& [gregorian, islamic] : kPairs) {
        EXPECT_EQ(ToGregorian(islamic), gregorian) << islamic;
    }
}

TEST(IslamicTmToChrisTm, CountsImpossibleDatesOn) {
    EXPECT_EQ(ToGregorian({1446, 12, 30}), ToGregorian({1447, 1, 1}));
    EXPECT_EQ(ToGregorian({1446, 2, 30}), ToGregorian({1446, 3, 1}));
    EXPECT_EQ(ToGregorian({1446, 13, 1}), ToGregorian({1447, 1, 1}));
    EXPECT_EQ(ToGregorian({1446, 1, 0}), ToGregorian({1445, 12, 30}));
}

TEST(ChrisTmToIslamicTm, ChangesTheDateOnly) {
    struct tm rec = MarkedRecord({2024, 3, 20});
    ChrisTmToIslamicTm(&rec);
    EXPECT_TRUE(SameBytes(rec, MarkedRecord({1445, 9, 10})));
    IslamicTmToChrisTm(&rec);
    EXPECT_TRUE(SameBytes(rec, MarkedRecord({2024, 3, 20})));
}
