/* SPDX-License-Identifier: MIT */
/* Dates, clock times and records as texts. The conventions are those of util/timeutils.h. */
#ifndef ORVAUTIL_TIMEUTILS_TEXTS_H
#define ORVAUTIL_TIMEUTILS_TEXTS_H

#include "values.h"

/* The text types: the forms in which a record is written and read. */
enum {
    TEXT_DATE = 1,           /* laid out by a date format code */
    TEXT_TIME = 2,           /* 08:09:10 */
    TEXT_TIME_NO_SECOND = 3, /* 08:09 */
    TEXT_DATE_TIME = 4,      /* 2024-05-07T08:09:10 */
};

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Date texts. A year of two digits is widened by the calendar: Gregorian years above 37 belong to
 * the 1900s, others to the 2000s; Persian years above 16 to the 1300s, others to the 1400s; Islamic
 * years always to the 1400s. The four digits of layout 9 are taken as they stand.
 */

/*
 * Writes a date in the layout of code. Returns 0, also for a NULL dst, which writes nothing.
 *
 * Good to know:
 *  - There is no size: dst must hold 11 bytes for layout 9 and 9 bytes for the others, and more for
 *    numbers that need more digits.
 *  - The separators always go to positions 2 and 5, also over a digit of a number that is wider.
 *  - A negative code writes the year first, with '-' when its last digit is 0, 3, 6 or 9, else with
 *    '.': -10 gives "24-05-07", -1 gives "24.05.07".
 */
int FormatDate(char* dst, int code, int year, int month, int day);

/*
 * Reads a date in the layout of code from fixed positions of text; no argument may be NULL.
 * Returns 1.
 *
 * Good to know: separators are not looked at. A number ends at its first character that is no
 * digit (as for strtol, white space or a sign may come first); one that the text does not reach is
 * 0. A year of two digits is widened even then, to 2000 or, in the other calendars, 1400.
 */
int DeFormatDate(const char* text, int code, int calendar_mode, int* year, int* month, int* day);

/*
 * Rewrites the date in buf from the layout of code to the standard form, which needs 11 bytes.
 * Returns 1, or 0 for a NULL buf.
 */
int FmtDateToStandardDate(char* buf, int size, int code, int calendar_mode);

/*
 * Rewrites the date in buf from the standard form to the layout of code. Returns 1, or 0 for a NULL
 * buf.
 *
 * Good to know: size is not used; the sizes of FormatDate hold.
 */
int StandardDateToFmtDate(char* buf, int size, int code, int calendar_mode);

/*
 * Writes the date of a build, "May 17 2024" as compilers give it, as "20240517", which needs 9
 * bytes.
 *
 * Returns 1, or 0 when either is NULL.
 *
 * Good to know:
 *  - An unknown month is 00 and the result still 1. Month names are compared by their first three
 *    letters, case included.
 *  - A day or year that is missing or no number is 0, and so is what follows it: "May x 2024" gives
 *    "00000500". Numbers beyond 32 bits give the nearest limit, and wide numbers a longer text.
 *  - Of a text only the first 39 characters count.
 */
int ConvertCompileDate(const char* text, char* dst, int size);

/*
 * Clock texts: "19:45" or "19:45:10" in 24-hour form, "07:45 PM" in 12-hour form.
 */

/*
 * Rewrites the clock text in buf to 24-hour form (to24 is not 0) or to 12-hour form (to24 is 0).
 *
 * Returns 1 when it was rewritten, 0 when it has that form already, -1 for a NULL or empty text.
 *
 * The 12-hour form is 3 bytes longer: "07:45 PM" needs 9.
 *
 * Good to know:
 *  - A text is in 12-hour form when it holds an 'A' or a 'P' anywhere. The hour is read from the
 *    first two characters, and what follows them is kept, up to 63 characters in all.
 *  - Towards 24 hours buf is first cut one character before the marker, wherever that lies: the
 *    character there is taken for the blank. Without the blank a digit is lost: "07:45PM" gives
 *    "19:4".
 *  - An hour takes two characters, also where it has one digit: "7:45 PM" gives "1945".
 */
int HourTimeFormatToCurMode(char* buf, int size, int to24);

/* HourTimeFormatToCurMode to 24-hour form. It logs under its own name. */
int HourTimeFormatTo24Mode(char* buf, int size);

/*
 * Splitters: the numbers of a text such as "2024-05-17" or "08:30:15". Each overwrites the
 * separators between the numbers that it reads with terminators, so text must be writable. At a
 * missing separator the work stops, and the numbers not yet reached stay as they were. A separator
 * at the very start counts as one. A NULL text does nothing.
 *
 * Good to know: each number is read as by strtol. White space and a sign may come first, the first
 * other character ends it, one without digits is 0, and one beyond 32 bits gives the nearest limit.
 * A '-' before the first number is its sign and a separator too: "-5-3" gives -5, 5 and 3.
 */

/* Splits "2024-05-17" at '-'. */
void ParseDate(char* text, int* year, int* month, int* day);

/* Splits "08:30:15" at ':'. */
void ParseTime(char* text, int* hour, int* minute, int* second);

/* Splits "08:30" at ':'. What follows a second ':' is not looked at. */
void ParseTimeNoSec(char* text, int* hour, int* minute);

/* Splits "05-17" at '-'. What follows a second '-' is not looked at. */
void ParseDateNoYear(char* text, int* month, int* day);

/*
 * Records as texts.
 */

/*
 * Writes rec as text_type says, dates of type 1 in the layout of code. The types 2, 3 and 4 need 9,
 * 6 and 20 bytes. Returns 0.
 *
 * Good to know: in type 1 size is not used, and the sizes of FormatDate hold. An unknown type and
 * a NULL buf write nothing.
 */
int TTimeToStr(TTime rec, char* buf, int size, int text_type, int code);

/*
 * Reads a text of type 1 or 4 into out: date, hour and minute. A two-digit year is widened by the
 * calendar; the date is not converted.
 *
 * Returns 0, or -1 when either is NULL.
 *
 * Good to know: what the text does not give counts as 0 (a year of two digits is widened even so),
 * and a text of another type sets tm_year to -1900, tm_mon to -1 and the rest to 0. tm_sec and the
 * other fields stay as they were.
 */
int ParseStrToTTime(const char* text, TTime* out, int text_type, int code, int calendar_mode);

/*
 * Writes rec as "2024-05-07T08:09:10", which needs 20 bytes. Returns 1, or 0 when either is NULL,
 * which is logged.
 */
int TTimeToStrTime(char* dst, int size, const TTime* rec);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
