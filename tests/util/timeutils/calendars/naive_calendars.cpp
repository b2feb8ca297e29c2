// Integer terms are taken in 64 bits and cut to 32, doubles in the order of their definition.

#include "tests/util/timeutils/calendars/naive_calendars.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>

namespace naive {
namespace {

// What does not fit stops at the limits.
int Truncated(double value) {
    return static_cast<int>(std::clamp(value, double{INT_MIN}, double{INT_MAX}));
}

double Mod(double a, double b) {
    return a - b * std::floor(a / b);
}

}  // namespace

bool IsGregorianLeap(int year) {
    if (year % 4 != 0) {
        return false;
    }
    if (year % 100 != 0) {
        return true;
    }
    return year % 400 == 0;
}

bool IsPersianLeap(int year) {
    const int b = year > 0 ? Cut(int64_t{year} - 474) : Cut(int64_t{year} - 473);
    return ((b % 2820) * 682 + 349184) % 2816 < 682;
}

bool IsIslamicLeap(int year) {
    return Cut(int64_t{Cut(int64_t{11} * year)} + 14) % 30 < 11;
}

double GregorianToJd(const Date& date) {
    int adjustment = -2;
    if (date.month <= 2) {
        adjustment = 0;
    } else if (IsGregorianLeap(date.year)) {
        adjustment = -1;
    }
    const int before = Cut(int64_t{date.year} - 1);
    const int months = Cut(int64_t{367} * date.month - 362) / 12;
    double jd = 1721424.5;
    jd += Cut(int64_t{365} * before);
    jd += before / 4;
    jd -= before / 100;
    jd += before / 400;
    jd += Cut(int64_t{months} + date.day + adjustment);
    return jd;
}

Date JdToGregorian(double jd) {
    const double wjd = std::floor(jd - 0.5) + 0.5;
    const double depoch = wjd - 1721425.5;
    const double quadricent = std::floor(depoch / 146097);
    const double dqc = Mod(depoch, 146097);
    const double cent = std::floor(dqc / 36524);
    const double dcent = Mod(dqc, 36524);
    const double quad = std::floor(dcent / 1461);
    const double dquad = Mod(dcent, 1461);
    const double yindex = std::floor(dquad / 365);
    Date date = {Truncated(quadricent * 400 + cent * 100 + quad * 4 + yindex), 0, 0};
    const bool ends_a_leap_year = cent == 4 || yindex == 4;
    if (!ends_a_leap_year) {
        date.year = Cut(int64_t{date.year} + 1);
    }
    const double yearday = wjd - GregorianToJd({date.year, 1, 1});
    double leapadj = IsGregorianLeap(date.year) ? 1 : 2;
    if (wjd < GregorianToJd({date.year, 3, 1})) {
        leapadj = 0;
    }
    date.month = Truncated(std::floor(((yearday + leapadj) * 12 + 373) / 367));
    date.day = Truncated((wjd - GregorianToJd({date.year, date.month, 1})) + 1);
    return date;
}

double PersianToJd(const Date& date) {
    const double year = date.year;
    const double epbase = date.year >= 0 ? year - 474 : year - 473;
    const double epyear = Mod(epbase, 2820) + 474;
    const int64_t m = date.month;
    const int months = date.month <= 7 ? Cut(31 * m - 31) : Cut(30 * m - 24);
    double jd = Cut(int64_t{months} + date.day);
    jd += std::floor((epyear * 682 - 110) / 2816);
    jd += (epyear - 1) * 365;
    jd += std::floor(epbase / 2820) * 1029983;
    jd += 1948319.5;
    return jd;
}

Date JdToPersian(double day_number) {
    const double jd = std::floor(day_number) + 0.5;
    const double depoch = jd - PersianToJd({475, 1, 1});
    const double cycle = std::floor(depoch / 1029983);
    const double cyear = Mod(depoch, 1029983);
    double ycycle = 2820;
    if (cyear != 1029982) {
        const double aux1 = std::floor(cyear / 366);
        const double aux2 = Mod(cyear, 366);
        ycycle = std::floor((2134 * aux1 + 2816 * aux2 + 2815) / 1028522) + aux1 + 1;
    }
    double full_year = cycle * 2820 + ycycle + 474;
    if (full_year <= 0) {
        full_year -= 1;
    }
    Date date = {Truncated(full_year), 0, 0};
    const double yday = (jd - PersianToJd({date.year, 1, 1})) + 1;
    date.month = Truncated(yday <= 186 ? std::ceil(yday / 31) : std::ceil((yday - 6) / 30));
    date.day = Truncated((jd - PersianToJd({date.year, date.month, 1})) + 1);
    return date;
}

double IslamicToJd(const Date& date) {
    double jd = date.day;
    jd += std::ceil(Cut(int64_t{date.month} - 1) * 29.5);
    jd += Cut(int64_t{354} * date.year - 354);
    jd += Cut(int64_t{11} * date.year + 3) / 30;
    jd += 1948439.5;
    jd -= 1;
    return jd;
}

Date JdToIslamic(double day_number) {
    const double jd = std::floor(day_number) + 0.5;
    Date date = {Truncated(std::floor(((jd - 1948439.5) * 30 + 10646) / 10631)), 0, 0};
    const double m = std::ceil((jd - (IslamicToJd({date.year, 1, 1}) + 29)) / 29.5) + 1;
    date.month = m > 12 ? 12 : Truncated(m);
    date.day = Truncated((jd - IslamicToJd({date.year, date.month, 1})) + 1);
    return date;
}

int GetPersianMonthDay(int year, int month) {
    switch (month) {
        case 1:
        case 2:
        case 3:
        case 4:
        case 5:
        case 6:
            return 31;
        case 7:
        case 8:
        case 9:
        case 10:
        case 11:
            return 30;
        case 12:
            return IsPersianLeap(year) ? 30 : 29;
        default:
            return 0;
    }
}

int GetIslamicMonthDay(int year, int month) {
    return JdToIslamic(IslamicToJd({year, month, 30})).month == month ? 30 : 29;
}

}  // namespace naive
