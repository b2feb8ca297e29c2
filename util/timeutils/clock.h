/* SPDX-License-Identifier: MIT */
/* The clock, sleeping and ticks. The conventions are those of util/timeutils.h. */
#ifndef ORVAUTIL_TIMEUTILS_CLOCK_H
#define ORVAUTIL_TIMEUTILS_CLOCK_H

#include "values.h"

/* The clock as eight small numbers. */
typedef struct TClockDT {
    unsigned short year;        /* as in 2024 */
    unsigned short month;       /* [1, 12] */
    unsigned short day;         /* [1, 31] */
    unsigned short hour;        /* [0, 23] */
    unsigned short minute;      /* [0, 59] */
    unsigned short second;      /* [0, 59] */
    unsigned short day_of_week; /* [0, 6], Sunday is 0 */
    unsigned short day_of_year; /* [1, 366] */
} TClockDT;

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * The clock, in local time. Where a clock text would show a year outside 2000 to 2037, it shows
 * 2000 instead, with month and day as they are.
 */

/*
 * Clears dst and writes the current time as text_type says, dates of type 1 in the layout of code.
 *
 * Returns 0, or -1 for a NULL dst.
 *
 * Good to know: in type 1 size only tells what is cleared; the sizes of FormatDate hold. An unknown
 * type leaves dst empty.
 */
int GetCurDateTime(char* dst, int size, int text_type, int code);

/* GetCurDateTime for the date in the layout of code. */
int GetCurDate(char* dst, int size, int code);

/* GetCurDateTime for the time as "08:09:10". */
int GetCurTime(char* dst, int size);

/* GetCurDateTime for the time as "08:09". */
int GetCurTimeNoSec(char* dst, int size);

/* Fills out with the current time. The year is never replaced here. */
void GetClockDT(TClockDT* out);

/* Fills out with the current time, trailing fields included. The year is never replaced here. */
void GetTime(TTime* out);

/*
 * Converts the local time of now to the calendar, inside the C library's shared record.
 *
 * Returns 1, or 0 for a NULL out.
 *
 * Good to know: nothing is written to out. The result stands in the record that localtime returns,
 * until that is overwritten. Outside the years 2000 to 2037 tm_year is set to 2000 itself first.
 */
int GetLocalTime(int calendar_mode, TTime* out);

/*
 * Sleeps for about ms milliseconds. May run on any thread.
 *
 * Good to know:
 *  - A signal does not end the sleep, but afterwards the time that has passed is known in whole
 *    seconds of the wall clock only: the rest may be up to a second too long or too short.
 *  - A clock that was set meanwhile counts at the next signal. Set back by less than has passed, it
 *    makes the rest longer; set forward by less than ms, shorter; set back to before the start, or
 *    forward by more than ms, it ends the sleep there. A shift by a multiple of 2^32 ms, about 49.7
 *    days, is not noticed.
 *  - Without a signal the clock does not matter.
 */
void Trmmsleep(unsigned int ms);

/*
 * Sets the system clock to rec, counted without zone as by EncodeTime, plus one second. The old and
 * the new date are printed to standard output by the shell command "date".
 *
 * Returns 1, whether or not the clock could be set. A NULL rec sets nothing and runs no command.
 *
 * Good to know: rec is brought into range and its tm_isdst set to -1. A record before 1970 or
 * beyond 2038-01-19 03:14:07 asks for 1970-01-01 00:00:00, and the last second of that range for a
 * time before 1970. Newer kernels refuse both, and the clock stays.
 */
int SyncSysTime(TTime* rec);

/*
 * Counts of time: ticks, for measuring how long something took, and the system's uptime.
 */

/*
 * Returns the wall clock as a count of milliseconds that wraps every 2^32 ms, about 49.7 days. It
 * never fails.
 *
 * Good to know: only the difference of two ticks, taken in 32 bits, has a meaning. The count jumps
 * when the clock is set.
 */
int TrGetTickCount(void);

/* Returns the seconds since the system booted, or 0 when the system does not tell. */
int GetSysSecond(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
