// The library's own mktime: brings a record into range and counts its seconds, with no zone but
// the two globals.

#include <climits>

#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils.h"
#include "util/timeutils/gregorian_year.h"
#include "util/timeutils/records.h"

int _timezone;
int _dstbias;
int _daylight;

namespace {

constexpr int kDaysPerWeek = 7;
constexpr int kEpochYear = 1970;
constexpr int kEpochWeekday = 4;  // Thursday

// A month and a count of days from its first day on.
struct MonthDays {
    int year;   // full, as in 2024; wraps
    int month;  // [1, 12]
    int days;
};

// Moves what exceeds [0, base) from low to high.
template <int base>
void Carry(int& low, int& high) {
    if (static_cast<unsigned int>(low) < base) {
        return;
    }
    const Division parts = DivideDown<base>(low);
    low = parts.remainder;
    high = WrapToInt32(high + parts.quotient);
}

// The days of the first years of a cycle, fewer than all.
constexpr int DaysOf(int years) {
    return years * kYearDays + years / 4 - years / 100;
}

// The days from 0001-01-01 to 1 January of the year.
constexpr int64_t DaysBefore(int64_t year) {
    const Division cycle = DivideDown<400>(year - 1);
    return cycle.quotient * k400YearDays + DaysOf(cycle.remainder);
}

// Moves the date to the month in which the day lies. The year wraps on the way, at most once,
// and the years after that have another place in the cycle.
void SettleMonth(MonthDays& date) {
    constexpr int64_t kFirstDay = DaysBefore(INT_MIN);
    constexpr int64_t kEndDay = DaysBefore(int64_t{INT_MAX} + 1);
    int64_t day = DaysBefore(date.year) + DayOfYear(date.year, date.month, 0) + date.days;
    if (day < kFirstDay) {
        day += kEndDay - kFirstDay;
    } else if (day >= kEndDay) {
        day -= kEndDay - kFirstDay;
    }
    const Division cycle = DivideDown<k400YearDays>(day);
    const YearsOfCycle passed = YearsUpTo(cycle.remainder);
    const int year = passed.years + (passed.is_last_day ? 0 : 1);  // of the cycle, from 1
    date.year = static_cast<int>(cycle.quotient * 400 + year);
    const int day_of_year = cycle.remainder - DaysOf(year - 1) + 1;
    date.month = static_cast<int>(MonthOf(date.year, day_of_year));
    date.days = day_of_year - DayOfYear(date.year, date.month, 1);
}

void Normalise(TTime* rec) {
    Carry<kSecondsPerMinute>(rec->tm_sec, rec->tm_min);
    Carry<kMinutesPerHour>(rec->tm_min, rec->tm_hour);
    int days = 0;
    Carry<kHoursPerDay>(rec->tm_hour, days);
    Carry<kMonthsPerYear>(rec->tm_mon, rec->tm_year);
    days = WrapToInt32(int64_t{days} + rec->tm_mday - 1);

    MonthDays date = {WrapToInt32(int64_t{rec->tm_year} + kTmYearBase), rec->tm_mon + 1, days};
    if (days < 0 || days >= _ytab[IsLeap(date.year)][rec->tm_mon]) {
        SettleMonth(date);
    }
    rec->tm_year = WrapToInt32(int64_t{date.year} - kTmYearBase);
    rec->tm_mon = date.month - 1;
    rec->tm_mday = date.days + 1;
}

// 1 if a year that is divisible by period came after the last full period since 1970.
int LeapInRemainder(int year, int period) {
    const int remainder = year % period;
    return remainder != 0 && remainder < kEpochYear % period ? 1 : 0;
}

// Remembers whether a sum went beyond what a seconds count can hold. The sums themselves wrap.
class Overflow {
public:
    void CountIf(bool overflows) { counted_ = counted_ || overflows; }
    bool counted() const { return counted_; }

private:
    bool counted_ = false;
};

// The days from 1970-01-01 to 1 January of the year.
int DaysSince1970(int year, Overflow& overflow) {
    const int years = WrapToInt32(int64_t{year} - kEpochYear);
    overflow.CountIf(years > INT_MAX / kYearDays);
    const int days = WrapToInt32(int64_t{years} * kYearDays);
    overflow.CountIf(WrapToInt32(int64_t{INT_MAX} - days) < years / 4 + 1);
    return WrapToInt32(int64_t{days} + (years / 4 + LeapInRemainder(year, 4)) -
                       (years / 100 + LeapInRemainder(year, 100)) +
                       (years / 400 + LeapInRemainder(year, 400)));
}

// The seconds with _timezone added and, in summer time, _dstbias taken off.
int ApplyZone(int seconds, bool is_summer_time, Overflow& overflow) {
    overflow.CountIf(_timezone > 0 && seconds > INT_MAX - _timezone);
    overflow.CountIf(_timezone < 0 && seconds < WrapToInt32(-int64_t{_timezone}));
    seconds = WrapToInt32(int64_t{seconds} + _timezone);
    const int bias = is_summer_time ? _dstbias : 0;
    overflow.CountIf(bias > seconds);
    return WrapToInt32(int64_t{seconds} - bias);
}

}  // namespace

time_t mktime_1(TTime* rec) {
    if (rec == nullptr) {
        return -1;
    }
    Normalise(rec);
    if (rec->tm_year < kEpochYear - kTmYearBase) {
        return -1;
    }
    Overflow overflow;
    const int year = WrapToInt32(int64_t{rec->tm_year} + kTmYearBase);
    const int day_of_year = DayOfYear(year, rec->tm_mon + 1, rec->tm_mday) - 1;
    const int days = WrapToInt32(int64_t{DaysSince1970(year, overflow)} + day_of_year);
    overflow.CountIf(days < 0);
    rec->tm_yday = day_of_year;
    rec->tm_wday = WrapToInt32(int64_t{days} + kEpochWeekday) % kDaysPerWeek;

    const int clock =
        (rec->tm_hour * kMinutesPerHour + rec->tm_min) * kSecondsPerMinute + rec->tm_sec;
    overflow.CountIf((INT_MAX - clock) / kSecondsPerDay < days);
    const int seconds = WrapToInt32(clock + int64_t{days} * kSecondsPerDay);
    const int result = ApplyZone(seconds, rec->tm_isdst != 0, overflow);
    return overflow.counted() ? -1 : result;
}

time_t EncodeTime(TTime* rec) {
    if (rec != nullptr) {
        rec->tm_isdst = -1;
    }
    return mktime_1(rec);
}
