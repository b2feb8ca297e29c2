// The tabular Islamic calendar: 30-year cycles with 11 leap years.

#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils/calendars/day_number.h"
#include "util/timeutils/records.h"

namespace {

constexpr int kEpoch = 1948439;  // the day of 0001-01-01
constexpr int kCycleYears = 30;
constexpr int kYearDays = 354;  // a common year
constexpr int kCycleDays = 10631;
constexpr int kLeapYears = 11;  // in a cycle
constexpr int kLeapPhase = 3;   // places the leap years in the cycle
static_assert(kCycleDays == kCycleYears * kYearDays + kLeapYears);

constexpr int kYearRounding = kCycleDays + kCycleYears / 2;

constexpr int kMonthPairDays = 59;  // 30 and 29 in turn
constexpr int kLongMonthDays = 30;

// From 1. Months count on beyond 12, and back below 1.
int64_t DayOfYear(int month, int day) {
    return DivideUp<2>(int64_t{kMonthPairDays} * WrapToInt32(int64_t{month} - 1)) + day;
}

int64_t DayBeforeYear(int year) {
    return int64_t{kEpoch} - 1 + WrapToInt32(int64_t{kYearDays} * year - kYearDays) +
           WrapToInt32(int64_t{kLeapYears} * year + kLeapPhase) / kCycleYears;
}

}  // namespace

int IsIslamicLeap(int year) {
    const int phase = WrapToInt32(int64_t{kLeapYears} * year + kLeapYears + kLeapPhase);
    return phase % kCycleYears < kLeapYears ? 1 : 0;
}

int64_t IslamicDay(const CalendarDate& date) {
    return DayBeforeYear(date.year) + DayOfYear(date.month, date.day);
}

CalendarDate IslamicDate(int64_t day) {
    const int year = SaturateToInt(
        DivideDown<kCycleDays>((day - kEpoch) * kCycleYears + kYearRounding).quotient);
    const int64_t day_of_year = day - DayBeforeYear(year);  // from 1
    const int64_t month_number = DivideUp<kMonthPairDays>((day_of_year - kLongMonthDays) * 2) + 1;
    const int month = month_number > kMonthsPerYear ? kMonthsPerYear : SaturateToInt(month_number);
    return {year, month, SaturateToInt(day_of_year - DayOfYear(month, 1) + 1)};
}

int GetIslamicMonthDay(int year, int month) {
    // Day 30 of a month of 29 days counts on to the next month.
    const CalendarDate last = IslamicDate(IslamicDay({year, month, kLongMonthDays}));
    return last.month == month ? kLongMonthDays : kLongMonthDays - 1;
}

TTime* ChrisTmToIslamicTm(TTime* rec) {
    SetDate(rec, IslamicDate(GregorianDay(DateOf(*rec))));
    return rec;
}

TTime* IslamicTmToChrisTm(TTime* rec) {
    SetDate(rec, GregorianDate(IslamicDay(DateOf(*rec))));
    return rec;
}
