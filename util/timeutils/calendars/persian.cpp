// The Persian solar calendar by the 2820-year rule: cycles of 2820 years with 683 leap years.

#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils/calendars/day_number.h"
#include "util/timeutils/records.h"

namespace {

constexpr double kEpoch = 1948320.5;  // day number of 0001-01-01
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
double YearOfCycle(double day_of_cycle) {
    if (day_of_cycle == kCycleDays - 1) {
        return kCycleYears;
    }
    const double years = floor(day_of_cycle / (kYearDays + 1));
    const double days = CalMod(day_of_cycle, kYearDays + 1);
    constexpr int kExcessDays = kLeapPeriod * (kYearDays + 1) - kLeapPeriodDays;
    return floor((kExcessDays * years + kLeapPeriod * days + (kLeapPeriod - 1)) / kLeapPeriodDays) +
           years + 1;
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

double PersianToJd(int year, int month, int day) {
    const double base = static_cast<double>(year) - (year >= 0 ? kCycleStart : kCycleStart - 1);
    const double year_of_cycle = CalMod(base, kCycleYears) + kCycleStart;
    const int64_t month_start =
        month <= kLongMonths + 1
            ? int64_t{kLongMonthDays} * month - kLongMonthDays
            : int64_t{kShortMonthDays} * month - (kShortMonthDays - kLongMonths);
    return WrapToInt32(month_start + day) +
           floor((year_of_cycle * kLeapYears - kLeapPhase) / kLeapPeriod) +
           (year_of_cycle - 1) * kYearDays + floor(base / kCycleYears) * kCycleDays + (kEpoch - 1);
}

TTime* ChrisTmToPersianTm(TTime* rec) {
    const CalendarDate chris = DateOf(*rec);
    const double jd = floor(GregorianToJd(chris.year, chris.month, chris.day)) + 0.5;
    const double days = jd - PersianToJd(kCycleStart + 1, 1, 1);
    const double cycle = floor(days / kCycleDays);
    const double year_of_cycle = YearOfCycle(CalMod(days, kCycleDays));
    double full_year = cycle * kCycleYears + year_of_cycle + kCycleStart;
    if (full_year <= 0) {
        full_year -= 1;  // there is no year 0
    }
    const int year = SaturateToInt(full_year);
    const double day_of_year = (jd - PersianToJd(year, 1, 1)) + 1;
    const int month = SaturateToInt(day_of_year <= kLongMonthsDays
                                        ? ceil(day_of_year / kLongMonthDays)
                                        : ceil((day_of_year - kLongMonths) / kShortMonthDays));
    const int day = SaturateToInt((jd - PersianToJd(year, month, 1)) + 1);
    SetDate(rec, {year, month, day});
    return rec;
}

TTime* PersianTmToChrisTm(TTime* rec) {
    const CalendarDate persian = DateOf(*rec);
    CalendarDate chris;
    JdToGregorian(PersianToJd(persian.year, persian.month, persian.day), &chris.year, &chris.month,
                  &chris.day);
    SetDate(rec, chris);
    return rec;
}
