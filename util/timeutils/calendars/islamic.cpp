// The tabular Islamic calendar: 30-year cycles with 11 leap years.

#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils/calendars/day_number.h"
#include "util/timeutils/records.h"

namespace {

constexpr double kEpoch = 1948439.5;  // day number of 0001-01-01
constexpr int kCycleYears = 30;
constexpr int kYearDays = 354;  // a common year
constexpr int kCycleDays = 10631;
constexpr int kLeapYears = 11;  // in a cycle
constexpr int kLeapPhase = 3;   // places the leap years in the cycle
static_assert(kCycleDays == kCycleYears * kYearDays + kLeapYears);

constexpr int kYearRounding = kCycleDays + kCycleYears / 2;

constexpr double kMeanMonthDays = 29.5;  // 30 and 29 in turn
constexpr int kLongMonthDays = 30;

}  // namespace

int IsIslamicLeap(int year) {
    const int phase = WrapToInt32(int64_t{kLeapYears} * year + kLeapYears + kLeapPhase);
    return phase % kCycleYears < kLeapYears ? 1 : 0;
}

double IslamicToJd(int year, int month, int day) {
    const int days_before = WrapToInt32(int64_t{kYearDays} * year - kYearDays);
    const int leap_days = WrapToInt32(int64_t{kLeapYears} * year + kLeapPhase) / kCycleYears;
    return day + ceil(WrapToInt32(int64_t{month} - 1) * kMeanMonthDays) + days_before + leap_days +
           kEpoch - 1;
}

int JdToIslamic(double jd, int* year, int* month, int* day) {
    const double midnight = floor(jd) + 0.5;
    *year = SaturateToInt(floor(((midnight - kEpoch) * kCycleYears + kYearRounding) / kCycleDays));
    const double month_number =
        ceil((midnight - (IslamicToJd(*year, 1, 1) + (kLongMonthDays - 1))) / kMeanMonthDays) + 1;
    *month = month_number > kMonthsPerYear ? kMonthsPerYear : SaturateToInt(month_number);
    *day = SaturateToInt((midnight - IslamicToJd(*year, *month, 1)) + 1);
    return 1;
}

int GetIslamicMonthDay(int year, int month) {
    // Day 30 of a month of 29 days counts on to the next month.
    CalendarDate last;
    JdToIslamic(IslamicToJd(year, month, kLongMonthDays), &last.year, &last.month, &last.day);
    return last.month == month ? kLongMonthDays : kLongMonthDays - 1;
}

TTime* ChrisTmToIslamicTm(TTime* rec) {
    const CalendarDate chris = DateOf(*rec);
    CalendarDate islamic;
    JdToIslamic(GregorianToJd(chris.year, chris.month, chris.day), &islamic.year, &islamic.month,
                &islamic.day);
    SetDate(rec, islamic);
    return rec;
}

TTime* IslamicTmToChrisTm(TTime* rec) {
    const CalendarDate islamic = DateOf(*rec);
    CalendarDate chris;
    JdToGregorian(IslamicToJd(islamic.year, islamic.month, islamic.day), &chris.year, &chris.month,
                  &chris.day);
    SetDate(rec, chris);
    return rec;
}
