// The arithmetic of the three calendars, by way of a continuous day number: the astronomical Julian
// day at midnight, a double whose fraction is .5 (2000-01-01 Gregorian is 2451544.5).
//
// Nothing is checked: impossible dates count on to the day that they fall on. Integer terms wrap at
// 32 bits. The order of additions is part of the result.
#ifndef UTIL_TIMEUTILS_CALENDARS_DAY_NUMBER_H
#define UTIL_TIMEUTILS_CALENDARS_DAY_NUMBER_H

#include <cmath>

#include "util/timeutils.h"

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
