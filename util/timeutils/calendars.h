/* SPDX-License-Identifier: MIT */
/* Dates of the three calendars. The conventions are those of util/timeutils.h. */
#ifndef ORVAUTIL_TIMEUTILS_CALENDARS_H
#define ORVAUTIL_TIMEUTILS_CALENDARS_H

#include "values.h"

/* The calendar modes. */
enum {
    CALENDAR_GREGORIAN = 0,
    CALENDAR_PERSIAN = 1,
    CALENDAR_ISLAMIC = 2,
};

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Calendars.
 *
 * The Persian calendar follows the 2820-year rule. By that rule 1403 is a common year, where
 * calendars printed in Iran have a leap year, so dates of 1404 differ from theirs by one day:
 * 2025-03-21 is 1404-01-02 here. The Islamic calendar is the tabular one with 11 leap years in 30.
 */

/* The lengths of the months of a common year (row 0) and of a leap year (row 1). Read-only. */
extern const int _ytab[2][12];

/* Returns 1 if the Gregorian year, as in 2024, is a leap year, else 0. */
int IsLeapYear(int year);

/* Returns the days of a Gregorian month, 28 to 31, or -1 for a month outside 1 to 12. */
int GetMaxDaysOfGregoMonth(int year, int month);

/* Returns the days of a Persian month, 29 to 31, or 0 for a month outside 1 to 12. */
int GetPersianMonthDay(int year, int month);

/* Returns the days of an Islamic month, 30 or 29. The month is not checked. */
int GetIslamicMonthDay(int year, int month);

/*
 * Returns 1 if year is a leap year of the Persian or Islamic calendar, else 0.
 *
 * Good to know: in every other mode the result is 0. For Gregorian years call IsLeapYear.
 */
int IsLeapYearByCalendar(int calendar_mode, int year);

/*
 * Returns the days of a month in the calendar, as the function of that calendar does.
 *
 * Good to know: a calendar mode other than 0, 1 and 2 returns year.
 */
int GetMaxDaysOfMonth(int calendar_mode, int year, int month);

/*
 * Dates between the terminal's calendar ("local") and the Gregorian one ("Chris"). A record holds a
 * date of any calendar alike: tm_year is the year less 1900, tm_mon the month less 1. No date is
 * checked: day 31 of a short month or month 13 counts on to whatever day it falls on.
 */

/*
 * Rewrites a date of the calendar as a Gregorian one. Returns rec.
 *
 * Good to know: only tm_year, tm_mon and tm_mday change; tm_wday and tm_yday go stale. A NULL rec
 * and modes other than 1 and 2 change nothing.
 */
TTime* LocalTmToChrisTm(int calendar_mode, TTime* rec);

/* Rewrites a Gregorian date as one of the calendar, with the habits of LocalTmToChrisTm. */
TTime* ChrisTmToLocalTm(int calendar_mode, TTime* rec);

/*
 * Rewrites a text of the calendar as a Gregorian one. text_type is 1 for a date in the layout of
 * code, or 4 for a date, 'T' or a blank, and a time, which comes out as "2024-05-07T08:09:00" and
 * needs 20 bytes.
 *
 * Returns 0, 1 in mode 0, which changes nothing, or -1 for a NULL text.
 *
 * Good to know:
 *  - ChrisToLocalTime returns 1 for success, this function 0.
 *  - Seconds are not read and come out as 00. The types 2 and 3 are not read at all and come out as
 *    "00:00:00" and "00:00".
 *  - In type 4 code only tells how the date is read; it is written in the standard form.
 *  - In type 1 size is not used, and the sizes of FormatDate hold.
 *  - Modes other than 0, 1 and 2 rewrite the text too, without moving the date. An unknown text
 *    type leaves it.
 */
int LocalTimeToChris(int calendar_mode, char* text, int size, int text_type, int code);

/*
 * Rewrites a Gregorian text as one of the calendar, with the habits of LocalTimeToChris. A year of
 * two digits is widened as a Gregorian one.
 *
 * Returns 1, also in mode 0, or -1 for a NULL text.
 */
int ChrisToLocalTime(int calendar_mode, char* text, int size, int text_type, int code);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
