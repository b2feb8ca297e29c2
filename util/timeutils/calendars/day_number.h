// The arithmetic of the three calendars, by way of a continuous day number: the astronomical Julian
// day at midnight, a double whose fraction is .5 (2000-01-01 Gregorian is 2451544.5).
//
// Nothing is checked: impossible dates count on to the day that they fall on. Integer terms wrap at
// 32 bits. The order of additions is part of the result.
#ifndef UTIL_TIMEUTILS_CALENDARS_DAY_NUMBER_H
#define UTIL_TIMEUTILS_CALENDARS_DAY_NUMBER_H

#include <climits>
#include <cmath>

#include "util/timeutils.h"

// A double as an integer, truncated. Where it does not fit it saturates, as the soft-float library
// of the terminal does; other machines would give other numbers.
inline int ToInt(double value) {
    if (value >= INT_MAX) {
        return INT_MAX;
    }
    return value <= INT_MIN ? INT_MIN : static_cast<int>(value);
}

extern "C" {

// The remainder of a by b, with the sign of b.
inline double CalMod(double a, double b) {
    return a - b * floor(a / b);
}

int IsGregorianLeap(int year);
double GregorianToJd(int year, int month, int day);
int JdToGregorian(double jd, int* year, int* month, int* day);  // always 1

int IsPersianLeap(int year);
double PersianToJd(int year, int month, int day);
TTime* ChrisTmToPersianTm(TTime* rec);
TTime* PersianTmToChrisTm(TTime* rec);

int IsIslamicLeap(int year);
double IslamicToJd(int year, int month, int day);
int JdToIslamic(double jd, int* year, int* month, int* day);  // always 1
TTime* ChrisTmToIslamicTm(TTime* rec);
TTime* IslamicTmToChrisTm(TTime* rec);
}

#endif
