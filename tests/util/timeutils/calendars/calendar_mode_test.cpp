// Questions and record conversions by calendar mode.

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <type_traits>

#include "tests/support/log_lines.h"
#include "tests/util/timeutils/calendars/converted_date.h"
#include "tests/util/timeutils/calendars/naive_calendars.h"
#include "tests/util/timeutils/calendars/naive_walk.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"
#include "util/timeutils/calendars/day_number.h"

static_assert(CALENDAR_GREGORIAN == 0 && CALENDAR_PERSIAN == 1 && CALENDAR_ISLAMIC == 2);
static_assert(std::is_same_v<decltype(&IsLeapYearByCalendar), int (*)(int, int)>);
static_assert(std::is_same_v<decltype(&GetMaxDaysOfMonth), int (*)(int, int, int)>);
static_assert(std::is_same_v<decltype(&LocalTmToChrisTm), TTime* (*)(int, TTime*)>);
static_assert(std::is_same_v<decltype(&ChrisTmToLocalTm), TTime* (*)(int, TTime*)>);

namespace {

constexpr int kOtherModes[] = {INT_MIN, -1, 3, 7, 256, 257, INT_MAX};

#ifdef __arm__
constexpr int kYearStep = 23;  // the formulas take long in soft-float code
#else
constexpr int kYearStep = 1;
#endif
constexpr int kLastYear = 10'000;

// A calendar by its published formula and by its leap rule, from a year on for which they agree.
struct Calendar {
    int mode;
    int first_year;
    double (*naive_jd)(const Date& date);
    naive::MonthDays month_days;
};

constexpr Calendar kCalendars[] = {
    {CALENDAR_GREGORIAN, 1, naive::GregorianToJd, naive::GregorianMonthDays},
    {CALENDAR_PERSIAN, 475, naive::PersianToJd, naive::PersianMonthDays},
    {CALENDAR_ISLAMIC, 1, naive::IslamicToJd, naive::IslamicMonthDays},
};

using Converter = TTime* (*)(int, TTime*);

Date Converted(Converter convert, int mode, const Date& date) {
    struct tm rec = MarkedRecord(date);
    EXPECT_EQ(convert(mode, &rec), &rec);
    const Date result = DateIn(rec);
    EXPECT_TRUE(SameBytes(rec, MarkedRecord(result)));
    return result;
}

}  // namespace

TEST(IsLeapYearByCalendar, KnowsPersianYears) {
    const std::set<int> kLeapYears = {1391, 1395, 1399, 1404, 1408, 1412, 1416};
    for (int year = 1390; year <= 1419; ++year) {
        EXPECT_EQ(IsLeapYearByCalendar(1, year), kLeapYears.contains(year) ? 1 : 0) << year;
    }
}

TEST(IsLeapYearByCalendar, KnowsIslamicYears) {
    const std::set<int> kLeapYears = {1442, 1445, 1447, 1450, 1453, 1456, 1458};
    for (int year = 1441; year <= 1458; ++year) {
        EXPECT_EQ(IsLeapYearByCalendar(2, year), kLeapYears.contains(year) ? 1 : 0) << year;
    }
}

TEST(IsLeapYearByCalendar, NegativeRemaindersOfIslamicYearsCountAsLeap) {
    // 11 x year + 14 is negative from -2 down.
    EXPECT_EQ(IsLeapYearByCalendar(2, 0), 0);
    EXPECT_EQ(IsLeapYearByCalendar(2, -1), 1);
    for (int year = -2; year >= -100; --year) {
        ASSERT_EQ(IsLeapYearByCalendar(2, year), 1) << year;
    }
}

TEST(IsLeapYearByCalendar, WrapsIslamicYears) {
    // 11 x 195225787 + 14 is 2147483671, which wraps to -2147483625.
    EXPECT_EQ(IsLeapYearByCalendar(2, 195225787), 1);
    EXPECT_EQ(IsLeapYearByCalendar(2, 195225784), (11 * 195225784 + 14) % 30 < 11 ? 1 : 0);
    EXPECT_EQ(IsLeapYearByCalendar(2, INT_MAX), 1);  // 3 is left
    EXPECT_EQ(IsLeapYearByCalendar(2, INT_MIN), 1);
}

TEST(IsLeapYearByCalendar, AnswersNoForGregorianYearsAndOtherModes) {
    for (const int year : {2000, 2023, 2024, 1404, 1445}) {
        EXPECT_EQ(IsLeapYearByCalendar(0, year), 0) << year;
        for (const int mode : kOtherModes) {
            EXPECT_EQ(IsLeapYearByCalendar(mode, year), 0) << mode;
        }
    }
}

TEST(GetMaxDaysOfMonth, AsksTheCalendarOfTheMode) {
    for (const int year : {1403, 1404, 1445, 1446, 1900, 2023, 2024}) {
        for (int month = -1; month <= 14; ++month) {
            EXPECT_EQ(GetMaxDaysOfMonth(0, year, month), GetMaxDaysOfGregoMonth(year, month));
            EXPECT_EQ(GetMaxDaysOfMonth(1, year, month), GetPersianMonthDay(year, month));
            EXPECT_EQ(GetMaxDaysOfMonth(2, year, month), GetIslamicMonthDay(year, month));
        }
    }
    EXPECT_EQ(GetMaxDaysOfMonth(0, 2024, 2), 29);
    EXPECT_EQ(GetMaxDaysOfMonth(0, 2024, 13), -1);
    EXPECT_EQ(GetMaxDaysOfMonth(1, 1403, 12), 29);
    EXPECT_EQ(GetMaxDaysOfMonth(1, 1403, 13), 0);
    EXPECT_EQ(GetMaxDaysOfMonth(2, 1445, 12), 30);
}

TEST(GetMaxDaysOfMonth, IsTheDistanceOfTheFirstDaysByTheFormulas) {
    for (const auto& [mode, first_year, naive_jd, month_days] : kCalendars) {
        for (int year = first_year; year <= kLastYear; year += kYearStep) {
            for (int month = 1; month <= 12; ++month) {
                const Date next = month < 12 ? Date{year, month + 1, 1} : Date{year + 1, 1, 1};
                const double days = naive_jd(next) - naive_jd({year, month, 1});
                ASSERT_EQ(GetMaxDaysOfMonth(mode, year, month), days) << year << '-' << month;
                ASSERT_EQ(month_days(year, month), days) << year << '-' << month;
            }
        }
    }
}

TEST(IsLeapYearByCalendar, IsTheLengthOfTheYearByTheFormulas) {
    for (int year = 1; year <= kLastYear; year += kYearStep) {
        const double islamic =
            naive::IslamicToJd({year + 1, 1, 1}) - naive::IslamicToJd({year, 1, 1});
        ASSERT_EQ(IsLeapYearByCalendar(2, year), islamic == 355 ? 1 : 0) << year;
        const int later = year + 474;
        const double persian =
            naive::PersianToJd({later + 1, 1, 1}) - naive::PersianToJd({later, 1, 1});
        ASSERT_EQ(IsLeapYearByCalendar(1, later), persian == 366 ? 1 : 0) << later;
    }
}

TEST(LocalTmToChrisTm, MovesEveryNewYearToTheDayOfTheFormulas) {
    for (int year = -kLastYear; year <= kLastYear; year += kYearStep) {
        const Date new_year = {year, 1, 1};
        ASSERT_EQ(Converted(LocalTmToChrisTm, CALENDAR_PERSIAN, new_year),
                  naive::JdToGregorian(naive::PersianToJd(new_year)));
        ASSERT_EQ(Converted(LocalTmToChrisTm, CALENDAR_ISLAMIC, new_year),
                  naive::JdToGregorian(naive::IslamicToJd(new_year)));
    }
}

TEST(GetMaxDaysOfMonth, GivesTheYearForOtherModes) {
    EXPECT_EQ(GetMaxDaysOfMonth(7, 2024, 2), 2024);
    for (const int mode : kOtherModes) {
        for (const int year : {INT_MIN, -1, 0, 2024, INT_MAX}) {
            EXPECT_EQ(GetMaxDaysOfMonth(mode, year, 2), year) << mode;
        }
    }
}

TEST(ChrisTmToLocalTm, ConvertsToTheCalendarOfTheMode) {
    EXPECT_EQ(Converted(ChrisTmToLocalTm, 0, {2024, 3, 20}), (Date{2024, 3, 20}));
    EXPECT_EQ(Converted(ChrisTmToLocalTm, 1, {2024, 3, 20}), (Date{1403, 1, 1}));
    EXPECT_EQ(Converted(ChrisTmToLocalTm, 2, {2024, 3, 20}), (Date{1445, 9, 10}));
}

TEST(LocalTmToChrisTm, ConvertsFromTheCalendarOfTheMode) {
    EXPECT_EQ(Converted(LocalTmToChrisTm, 0, {1403, 1, 1}), (Date{1403, 1, 1}));
    EXPECT_EQ(Converted(LocalTmToChrisTm, 1, {1403, 1, 1}), (Date{2024, 3, 20}));
    EXPECT_EQ(Converted(LocalTmToChrisTm, 2, {1445, 9, 1}), (Date{2024, 3, 11}));
}

TEST(LocalTmToChrisTm, OtherModesChangeNothing) {
    for (const int mode : kOtherModes) {
        EXPECT_EQ(Converted(LocalTmToChrisTm, mode, {1403, 1, 1}), (Date{1403, 1, 1})) << mode;
        EXPECT_EQ(Converted(ChrisTmToLocalTm, mode, {2024, 3, 20}), (Date{2024, 3, 20})) << mode;
    }
}

TEST(LocalTmToChrisTm, TakesNoRecord) {
    for (int mode = -1; mode <= 3; ++mode) {
        EXPECT_EQ(LocalTmToChrisTm(mode, nullptr), nullptr) << mode;
        EXPECT_EQ(ChrisTmToLocalTm(mode, nullptr), nullptr) << mode;
    }
}

TEST(LocalTmToChrisTm, DoesNotLogNorDoTheOthers) {
    CapturedLog log;
    LocalTmToChrisTm(1, nullptr);
    ChrisTmToLocalTm(9, nullptr);
    IsLeapYearByCalendar(9, 2024);
    GetMaxDaysOfMonth(9, 2024, 2);
    GetMaxDaysOfMonth(0, 2024, 13);
    GetPersianMonthDay(1403, 13);
    GetIslamicMonthDay(1445, 13);
    EXPECT_EQ(log.TakeText(), "");
}
