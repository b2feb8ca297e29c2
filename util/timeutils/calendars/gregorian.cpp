// The Gregorian calendar: 400-year cycles of 97 leap years.

#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils/calendars/day_number.h"

const int _ytab[2][12] = {
    {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
    {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
};
static_assert(sizeof _ytab == 2 * 12 * sizeof(int32_t));

namespace {

constexpr double kEpoch = 1721425.5;  // day number of 0001-01-01
constexpr int kYearDays = 365;        // a common year
constexpr int k4YearDays = 4 * kYearDays + 1;
constexpr int k100YearDays = 25 * k4YearDays - 1;
constexpr int k400YearDays = 4 * k100YearDays + 1;
static_assert(k400YearDays == 400 * kYearDays + 97);

// (367 x month - 362) / 12 is the day on which a month begins, were February to have 30 days.
constexpr int kMonthFactor = 367;
constexpr int kMonthOffset = 362;
constexpr int kMonthRounding = kMonthFactor + 6;  // for the way back
constexpr int kMarch = 3;

// The days that the months before miss of that count: none up to February.
int MissingDays(int year, int month) {
    if (month < kMarch) {
        return 0;
    }
    return IsGregorianLeap(year) ? 1 : 2;
}

}  // namespace

int IsLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 1 : 0;
}

int IsGregorianLeap(int year) {
    return IsLeapYear(year);
}

int GetMaxDaysOfGregoMonth(int year, int month) {
    if (month < 1 || month > kMonthsPerYear) {
        return -1;
    }
    return _ytab[IsLeapYear(year)][month - 1];
}

double GregorianToJd(int year, int month, int day) {
    const int before = WrapToInt32(int64_t{year} - 1);  // the full years that have passed
    const int month_start =
        WrapToInt32(int64_t{kMonthFactor} * month - kMonthOffset) / kMonthsPerYear;
    const int day_of_year = WrapToInt32(int64_t{month_start} + day - MissingDays(year, month));
    return kEpoch - 1 + WrapToInt32(int64_t{kYearDays} * before) + before / 4 - before / 100 +
           before / 400 + day_of_year;
}

int JdToGregorian(double jd, int* year, int* month, int* day) {
    const double midnight = floor(jd - 0.5) + 0.5;
    const double days = midnight - kEpoch;
    const double cycle = floor(days / k400YearDays);
    const double day_of_cycle = CalMod(days, k400YearDays);
    const double century = floor(day_of_cycle / k100YearDays);
    const double day_of_century = CalMod(day_of_cycle, k100YearDays);
    const double quad = floor(day_of_century / k4YearDays);
    const double day_of_quad = CalMod(day_of_century, k4YearDays);
    const double year_of_quad = floor(day_of_quad / kYearDays);
    *year = SaturateToInt(cycle * 400 + century * 100 + quad * 4 + year_of_quad);
    // The last day of a leap year that ends a cycle or a quad belongs to that year.
    if (century != 4 && year_of_quad != 4) {
        *year = WrapToInt32(int64_t{*year} + 1);
    }
    const double day_of_year = midnight - GregorianToJd(*year, 1, 1);
    const bool is_before_march = midnight < GregorianToJd(*year, kMarch, 1);
    const int missing = is_before_march ? 0 : MissingDays(*year, kMarch);
    *month = SaturateToInt(
        floor(((day_of_year + missing) * kMonthsPerYear + kMonthRounding) / kMonthFactor));
    *day = SaturateToInt((midnight - GregorianToJd(*year, *month, 1)) + 1);
    return 1;
}
