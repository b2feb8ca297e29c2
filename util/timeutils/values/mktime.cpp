// The library's own mktime: brings a record into range and counts its seconds, with no zone but
// the two globals.

#include <algorithm>
#include <climits>

#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils.h"
#include "util/timeutils/records.h"

int _timezone;
int _dstbias;
int _daylight;

namespace {

constexpr int kDaysPerWeek = 7;
constexpr int kDaysPerYear = 365;
constexpr int kEpochYear = 1970;
constexpr int kEpochWeekday = 4;  // Thursday
constexpr int kCycleYears = 400;
constexpr int kCycleDays = 146097;
static_assert(kCycleDays == kCycleYears * kDaysPerYear + kCycleYears / 4 - 3);

// A month and a count of days from its first day on.
struct MonthDays {
    int year;   // full, as in 2024; wraps
    int month;  // [0, 11]
    int days;
};

// Moves what exceeds [0, base) from low to high.
void Carry(int& low, int& high, int base) {
    high = WrapToInt32(int64_t{high} + low / base);
    low %= base;
    if (low < 0) {
        low += base;
        high = WrapToInt32(int64_t{high} - 1);
    }
}

const int* MonthLengths(int year) {
    return _ytab[IsLeapYear(year)];
}

int LengthOf(const MonthDays& date) {
    return MonthLengths(date.year)[date.month];
}

// The calendar repeats after 400 years: skips the whole cycles that the days hold, but only up to
// the year's limit. Beyond it the year wraps, and lands at another place of the cycle.
void SkipCycles(MonthDays& date) {
    const int wanted = date.days / kCycleDays;  // of the days' sign
    if (wanted == 0) {
        return;
    }
    const int64_t limit = wanted > 0 ? INT_MAX : INT_MIN;
    const auto room = static_cast<int>((limit - date.year) / kCycleYears);
    const int cycles = wanted > 0 ? std::min(wanted, room) : std::max(wanted, room);
    date.year += cycles * kCycleYears;
    date.days -= cycles * kCycleDays;
}

void StepBack(MonthDays& date) {
    if (--date.month < 0) {
        date.month = kMonthsPerYear - 1;
        date.year = WrapToInt32(int64_t{date.year} - 1);
    }
    date.days += LengthOf(date);
}

void StepForward(MonthDays& date) {
    date.days -= LengthOf(date);
    if (++date.month == kMonthsPerYear) {
        date.month = 0;
        date.year = WrapToInt32(int64_t{date.year} + 1);
    }
}

// Walks to the month in which the day lies.
void SettleMonth(MonthDays& date) {
    SkipCycles(date);
    while (date.days < 0) {
        StepBack(date);
        SkipCycles(date);  // finds work again only once the year has wrapped
    }
    while (date.days >= LengthOf(date)) {
        StepForward(date);
        SkipCycles(date);
    }
}

void Normalise(TTime* rec) {
    Carry(rec->tm_sec, rec->tm_min, kSecondsPerMinute);
    Carry(rec->tm_min, rec->tm_hour, kMinutesPerHour);
    int days = 0;
    Carry(rec->tm_hour, days, kHoursPerDay);
    Carry(rec->tm_mon, rec->tm_year, kMonthsPerYear);
    days = WrapToInt32(int64_t{days} + rec->tm_mday - 1);

    MonthDays date = {WrapToInt32(int64_t{rec->tm_year} + kTmYearBase), rec->tm_mon, days};
    SettleMonth(date);
    rec->tm_year = WrapToInt32(int64_t{date.year} - kTmYearBase);
    rec->tm_mon = date.month;
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

// The days from 1970-01-01 to 1 January of the record's year.
int DaysBeforeYear(int year, Overflow& overflow) {
    const int years = WrapToInt32(int64_t{year} - kEpochYear);
    overflow.CountIf(years > INT_MAX / kDaysPerYear);
    const int days = WrapToInt32(int64_t{years} * kDaysPerYear);
    overflow.CountIf(WrapToInt32(int64_t{INT_MAX} - days) < years / 4 + 1);
    return WrapToInt32(int64_t{days} + (years / 4 + LeapInRemainder(year, 4)) -
                       (years / 100 + LeapInRemainder(year, 100)) +
                       (years / 400 + LeapInRemainder(year, 400)));
}

int DayOfYear(const TTime* rec, int year) {
    int days = rec->tm_mday - 1;
    for (int month = 0; month < rec->tm_mon; ++month) {
        days += MonthLengths(year)[month];
    }
    return days;
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
    const int day_of_year = DayOfYear(rec, year);
    int days = WrapToInt32(int64_t{DaysBeforeYear(year, overflow)} + day_of_year);
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
