// The arithmetic of the three calendars, by way of a continuous day number.
//
// A day number is the astronomical Julian day at midnight: a double whose fraction is .5
// (2000-01-01 Gregorian is 2451544.5). It is one only at the border of the functions that take or
// give a double; inside, a day is the whole number before the fraction. The published formulas are
// in doubles, with floor and ceil. Whole numbers give the same results: every term is a whole
// number or a half far below 2^53, so no sum is rounded, and no quotient comes so close to a whole
// number that its rounding could reach it.
//
// Nothing is checked: impossible dates count on to the day that they fall on. Terms that are
// integers in the formulas wrap at 32 bits, and what becomes one from a double stops at the limits.
#ifndef UTIL_TIMEUTILS_CALENDARS_DAY_NUMBER_H
#define UTIL_TIMEUTILS_CALENDARS_DAY_NUMBER_H

#include <cmath>
#include <cstdint>

#include "util/timeutils.h"
#include "util/timeutils/records.h"

int64_t GregorianDay(const CalendarDate& date);
int64_t PersianDay(const CalendarDate& date);
int64_t IslamicDay(const CalendarDate& date);

CalendarDate GregorianDate(int64_t day);
CalendarDate PersianDate(int64_t day);  // of a year that has 32 bits: all Gregorian ones do
CalendarDate IslamicDate(int64_t day);

// The whole number below value.
inline int64_t RoundDown(double value) {
    const auto truncated = static_cast<int64_t>(value);
    return static_cast<double>(truncated) > value ? truncated - 1 : truncated;
}

constexpr double kMidnight = 0.5;  // a day number's fraction

extern "C" {

inline int IsGregorianLeap(int year) {
    return IsLeapYear(year);
}
int IsPersianLeap(int year);
int IsIslamicLeap(int year);

TTime* ChrisTmToPersianTm(TTime* rec);
TTime* PersianTmToChrisTm(TTime* rec);
TTime* ChrisTmToIslamicTm(TTime* rec);
TTime* IslamicTmToChrisTm(TTime* rec);

// For those who know a day by its day number. Inline: the tool itself gets by without doubles.

inline double GregorianToJd(int year, int month, int day) {
    return static_cast<double>(GregorianDay({year, month, day})) + kMidnight;
}

inline double PersianToJd(int year, int month, int day) {
    return static_cast<double>(PersianDay({year, month, day})) + kMidnight;
}

inline double IslamicToJd(int year, int month, int day) {
    return static_cast<double>(IslamicDay({year, month, day})) + kMidnight;
}

// Always 1.
inline int JdToGregorian(double jd, int* year, int* month, int* day) {
    const CalendarDate date = GregorianDate(RoundDown(jd - kMidnight));
    *year = date.year;
    *month = date.month;
    *day = date.day;
    return 1;
}

// Always 1. From noon on a day number counts as the next midnight.
inline int JdToIslamic(double jd, int* year, int* month, int* day) {
    const CalendarDate date = IslamicDate(RoundDown(jd));
    *year = date.year;
    *month = date.month;
    *day = date.day;
    return 1;
}

// The remainder of a by b, with the sign of b.
inline double CalMod(double a, double b) {
    return a - b * floor(a / b);
}
}

#endif
