// The Gregorian calendar: leap years, month lengths, day numbers.

#include <gtest/gtest.h>

#include <climits>
#include <type_traits>

#include "tests/util/timeutils/any_int.h"
#include "tests/util/timeutils/calendars/naive_calendars.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils/calendars/day_number.h"

static_assert(std::is_same_v<decltype(&IsLeapYear), int (*)(int)>);
static_assert(std::is_same_v<decltype(&GetMaxDaysOfGregoMonth), int (*)(int, int)>);

namespace {

Date ToDate(double jd) {
    Date date;
    EXPECT_EQ(JdToGregorian(jd, &date.year, &date.month, &date.day), 1);
    return date;
}

double ToJd(const Date& date) {
    return GregorianToJd(date.year, date.month, date.day);
}

}  // namespace

TEST(IsLeapYear, FollowsThe400YearRule) {
    for (const int year : {2000, 2024, 1600, 1904, 4, 0, -4, -400}) {
        EXPECT_EQ(IsLeapYear(year), 1) << year;
    }
    for (const int year : {1900, 2023, 2100, 2001, 2002, 2003, 1, -1, -100, INT_MAX}) {
        EXPECT_EQ(IsLeapYear(year), 0) << year;
    }
    EXPECT_EQ(IsLeapYear(INT_MIN), 1);  // -2147483648 is divisible by 4, not by 100
}

TEST(IsLeapYear, Has97LeapYearsIn400AndAgreesWithTheInternalRule) {
    int leap_years = 0;
    for (int year = -2000; year < 4000; ++year) {
        leap_years += IsLeapYear(year);
        ASSERT_EQ(IsGregorianLeap(year), IsLeapYear(year)) << year;
        ASSERT_EQ(IsLeapYear(year), naive::IsGregorianLeap(year) ? 1 : 0) << year;
    }
    EXPECT_EQ(leap_years, 15 * 97);
}

TEST(GetMaxDaysOfGregoMonth, KnowsEveryMonth) {
    const int kDays[] = {-1, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31, -1};
    for (int month = 0; month <= 13; ++month) {
        EXPECT_EQ(GetMaxDaysOfGregoMonth(2023, month), kDays[month]) << month;
        EXPECT_EQ(GetMaxDaysOfGregoMonth(2024, month), month == 2 ? 29 : kDays[month]) << month;
    }
    EXPECT_EQ(GetMaxDaysOfGregoMonth(1900, 2), 28);
    EXPECT_EQ(GetMaxDaysOfGregoMonth(2000, 2), 29);
}

TEST(GetMaxDaysOfGregoMonth, RefusesOtherMonths) {
    for (const int month : {INT_MIN, -1, 0, 13, INT_MAX}) {
        EXPECT_EQ(GetMaxDaysOfGregoMonth(2024, month), -1) << month;
    }
}

TEST(CalMod, TakesTheSignOfTheDivisor) {
    EXPECT_EQ(CalMod(7, 3), 1);
    EXPECT_EQ(CalMod(-7, 3), 2);
    EXPECT_EQ(CalMod(7, -3), -2);
    EXPECT_EQ(CalMod(-7, -3), -1);
    EXPECT_EQ(CalMod(-6, 3), 0);
    EXPECT_EQ(CalMod(7.5, 2), 1.5);
    EXPECT_EQ(CalMod(-0.5, 365), 364.5);
}

TEST(GregorianToJd, NumbersDaysAtMidnight) {
    EXPECT_EQ(GregorianToJd(2000, 1, 1), 2451544.5);
    EXPECT_EQ(GregorianToJd(1, 1, 1), 1721425.5);
    EXPECT_EQ(GregorianToJd(1970, 1, 1), 2440587.5);
    EXPECT_EQ(GregorianToJd(1858, 11, 17), 2400000.5);
    EXPECT_EQ(GregorianToJd(2000, 2, 29), 2451603.5);
    EXPECT_EQ(GregorianToJd(2000, 3, 1), 2451604.5);
    EXPECT_EQ(GregorianToJd(2001, 3, 1), 2451969.5);
}

TEST(GregorianToJd, CountsImpossibleDatesOn) {
    EXPECT_EQ(GregorianToJd(2023, 2, 29), GregorianToJd(2023, 3, 1));
    EXPECT_EQ(GregorianToJd(2024, 4, 31), GregorianToJd(2024, 5, 1));
    EXPECT_EQ(GregorianToJd(2024, 1, 0), GregorianToJd(2023, 12, 31));
    EXPECT_EQ(GregorianToJd(2023, 13, 1), GregorianToJd(2024, 1, 1));
    EXPECT_EQ(GregorianToJd(2024, 1, 400), GregorianToJd(2024, 1, 1) + 399);
}

TEST(GregorianToJd, TruncatesTowardZeroBeforeYearOne) {
    // Toward zero, the leap days of negative years come a year late: day numbers of years up to 0
    // leave a gap that proleptic calendars do not have.
    EXPECT_EQ(GregorianToJd(0, 1, 1), 1721060.5);
    EXPECT_EQ(GregorianToJd(0, 12, 31), 1721425.5);  // year 0 has 366 days, counted as 365
    EXPECT_EQ(GregorianToJd(-3, 1, 1), 1721424.5 - 4 * 365 - 1 + 1);
    EXPECT_EQ(GregorianToJd(-4, 1, 1), 1721424.5 - 5 * 365 - 1 + 1);
}

TEST(JdToGregorian, UndoesTheDayNumber) {
    for (const Date& date :
         {Date{2000, 1, 1}, Date{2000, 12, 31}, Date{2001, 1, 1}, Date{1999, 12, 31},
          Date{2000, 2, 29}, Date{1900, 2, 28}, Date{1900, 3, 1}, Date{1, 1, 1}, Date{4, 12, 31},
          Date{100, 12, 31}, Date{400, 12, 31}, Date{9999, 12, 31}}) {
        EXPECT_EQ(ToDate(ToJd(date)), date);
    }
}

TEST(JdToGregorian, TakesEveryHourOfADay) {
    for (const double hour : {0.0, 0.25, 0.5, 0.999}) {
        EXPECT_EQ(ToDate(2451544.5 + hour), (Date{2000, 1, 1})) << hour;
    }
    EXPECT_EQ(ToDate(2451544.49), (Date{1999, 12, 31}));
}

TEST(JdToGregorian, UndoesTheDayNumberInAllYearsOf1To3000) {
    for (int year = 1; year <= 3000; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (const int day : {1, 28, GetMaxDaysOfGregoMonth(year, month)}) {
                const Date date = {year, month, day};
                ASSERT_EQ(ToDate(ToJd(date)), date);
            }
        }
    }
}

TEST(JdToGregorian, GivesDatesBeforeYearOneByTheSameSteps) {
    EXPECT_EQ(ToDate(1721424.5), (Date{0, 12, 30}));
    EXPECT_EQ(ToDate(1721423.5), (Date{0, 12, 29}));
    for (double jd = -200000.5; jd < 1721425.5; jd += 97) {
        ASSERT_EQ(ToDate(jd), naive::JdToGregorian(jd)) << jd;
    }
}

TEST(GregorianToJd, WrapsItsIntegerTerms) {
    EXPECT_EQ(GregorianToJd(INT_MIN, 1, 1),
              1721424.5 + 2147483283 + 536870911 - 21474836 + 5368709 + 1);
    EXPECT_EQ(GregorianToJd(2000, 1, INT_MAX), naive::GregorianToJd({2000, 1, INT_MAX}));
    EXPECT_EQ(GregorianToJd(2000, INT_MAX, 1), naive::GregorianToJd({2000, INT_MAX, 1}));
    EXPECT_EQ(GregorianToJd(2000, INT_MIN, INT_MIN),
              naive::GregorianToJd({2000, INT_MIN, INT_MIN}));
}
