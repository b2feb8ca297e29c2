// Every year from 1 to 3000 of the Persian and the Islamic calendar: leap rule, lengths, round
// trip.

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"
#include "util/timeutils/calendars/day_number.h"

namespace {

constexpr int kLastYear = 3000;

// The leap years of the rule before 474 whose last day the day numbers give to the next year.
// The published arithmetic has them; from 474 on rule and day numbers agree.
constexpr int kEarlyLeapYears[] = {24,  57,  90,  119, 152, 185, 218,
                                   247, 280, 313, 346, 375, 408, 441};

bool IsEarly(int year) {
    return std::find(std::begin(kEarlyLeapYears), std::end(kEarlyLeapYears), year) !=
           std::end(kEarlyLeapYears);
}

int PersianYearDays(int year) {
    return static_cast<int>(PersianToJd(year + 1, 1, 1) - PersianToJd(year, 1, 1));
}

int IslamicYearDays(int year) {
    return static_cast<int>(IslamicToJd(year + 1, 1, 1) - IslamicToJd(year, 1, 1));
}

// Through the Gregorian calendar and back.
Date ThroughGregorian(int mode, const Date& date) {
    struct tm rec = MarkedRecord(date);
    LocalTmToChrisTm(mode, &rec);
    ChrisTmToLocalTm(mode, &rec);
    return DateIn(rec);
}

void ExpectMonthsRoundTrip(int mode, int year, int last_month) {
    for (int month = 1; month <= last_month; ++month) {
        const Date first = {year, month, 1};
        const Date last = {year, month, GetMaxDaysOfMonth(mode, year, month)};
        ASSERT_EQ(ThroughGregorian(mode, first), first);
        ASSERT_EQ(ThroughGregorian(mode, last), last);
    }
}

}  // namespace

TEST(PersianYears, LeapRuleAndDayNumbersAgreeButForEarlyYears) {
    for (int year = 1; year <= kLastYear; ++year) {
        int expected = IsPersianLeap(year) ? 366 : 365;
        if (IsEarly(year)) {
            ASSERT_EQ(IsPersianLeap(year), 1) << year;
            expected = 365;
        } else if (IsEarly(year - 1)) {
            ASSERT_EQ(IsPersianLeap(year), 0) << year;
            expected = 366;
        }
        ASSERT_EQ(PersianYearDays(year), expected) << year;
    }
}

TEST(PersianYears, MonthLengthsAddUpToTheYearOfTheRule) {
    for (int year = 1; year <= kLastYear; ++year) {
        int days = 0;
        for (int month = 1; month <= 12; ++month) {
            days += GetPersianMonthDay(year, month);
        }
        ASSERT_EQ(days, IsPersianLeap(year) ? 366 : 365) << year;
    }
}

TEST(PersianYears, FirstAndLastDayOfEachMonthRoundTrip) {
    for (int year = 1; year <= kLastYear && !HasFatalFailure(); ++year) {
        ExpectMonthsRoundTrip(CALENDAR_PERSIAN, year, IsEarly(year) ? 11 : 12);
    }
}

TEST(PersianYears, EarlyLeapDaysFallOnTheNextNewYear) {
    for (const int year : kEarlyLeapYears) {
        EXPECT_EQ(ThroughGregorian(1, {year, 12, 29}), (Date{year, 12, 29}));
        EXPECT_EQ(ThroughGregorian(1, {year, 12, 30}), (Date{year + 1, 1, 1}));
        // The day is found at the end of the next year, which is none by the rule.
        EXPECT_EQ(ThroughGregorian(1, {year + 1, 12, 30}), (Date{year + 1, 12, 30}));
    }
}

TEST(PersianYears, TheDayAfterTheLastIsTheNextNewYear) {
    for (int year = 474; year <= kLastYear; ++year) {
        const int last_day = GetPersianMonthDay(year, 12);
        ASSERT_EQ(ThroughGregorian(1, {year, 12, last_day + 1}), (Date{year + 1, 1, 1}));
    }
}

TEST(IslamicYears, LeapRuleAndDayNumbersAgree) {
    for (int year = 1; year <= kLastYear; ++year) {
        ASSERT_EQ(IslamicYearDays(year), IsLeapYearByCalendar(2, year) ? 355 : 354) << year;
    }
}

TEST(IslamicYears, MonthsHave30And29DaysInTurn) {
    for (int year = 1; year <= kLastYear; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const bool is_leap_month = month == 12 && IsLeapYearByCalendar(2, year);
            ASSERT_EQ(GetIslamicMonthDay(year, month), month % 2 == 1 || is_leap_month ? 30 : 29)
                << year << '-' << month;
        }
    }
}

TEST(IslamicYears, FirstAndLastDayOfEachMonthRoundTrip) {
    for (int year = 1; year <= kLastYear && !HasFatalFailure(); ++year) {
        ExpectMonthsRoundTrip(CALENDAR_ISLAMIC, year, 12);
    }
}
