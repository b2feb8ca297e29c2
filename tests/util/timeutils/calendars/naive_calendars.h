// The calendar arithmetic once more, step by step and straight from its definition.
#ifndef TESTS_UTIL_TIMEUTILS_CALENDARS_NAIVE_CALENDARS_H
#define TESTS_UTIL_TIMEUTILS_CALENDARS_NAIVE_CALENDARS_H

#include "tests/util/timeutils/date_records.h"

namespace naive {

bool IsGregorianLeap(int year);
bool IsPersianLeap(int year);
bool IsIslamicLeap(int year);

double GregorianToJd(const Date& date);
double PersianToJd(const Date& date);
double IslamicToJd(const Date& date);

Date JdToGregorian(double jd);
Date JdToPersian(double jd);
Date JdToIslamic(double jd);

int GetPersianMonthDay(int year, int month);
int GetIslamicMonthDay(int year, int month);

}  // namespace naive

#endif
