// From month to month. Sums are taken in 64 bits and cut to 32 where they are stored.

#include "tests/util/timeutils/values/naive_mktime.h"

#include <climits>
#include <cstdint>

#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

namespace {

bool IsLeap(int year) {
    if (year % 400 == 0) {
        return true;
    }
    return year % 4 == 0 && year % 100 != 0;
}

int LengthOfMonth(int tm_year, int month) {
    constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool is_leap_february = month == 1 && IsLeap(Cut(int64_t{1900} + tm_year));
    return is_leap_february ? 29 : kLengths[month];
}

void CarryInto(int* high, int* low, int base) {
    *high = Cut(int64_t{*high} + *low / base);
    *low = *low % base;
    if (*low < 0) {
        *low += base;
        *high = Cut(int64_t{*high} - 1);
    }
}

void WalkToTheMonth(struct tm* rec, int days) {
    while (days < 0) {
        rec->tm_mon -= 1;
        if (rec->tm_mon < 0) {
            rec->tm_mon = 11;
            rec->tm_year = Cut(int64_t{rec->tm_year} - 1);
        }
        days += LengthOfMonth(rec->tm_year, rec->tm_mon);
    }
    while (days >= LengthOfMonth(rec->tm_year, rec->tm_mon)) {
        days -= LengthOfMonth(rec->tm_year, rec->tm_mon);
        rec->tm_mon += 1;
        if (rec->tm_mon == 12) {
            rec->tm_mon = 0;
            rec->tm_year = Cut(int64_t{rec->tm_year} + 1);
        }
    }
    rec->tm_mday = days + 1;
}

int OneIfBelow(int remainder, int limit) {
    return remainder != 0 && remainder < limit ? 1 : 0;
}

}  // namespace

time_t naive::mktime_1(struct tm* rec) {
    CarryInto(&rec->tm_min, &rec->tm_sec, 60);
    CarryInto(&rec->tm_hour, &rec->tm_min, 60);
    int d = 0;
    CarryInto(&d, &rec->tm_hour, 24);
    CarryInto(&rec->tm_year, &rec->tm_mon, 12);
    d = Cut(int64_t{d} + rec->tm_mday - 1);
    WalkToTheMonth(rec, d);
    if (rec->tm_year < 70) {
        return -1;
    }

    int overflows = 0;
    const int year = Cut(int64_t{1900} + rec->tm_year);
    const int n = Cut(int64_t{year} - 1970);
    overflows += n > 5883516;
    int days = Cut(int64_t{n} * 365);
    overflows += Cut(int64_t{INT_MAX} - days) < n / 4 + 1;
    days = Cut(int64_t{days} + n / 4 + OneIfBelow(year % 4, 2));
    days = Cut(int64_t{days} - (n / 100 + OneIfBelow(year % 100, 70)));
    days = Cut(int64_t{days} + n / 400 + OneIfBelow(year % 400, 370));

    int yday = rec->tm_mday - 1;
    for (int month = 0; month < rec->tm_mon; ++month) {
        yday += LengthOfMonth(rec->tm_year, month);
    }
    days = Cut(int64_t{days} + yday);
    overflows += days < 0;
    rec->tm_yday = yday;
    rec->tm_wday = Cut(int64_t{days} + 4) % 7;

    int secs = (rec->tm_hour * 60 + rec->tm_min) * 60 + rec->tm_sec;
    overflows += (INT_MAX - secs) / 86400 < days;
    secs = Cut(secs + int64_t{days} * 86400);
    overflows += _timezone > 0 && secs > INT_MAX - _timezone;
    overflows += _timezone < 0 && secs < Cut(-int64_t{_timezone});
    secs = Cut(int64_t{secs} + _timezone);
    const int dst = rec->tm_isdst != 0 ? _dstbias : 0;
    overflows += dst > secs;
    secs = Cut(int64_t{secs} - dst);
    return overflows > 0 ? -1 : secs;
}
