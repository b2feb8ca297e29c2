// Walking through a calendar day by day with whole numbers alone, by its leap rule and its table
// of month lengths.
#ifndef TESTS_UTIL_TIMEUTILS_CALENDARS_NAIVE_WALK_H
#define TESTS_UTIL_TIMEUTILS_CALENDARS_NAIVE_WALK_H

#include "tests/util/timeutils/date_records.h"

namespace naive {

using MonthDays = int (*)(int year, int month);

inline int GregorianMonthDays(int year, int month) {
    if (month == 2) {
        return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 29 : 28;
    }
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

// The distance to 474 is then positive.
inline bool IsPersianLeapAfter474(int year) {
    return ((year - 474) % 2820 + 512) * 682 % 2816 < 682;
}

inline int PersianMonthDays(int year, int month) {
    if (month <= 6) {
        return 31;
    }
    return month <= 11 || IsPersianLeapAfter474(year) ? 30 : 29;
}

// The leap years of the cycle of 30, by name.
inline bool IsIslamicLeapByName(int year) {
    switch (year % 30) {
        case 2:
        case 5:
        case 7:
        case 10:
        case 13:
        case 16:
        case 18:
        case 21:
        case 24:
        case 26:
        case 29:
            return true;
        default:
            return false;
    }
}

inline int IslamicMonthDays(int year, int month) {
    return month % 2 == 1 || (month == 12 && IsIslamicLeapByName(year)) ? 30 : 29;
}

inline Date NextDay(Date date, MonthDays month_days) {
    if (++date.day > month_days(date.year, date.month)) {
        date.day = 1;
        if (++date.month > 12) {
            date.month = 1;
            ++date.year;
        }
    }
    return date;
}

inline Date PreviousDay(Date date, MonthDays month_days) {
    if (--date.day == 0) {
        if (--date.month == 0) {
            date.month = 12;
            --date.year;
        }
        date.day = month_days(date.year, date.month);
    }
    return date;
}

}  // namespace naive

#endif
