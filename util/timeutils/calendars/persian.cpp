// The Persian solar calendar by the 2820-year rule: cycles of 2820 years with 683 leap years.

#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils/calendars/day_number.h"
#include "util/timeutils/records.h"

namespace {

constexpr int kEpoch = 1948320;  // the day of 0001-01-01
constexpr int kCycleYears = 2820;
constexpr int kCycleDays = 1029983;
constexpr int kYearDays = 365;    // a common year
constexpr int kCycleStart = 474;  // the cycle in use begins after this year
constexpr int kLeapYears = 682;   // leap years come at a rate of 682 in 2816 years
constexpr int kLeapPeriod = 2816;
constexpr int kLeapPeriodDays = kLeapPeriod * kYearDays + kLeapYears;
constexpr int kLeapPhase = 110;  // places the leap years in the cycle
static_assert(kCycleDays == kCycleYears * kYearDays + kLeapYears + 1);

constexpr int kLongMonths = 6;  // months 1 to 6 have 31 days, the others 30, the last 29 or 30
constexpr int kLongMonthDays = 31;
constexpr int kShortMonthDays = 30;
constexpr int kLongMonthsDays = kLongMonths * kLongMonthDays;

// The year of the cycle, from 1, for a day of the cycle, from 0.
int YearOfCycle(int day_of_cycle) {
    if (day_of_cycle == kCycleDays - 1) {
        return kCycleYears;
    }
    const int years = day_of_cycle / (kYearDays + 1);
    const int days = day_of_cycle % (kYearDays + 1);
    constexpr int kExcessDays = kLeapPeriod * (kYearDays + 1) - kLeapPeriodDays;
    return (kExcessDays * years + kLeapPeriod * days + (kLeapPeriod - 1)) / kLeapPeriodDays +
           years + 1;
}

// The days before a year of the cycle, with those of the years before the cycle.
constexpr int DaysBefore(int year_of_cycle) {
    const int year = year_of_cycle + kCycleStart;
    return (year * kLeapYears - kLeapPhase) / kLeapPeriod + (year - 1) * kYearDays;
}

// From 1.
int DayOfYear(int month, int day) {
    const int64_t month_start =
        month <= kLongMonths + 1
            ? int64_t{kLongMonthDays} * month - kLongMonthDays
            : int64_t{kShortMonthDays} * month - (kShortMonthDays - kLongMonths);
    return WrapToInt32(month_start + day);
}

}  // namespace

int IsPersianLeap(int year) {
    // Year 0 counts here among those before the epoch, unlike in PersianToJd, as in the
    // published algorithm.
    const int base = WrapToInt32(int64_t{year} - (year > 0 ? kCycleStart : kCycleStart - 1));
    const int leap_phase = base % kCycleYears * kLeapYears + (kCycleStart + 38) * kLeapYears;
    return leap_phase % kLeapPeriod < kLeapYears ? 1 : 0;
}

int GetPersianMonthDay(int year, int month) {
    if (month < 1 || month > kMonthsPerYear) {
        return 0;
    }
    if (month <= kLongMonths) {
        return kLongMonthDays;
    }
    return month < kMonthsPerYear || IsPersianLeap(year) ? kShortMonthDays : kShortMonthDays - 1;
}

int64_t PersianDay(const CalendarDate& date) {
    const int64_t year = int64_t{date.year} - (date.year >= 0 ? kCycleStart : kCycleStart - 1);
    const Division cycle = DivideDown<kCycleYears>(year);
    return kEpoch - 1 + cycle.quotient * kCycleDays + DaysBefore(cycle.remainder) +
           DayOfYear(date.month, date.day);
}

CalendarDate PersianDate(int64_t day) {
    constexpr int kFirstDay = DaysBefore(1) + 1;
    const Division cycle = DivideDown<kCycleDays>(day - (kEpoch - 1) - kFirstDay);
    const int year_of_cycle = YearOfCycle(cycle.remainder);
    auto year = static_cast<int>(cycle.quotient * kCycleYears + year_of_cycle + kCycleStart);
    if (year <= 0) {
        --year;  // there is no year 0
    }
    const int day_of_year = cycle.remainder + kFirstDay - DaysBefore(year_of_cycle);
    const int month = day_of_year <= kLongMonthsDays
                          ? (day_of_year + kLongMonthDays - 1) / kLongMonthDays
                          : (day_of_year - kLongMonths + kShortMonthDays - 1) / kShortMonthDays;
    return {year, month, day_of_year - DayOfYear(month, 1) + 1};
}

TTime* ChrisTmToPersianTm(TTime* rec) {
    SetDate(rec, PersianDate(GregorianDay(DateOf(*rec))));
    return rec;
}

TTime* PersianTmToChrisTm(TTime* rec) {
    SetDate(rec, GregorianDate(PersianDay(DateOf(*rec))));
    return rec;
}
