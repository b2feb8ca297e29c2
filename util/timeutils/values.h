/* SPDX-License-Identifier: MIT */
/* Records, seconds counts and small numbers. The conventions are those of util/timeutils.h. */
#ifndef ORVAUTIL_TIMEUTILS_VALUES_H
#define ORVAUTIL_TIMEUTILS_VALUES_H

#include <time.h>

#include <orvautil/config.h>

ORVAUTIL_EXPECT_SIZE(time_t, ORVAUTIL_SIZEOF_TIME_T);

/* The broken-down time is the C library's own record, trailing fields included. */
typedef struct tm TTime;

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Records and seconds counts. Encoding counts a record as it stands, with no zone; decoding goes
 * through the C library's local time. On a terminal whose zone is not UTC, decoding an encoded
 * record therefore moves it by the zone's offset. This is intended.
 */

/* Seconds that mktime_1 adds to its count. 0 unless a caller sets it; the library never does. */
extern int _timezone;

/* Seconds that mktime_1 takes off when the record's tm_isdst is not 0. 0 unless a caller sets it.
 */
extern int _dstbias;

/* Read by nothing; stands beside the other two for programs that refer to it. */
extern int _daylight;

/*
 * Brings the fields of rec into their ranges, sets tm_wday and tm_yday, and returns the seconds
 * count of the record, or -1 when it lies before 1970 or beyond 2038-01-19 03:14:07, or is NULL.
 *
 * Good to know:
 *  - The fields are brought into range on failure too. tm_wday and tm_yday are left alone for years
 *    before 1970, but set beyond 2038.
 *  - tm_isdst is not changed; any value but 0 counts as summer time.
 *  - Fields so large that sums of them overflow wrap at 32 bits. For years so far that the count
 *    of days wraps, tm_wday leaves 0 to 6.
 */
time_t mktime_1(TTime* rec);

/*
 * Returns mktime_1(rec), -1 for NULL too.
 *
 * Good to know: tm_isdst is set to -1 first, and stays so, also on failure.
 */
time_t EncodeTime(TTime* rec);

/*
 * Fills out with the local time of seconds, trailing fields included, by way of localtime's shared
 * record. Returns out.
 */
TTime* DecodeTime(TTime* out, time_t seconds);

/*
 * Returns the old packed time of rec: seconds since 2000-01-01 in a reckoning of 31-day months and
 * 372-day years, or 0 for NULL. Reads the six date and time fields only.
 *
 * Good to know: nothing is brought into range, and dates beyond 2066-10-25 03:14:07 wrap.
 */
int OldEncodeTime(const TTime* rec);

/*
 * Fills the six date and time fields of out from an old packed time and leaves all others.
 * Returns out.
 *
 * Good to know: the date need not exist, as 30 February does not. A negative value, before 2000, is
 * not brought into range: fields count back from the start of 2000, as far as the value reaches.
 * -1 gives second -1 and all else as on 2000-01-01 00:00; -86400 gives day 0 alone.
 */
TTime* OldDecodeTime(int packed_time, TTime* out);

/*
 * Seconds counts and records as fixed texts.
 */

/*
 * Reads "2024-05-07" into rec. Returns 1, or 0 for a NULL text.
 *
 * Good to know: the text is not checked; fields that it does not give stay as they were. A whole
 * date sets tm_wday and tm_yday too. rec must not be NULL.
 */
int StrTimeToTm(struct tm* rec, const char* text);

/*
 * Reads "2024-05-07T08:09:10" into rec. Returns 1, or 0 when either is NULL.
 *
 * Good to know: as for StrTimeToTm, fields that the text does not give stay as they were.
 */
int StrTimeToTTime(TTime* rec, const char* text);

/*
 * Returns the seconds count of "2024-05-07T08:09:10", -1 for a date before 1970 or beyond
 * 2038-01-19 03:14:07, or 0 for a NULL or empty text.
 *
 * Good to know: the text is not checked; of one in another form the result has no meaning.
 */
time_t StrTimeToSec(const char* text);

/*
 * Returns the old packed time of "2024-05-07T08:09:10", or 0 for a NULL text.
 *
 * Good to know: the text is not checked; of one in another form the result has no meaning.
 */
int OldStrTimeToSec(const char* text);

/*
 * Writes the local time of seconds as "08:09" and clears the rest of buf's size bytes. Returns 1,
 * or 0 for a NULL buf. Below 6 bytes the text does not fit: its bytes have no meaning then, but
 * they end in a terminator.
 */
int SecToHMTime(char* buf, int size, time_t seconds);

/*
 * Writes the local date of seconds as "2024-05-07" and clears the rest of buf's size bytes. Returns
 * 1, or 0 for a NULL buf. Below 11 bytes the text does not fit: its bytes have no meaning then, but
 * they end in a terminator.
 */
int SecToYMDTime(char* buf, int size, time_t seconds);

/*
 * Digits and numbers.
 */

/* Returns the value of the decimal digit c, or -1. Only the low 8 bits of c - '0' are looked at. */
int digitvalue(int c);

/*
 * Reads the groups of digits in text, such as "08:30", into the count numbers at out.
 *
 * Returns 0, or -1 when text or out is NULL or count is 0.
 *
 * Good to know:
 *  - Any run of other characters is one separator. A leading one leaves out[0] as it is.
 *  - Numbers that the text does not give stay as they are; groups beyond count are not looked at.
 *  - A negative count writes nothing and returns 0. Numbers beyond 32 bits wrap.
 */
int TimeTimeToInt(const char* text, int* out, int count);

/*
 * Writes the clock time hhmm, as in 930, as "09:30".
 *
 * Returns 0, or -1 when dst is NULL or size is 5 or less; nothing is then written.
 */
int IntTimeToStrTime(char* dst, int size, int hhmm);

/*
 * Returns the signed decimal number in text, or default_value when text is NULL, is empty, is '-'
 * alone or holds anything but digits and blanks before the number's end.
 *
 * Good to know: blanks are skipped while the value is 0 ("- 7" is -7, "0 42" is 42, "   " is 0); a
 * blank after another value ends the number. Numbers beyond 32 bits wrap.
 */
int ConvertStrToInt(const char* text, int default_value);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
