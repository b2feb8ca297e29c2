/* The types and constants of util/timeutils.h. */
#ifndef UTIL_TIMEUTILS_TYPES_H
#define UTIL_TIMEUTILS_TYPES_H

#include <time.h>

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

#endif
