// The Gregorian calendar: 400-year cycles of 97 leap years.

#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils/calendars/day_number.h"
#include "util/timeutils/gregorian_year.h"

const int _ytab[2][12] = {
    {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
    {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
};
static_assert(sizeof _ytab == 2 * 12 * sizeof(int32_t));

namespace {

constexpr int kEpoch = 1721425;  // the day of 0001-01-01

int64_t DayBeforeYear(int year) {
    const int before = WrapToInt32(int64_t{year} - 1);  // the full years that have passed
    return int64_t{kEpoch} - 1 + WrapToInt32(int64_t{kYearDays} * before) + before / 4 -
           before / 100 + before / 400;
}

}  // namespace

int IsLeapYear(int year) {
    return IsLeap(year) ? 1 : 0;
}

int GetMaxDaysOfGregoMonth(int year, int month) {
    if (month < 1 || month > kMonthsPerYear) {
        return -1;
    }
    return _ytab[IsLeap(year)][month - 1];
}

int64_t GregorianDay(const CalendarDate& date) {
    return DayBeforeYear(date.year) + DayOfYear(date.year, date.month, date.day);
}

CalendarDate GregorianDate(int64_t day) {
    const Division cycle = DivideDown<k400YearDays>(day - kEpoch);
    const YearsOfCycle passed = YearsUpTo(cycle.remainder);
    int year = SaturateToInt(cycle.quotient * 400 + passed.years);
    if (!passed.is_last_day) {
        year = WrapToInt32(int64_t{year} + 1);
    }
    const int64_t day_of_year = day - DayBeforeYear(year);  // wild where the year wrapped
    const int month = SaturateToInt(MonthOf(year, day_of_year));
    return {year, month, SaturateToInt(day_of_year - DayOfYear(year, month, 1) + 1)};
}
