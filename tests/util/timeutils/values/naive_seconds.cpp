// Years by counting leap years, dates by a guess that is mended.

#include "tests/util/timeutils/values/naive_seconds.h"

#include <algorithm>
#include <climits>
#include <string_view>

#include "tests/util/timeutils/calendars/naive_walk.h"

namespace naive {
namespace {

constexpr int kDaySeconds = 86400;
constexpr int kHourSeconds = 3600;
constexpr int k400YearDays = 146'097;
constexpr int64_t kDaysTo1970 = 719'162;  // from 0001-01-01

struct Parts {
    int64_t whole;
    int64_t rest;  // [0, base)
};

Parts Down(int64_t value, int64_t base) {
    const int64_t rest = (value % base + base) % base;
    return {(value - rest) / base, rest};
}

int MonthLength(int64_t year, int month) {
    return GregorianMonthDays(static_cast<int>(Down(year, 400).rest), month);
}

int64_t NewYear(int64_t year) {
    const int64_t before = year - 1;
    const int64_t leap_years =
        Down(before, 4).whole - Down(before, 100).whole + Down(before, 400).whole;
    return 365 * before + leap_years - kDaysTo1970;
}

// The number that text begins with, or -1: of at most so many digits, and without another digit
// where that would exceed the limit. Takes what it reads off the text.
int Take(std::string_view& text, size_t digits, int low, int limit) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    int value = -1;
    for (; digits > 0 && !text.empty() && text[0] >= '0' && text[0] <= '9'; --digits) {
        if (value * 10 > limit) {
            break;
        }
        value = (value == -1 ? 0 : value) * 10 + (text[0] - '0');
        text.remove_prefix(1);
    }
    return value < low || value > limit ? -1 : value;
}

bool TakeField(std::string_view& text, char letter, struct tm& rec) {
    const struct {
        char letter;
        size_t digits;
        int low, limit;
        int tm::*field;
        int base;
    } kFields[] = {
        {'Y', 4, 0, 9999, &tm::tm_year, 1900}, {'m', 2, 1, 12, &tm::tm_mon, 1},
        {'d', 2, 1, 31, &tm::tm_mday, 0},      {'H', 2, 0, 23, &tm::tm_hour, 0},
        {'M', 2, 0, 59, &tm::tm_min, 0},       {'S', 2, 0, 61, &tm::tm_sec, 0},
    };
    for (const auto& field : kFields) {
        if (field.letter != letter) {
            continue;
        }
        const int value = Take(text, field.digits, field.low, field.limit);
        if (value == -1) {
            return false;
        }
        rec.*field.field = value - field.base;
    }
    return true;
}

}  // namespace

int64_t DaysSince1970(int64_t year, int64_t month, int64_t day) {
    const Parts years = Down(month - 1, 12);
    year += years.whole;
    int64_t days = NewYear(year) + day - 1;
    for (int before = 1; before <= years.rest; ++before) {
        days += MonthLength(year, before);
    }
    return days;
}

int64_t SecondsSince1970(const struct tm& rec) {
    const int64_t days =
        DaysSince1970(int64_t{rec.tm_year} + 1900, int64_t{rec.tm_mon} + 1, rec.tm_mday);
    return ((days * 24 + rec.tm_hour) * 60 + rec.tm_min) * 60 + rec.tm_sec;
}

struct tm RecordAt(int64_t seconds, int zone_seconds) {
    const Parts day = Down(seconds + zone_seconds, kDaySeconds);
    int64_t year = 1970 + Down(day.whole * 400, k400YearDays).whole;  // or the one beside it
    while (NewYear(year) > day.whole) {
        --year;
    }
    while (NewYear(year + 1) <= day.whole) {
        ++year;
    }
    const auto clock = static_cast<int>(day.rest);
    struct tm rec = {};
    rec.tm_year = static_cast<int>(year - 1900);
    rec.tm_yday = static_cast<int>(day.whole - NewYear(year));
    rec.tm_mday = rec.tm_yday + 1;
    while (rec.tm_mday > MonthLength(year, rec.tm_mon + 1)) {
        rec.tm_mday -= MonthLength(year, rec.tm_mon + 1);
        ++rec.tm_mon;
    }
    rec.tm_wday = static_cast<int>(Down(day.whole + 4, 7).rest);  // 1970 began on a Thursday
    rec.tm_hour = clock / kHourSeconds;
    rec.tm_min = clock / 60 % 60;
    rec.tm_sec = clock % 60;
    return rec;
}

int64_t CountOrRefuse(const struct tm& rec, int zone, int bias) {
    const int64_t seconds = SecondsSince1970(rec);
    const int64_t zoned = seconds + zone;
    const int64_t counted = zoned - (rec.tm_isdst != 0 ? bias : 0);
    const bool zone_fits = zoned <= INT_MAX && (zoned >= 0 || zone == INT_MIN);
    const bool fits = seconds >= 0 && seconds <= INT_MAX && zone_fits && counted >= 0;
    return fits ? Cut(counted) : -1;
}

int OldEncodeTime(const struct tm& rec) {
    const int64_t months = (int64_t{rec.tm_year} - 100) * 12 + rec.tm_mon;
    const int64_t days = months * 31 + rec.tm_mday - 1;
    return Cut(((days * 24 + rec.tm_hour) * 60 + rec.tm_min) * 60 + rec.tm_sec);
}

struct tm OldDecodeTime(int packed_time, struct tm rec) {
    const auto take = [&packed_time](int base) {
        const int rest = packed_time % base;
        packed_time /= base;
        return rest;
    };
    rec.tm_sec = take(60);
    rec.tm_min = take(60);
    rec.tm_hour = take(24);
    rec.tm_mday = take(31) + 1;
    rec.tm_mon = take(12);
    rec.tm_year = packed_time + 100;
    return rec;
}

struct tm ReadByPattern(const std::string& text, const std::string& pattern, struct tm rec) {
    std::string_view rest = text;
    for (size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '%') {
            if (!TakeField(rest, pattern[++i], rec)) {
                return rec;
            }
        } else if (!rest.empty() && rest[0] == pattern[i]) {
            rest.remove_prefix(1);
        } else {
            return rec;
        }
    }
    const int64_t year = int64_t{rec.tm_year} + 1900;
    const int64_t first = DaysSince1970(year, rec.tm_mon + 1, 1);
    rec.tm_yday = static_cast<int>(first - NewYear(year)) + rec.tm_mday - 1;
    rec.tm_wday = static_cast<int>(Down(first + rec.tm_mday - 1 + 4, 7).rest);
    if (year == 0 && rec.tm_mon < 2) {
        rec.tm_wday = (rec.tm_wday + 1) % 7;  // the C library is a day off there
    }
    return rec;
}

}  // namespace naive
