/*
 * Time values, date and time texts, calendars, the clock and the Ethernet address.
 *
 * Records and buffers belong to the caller; texts are zero-terminated. Where a buffer's size is
 * passed as int, it counts the terminator, longer texts are cut to it, and with a size of 0 or
 * below nothing is written. Results are 1 for success, 0 or -1 for failure, as each function says.
 *
 * A seconds count is the signed 32-bit number of seconds since 1970-01-01 00:00:00, -1 for a time
 * that it cannot hold. Where time_t is wider, results are extended with their sign and of arguments
 * only the low 32 bits count.
 *
 * A date format code selects one of ten layouts by its last decimal digit:
 *
 *   0 YY-MM-DD   1 YY/MM/DD   2 YY.MM.DD     year first
 *   3 MM-DD-YY   4 MM/DD/YY   5 MM.DD.YY     month first
 *   6 DD-MM-YY   7 DD/MM/YY   8 DD.MM.YY     day first
 *   9 YYYY-MM-DD                             the standard form
 *
 * A calendar mode is 0 for the Gregorian calendar, 1 for the Persian and 2 for the Islamic one. The
 * library keeps no such setting: callers pass it each time.
 */
#ifndef UTIL_TIMEUTILS_H
#define UTIL_TIMEUTILS_H

#include <time.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The broken-down time is the C library's own record, trailing fields included. */
typedef struct tm TTime;

/* The calendar modes. */
enum {
    CALENDAR_GREGORIAN = 0,
    CALENDAR_PERSIAN = 1,
    CALENDAR_ISLAMIC = 2,
};

/* The text types: the forms in which a record is written and read. */
enum {
    TEXT_DATE = 1,           /* laid out by a date format code */
    TEXT_TIME = 2,           /* 08:09:10 */
    TEXT_TIME_NO_SECOND = 3, /* 08:09 */
    TEXT_DATE_TIME = 4,      /* 2024-05-07T08:09:10 */
};

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

#pragma GCC visibility push(default)

/*
 * Records and seconds counts. Encoding counts a record as it stands, with no zone; decoding goes
 * through the C library's local time. On a terminal whose zone is not UTC, decoding an encoded
 * record therefore moves it by the zone's offset. Callers know that.
 */

/* The lengths of the months of a common year (row 0) and of a leap year (row 1). Read-only. */
extern const int _ytab[2][12];

/* Seconds that mktime_1 adds to its count. 0 unless a caller sets it; the library never does. */
extern int _timezone;

/* Seconds that mktime_1 takes off when the record's tm_isdst is not 0. 0 unless a caller sets it.
 */
extern int _dstbias;

/* Read by nothing; stands beside the other two for programs that refer to it. */
extern int _daylight;

/*
 * Brings the fields of rec into their ranges, sets tm_wday and tm_yday, and returns the seconds
 * count of the record, or -1 when it lies before 1970 or beyond 2038-01-19 03:14:07.
 *
 * Good to know:
 *  - The fields are brought into range on failure too. tm_wday and tm_yday are left alone for years
 *    before 1970, but set beyond 2038.
 *  - tm_isdst is not changed; any value but 0 counts as summer time.
 *  - Fields so large that sums of them overflow wrap at 32 bits.
 */
time_t mktime_1(TTime* rec);

/*
 * Returns mktime_1(rec).
 *
 * Good to know: tm_isdst is set to -1 first, and stays so, also on failure.
 */
time_t EncodeTime(TTime* rec);

/* Fills out with the local time of t, trailing fields included. Returns out. */
TTime* DecodeTime(TTime* out, time_t t);

/*
 * Returns the old packed time of rec: seconds since 2000-01-01 in a reckoning of 31-day months and
 * 372-day years. Reads the six date and time fields only.
 *
 * Good to know: nothing is brought into range, and dates beyond 2066-10-25 03:14:07 wrap.
 */
int OldEncodeTime(const TTime* rec);

/*
 * Fills the six date and time fields of out from the old packed time v and leaves all others.
 * Returns out.
 *
 * Good to know: v may name a date that does not exist, such as 30 February. A negative v, before
 * 2000, gives negative fields.
 */
TTime* OldDecodeTime(int v, TTime* out);

/* Returns the seconds since the system booted. */
int GetSysSecond(void);

/*
 * Seconds counts and records as fixed texts.
 */

/*
 * Reads "2024-05-07" into rec. Returns 1, or 0 for a NULL text.
 *
 * Good to know: the text is not checked; fields that it does not give stay as they were. rec must
 * not be NULL.
 */
int StrTimeToTm(struct tm* rec, const char* text);

/*
 * Reads "2024-05-07T08:09:10" into rec. Returns 1, or 0 when either is NULL.
 *
 * Good to know: as for StrTimeToTm, fields that the text does not give stay as they were.
 */
int StrTimeToTTime(TTime* rec, const char* text);

/*
 * Returns the seconds count of "2024-05-07T08:09:10", -1 for a date before 1970, or 0 for a NULL
 * or empty text.
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
 * Writes the local time of t as "08:09" and clears the rest of buf's size bytes. Returns 1, or 0
 * for a NULL buf. Below 6 bytes the text does not fit and may be missing.
 */
int SecToHMTime(char* buf, int size, time_t t);

/*
 * Writes the local date of t as "2024-05-07" and clears the rest of buf's size bytes. Returns 1, or
 * 0 for a NULL buf. Below 11 bytes the text does not fit and may be missing.
 */
int SecToYMDTime(char* buf, int size, time_t t);

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
 * Returns the signed decimal number in text, or default_value when text is empty, is '-' alone or
 * holds anything but digits and blanks before its end.
 *
 * Good to know: blanks are skipped while the value is 0 ("- 7" is -7, "0 42" is 42, "   " is 0); a
 * blank behind another value ends the number. Numbers beyond 32 bits wrap.
 */
int ConvertStrToInt(const char* text, int default_value);

/*
 * Date texts. A year of two digits is widened by the calendar: Gregorian years above 37 belong to
 * the 1900s, others to the 2000s; Persian years above 16 to the 1300s, others to the 1400s; Islamic
 * years always to the 1400s. The four digits of layout 9 are taken as they stand.
 */

/*
 * Writes a date in the layout of code. Returns 0.
 *
 * Good to know:
 *  - There is no size: dst must hold 11 bytes for layout 9 and 9 bytes for the others, and more for
 *    numbers that need more digits.
 *  - The separators always go to positions 2 and 5, also over a digit of a number that is wider.
 *  - A negative code writes the year first, with '-' when it is divisible by 3, else with '.'.
 */
int FormatDate(char* dst, int code, int year, int month, int day);

/*
 * Reads a date in the layout of code from fixed positions of text; no argument may be NULL.
 * Returns 1.
 *
 * Good to know: separators are not looked at. A number ends at its first character that is no
 * digit; one that the text does not reach is 0.
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
 * Writes the date of a build, "May 17 2024" as compilers give it, as "20240517".
 *
 * Returns 1, or 0 when either is NULL.
 *
 * Good to know: an unknown month is 00 and the result still 1. Month names are compared by their
 * first three letters, case included. Of a text only the first 39 characters count.
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
 * Good to know: a text is in 12-hour form when it holds an 'A' or a 'P' anywhere. The hour is read
 * from the first two characters, and what follows them is kept, up to 63 characters in all.
 */
int HourTimeFormatToCurMode(char* buf, int size, int to24);

/* HourTimeFormatToCurMode to 24-hour form. It logs under its own name. */
int HourTimeFormatTo24Mode(char* buf, int size);

/*
 * Splitters: the numbers of a text such as "2024-05-17" or "08:30:15". Each overwrites the
 * separators between the numbers that it reads with terminators, so text must be writable. At a
 * missing separator the work stops, and the numbers not yet reached stay as they were.
 */

void ParseDate(char* text, int* year, int* month, int* day);
void ParseTime(char* text, int* hour, int* minute, int* second);
void ParseTimeNoSec(char* text, int* hour, int* minute);
void ParseDateNoYear(char* text, int* month, int* day);

/*
 * Calendars. None of these functions checks a date: day 31 of a short month or month 13 counts on
 * to whatever day it falls on.
 *
 * The Persian calendar follows the 2820-year rule. By that rule 1403 is a common year, where
 * calendars printed in Iran have a leap year, so dates of 1404 differ from theirs by one day:
 * 2025-03-21 is 1404-01-02 here. The Islamic calendar is the tabular one with 11 leap years in 30.
 */

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
 * date of any calendar alike: tm_year is the year less 1900, tm_mon the month less 1.
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
 * code or 4 for a date, 'T' or a blank, and a time.
 *
 * Returns 0, 1 in mode 0, which changes nothing, or -1 for a NULL text.
 *
 * Good to know:
 *  - ChrisToLocalTime returns 1 for success, this function 0.
 *  - Seconds are not read and come out as 00. The types 2 and 3 are not read at all and come out as
 *    "00:00:00" and "00:00".
 *  - In type 4 code only tells how the date is read; it is written in the standard form.
 *  - In type 1 size is not used: 11 bytes are needed.
 */
int LocalTimeToChris(int calendar_mode, char* text, int size, int text_type, int code);

/*
 * Rewrites a Gregorian text as one of the calendar, with the habits of LocalTimeToChris.
 *
 * Returns 1, also in mode 0, or -1 for a NULL text.
 */
int ChrisToLocalTime(int calendar_mode, char* text, int size, int text_type, int code);

/*
 * Converts the local time of now to the calendar, inside the C library's shared record.
 *
 * Returns 1, or 0 for a NULL out.
 *
 * Good to know: nothing is written to out. The result stands in the record that localtime returns,
 * until its next call. Outside the years 2000 to 2037 tm_year is set to 2000 itself first.
 */
int GetLocalTime(int calendar_mode, TTime* out);

/*
 * Records as texts.
 */

/*
 * Writes rec as text_type says, dates of type 1 in the layout of code. Returns 0.
 *
 * Good to know: in type 1 size is not used, and the sizes of FormatDate hold. An unknown type
 * writes nothing.
 */
int TTimeToStr(TTime rec, char* buf, int size, int text_type, int code);

/*
 * Reads a text of type 1 or 4 into rec: date, hour and minute. A two-digit year is widened by the
 * calendar; the date is not converted.
 *
 * Returns 0, or -1 when either is NULL.
 *
 * Good to know: what the text does not give counts as 0, so a text of another type sets tm_year to
 * -1900, tm_mon to -1 and the rest to 0. tm_sec and the other fields stay as they were.
 */
int ParseStrToTTime(const char* text, TTime* out, int text_type, int code, int calendar_mode);

/*
 * Writes rec as "2024-05-07T08:09:10". Returns 1, or 0 when either is NULL, which is logged.
 */
int TTimeToStrTime(char* dst, int size, const TTime* rec);

/*
 * The clock, in local time. Where a clock text shows a year outside 2000 to 2037, it shows 2000
 * instead: such a clock was never set. Month and day are shown as they are.
 */

/*
 * Clears dst and writes the current time in the text type kind, dates of type 1 in the layout of
 * code.
 *
 * Returns 0, or -1 for a NULL dst.
 *
 * Good to know: in type 1 size only tells what is cleared; the sizes of FormatDate hold. An unknown
 * kind leaves dst empty.
 */
int GetCurDateTime(char* dst, int size, int kind, int code);

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
 * Sleeps for about ms milliseconds.
 *
 * Good to know: a signal does not end the sleep, but afterwards the time that has passed is known
 * in whole seconds of the wall clock only. The sleep may then be up to a second too long or too
 * short, and ends at the next signal when the clock was set back, or forward by more than ms.
 */
void Trmmsleep(unsigned int ms);

/*
 * Sets the system clock to rec, counted without zone as by EncodeTime, plus one second. The old and
 * the new date are printed to standard output by the shell command "date".
 *
 * Returns 1, whether or not the clock could be set.
 *
 * Good to know: rec is brought into range and its tm_isdst set to -1. A record before 1970 sets
 * 1970-01-01 00:00:00.
 */
int SyncSysTime(TTime* rec);

/*
 * The Ethernet address, of 6 bytes, most significant first.
 */

/*
 * Reads six groups of hexadecimal digits, separated by colons, into the 6 bytes at out.
 *
 * Returns 0, or -1 for a malformed text, which leaves out as it was.
 *
 * Good to know: a group may have one digit, none (0), or more than two if its value is at most 255.
 * What follows a sixth colon is not looked at.
 */
int str2mac(const char* text, unsigned char* out);

/*
 * Reads the address of eth0 into buf: as "00:1a:2b:3c:4d:5e" if form is 1, which needs 18 bytes, as
 * 6 bytes if form is 2, or as many of the 6 bytes as size holds in any other form.
 *
 * Returns 1, or 0 when size is too small or there is no such interface, which is logged; buf is
 * then left as it was.
 */
int GetMac(void* buf, int size, int form);

/*
 * Sets the address of an interface and reads it back, up to 500 times with pauses of 100 ms, until
 * the interface shows it. Names are cut to 15 characters.
 *
 * Returns the result of the last reading: 0 when the address could be read, also when it still is
 * another one; -1 when not, or when an argument is NULL or there is no socket, which is logged.
 *
 * Good to know: the interface is neither taken down nor brought up; many drivers want it down. Each
 * attempt logs the current error text twice, after success too.
 */
int set_mac_addr(const char* interface, const unsigned char* mac);

/*
 * Ticks: for measuring how long something took.
 */

/*
 * Returns the wall clock as a count of milliseconds that wraps every 2^32 ms, about 49.7 days. It
 * never fails.
 *
 * Good to know: only the difference of two ticks, taken in 32 bits, has a meaning. The count jumps
 * when the clock is set.
 */
int TrGetTickCount(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
