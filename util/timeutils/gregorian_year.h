// The Gregorian calendar within its cycle of 400 years: leap years, years and months.
#ifndef UTIL_TIMEUTILS_GREGORIAN_YEAR_H
#define UTIL_TIMEUTILS_GREGORIAN_YEAR_H

#include "util/integers.h"
#include "util/time_units.h"

constexpr int kYearDays = 365;  // a common year
constexpr int k4YearDays = 4 * kYearDays + 1;
constexpr int k100YearDays = 25 * k4YearDays - 1;
constexpr int k400YearDays = 4 * k100YearDays + 1;
static_assert(k400YearDays == 400 * kYearDays + 97);

constexpr int kMarch = 3;

constexpr bool IsLeap(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// The years of a cycle up to one of its days, from 0.
struct YearsOfCycle {
    int years;
    bool is_last_day;  // of a leap year that ends a cycle or four years: years counts that one too
};

constexpr YearsOfCycle YearsUpTo(int day_of_cycle) {
    const int century = day_of_cycle / k100YearDays;
    const int day_of_century = day_of_cycle % k100YearDays;
    const int quad = day_of_century / k4YearDays;
    const int year_of_quad = day_of_century % k4YearDays / kYearDays;
    return {century * 100 + quad * 4 + year_of_quad, century == 4 || year_of_quad == 4};
}

// What the year is short of one in which February has 30 days, seen from a month, from 1.
constexpr int MissingDays(int year, int month) {
    if (month < kMarch) {
        return 0;
    }
    return IsLeap(year) ? 1 : 2;
}

// Were February to have 30 days, a month would begin on day (367 x month - 362) / 12.
constexpr int kMonthFactor = 367;
constexpr int kMonthOffset = 362;

// The day of the year, from 1. Months and days may have any value; sums wrap.
constexpr int DayOfYear(int year, int month, int day) {
    const int month_start =
        WrapToInt32(int64_t{kMonthFactor} * month - kMonthOffset) / kMonthsPerYear;
    return WrapToInt32(int64_t{month_start} + day - MissingDays(year, month));
}

// The month of a day of the year, both from 1. The day may have any value.
constexpr int64_t MonthOf(int year, int64_t day_of_year) {
    const bool is_before_march = day_of_year < DayOfYear(year, kMarch, 1);
    const int missing = is_before_march ? 0 : MissingDays(year, kMarch);
    constexpr int kRounding = kMonthFactor + 6;
    return DivideDown<kMonthFactor>((day_of_year - 1 + missing) * kMonthsPerYear + kRounding)
        .quotient;
}

#endif
