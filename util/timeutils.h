/* SPDX-License-Identifier: MIT */
/*
 * Time values, date and time texts, calendars, the clock and the Ethernet address.
 *
 * This is the header to include. The functions stand by topic in the headers that it includes.
 *
 * Records and buffers belong to the caller; texts are zero-terminated. Where a buffer's size is
 * passed as int, it counts the terminator, longer texts are cut to it, and with a size of 0 or
 * below nothing is written. Results differ: each function says its own.
 *
 * NULL never ends the caller, but for the arguments of DeFormatDate and the record of StrTimeToTm.
 * An output that is NULL is left out and the others are written; a function that returns its
 * argument returns NULL; without a text to read or a place to write to, nothing is done. Where NULL
 * has another result, the function says so. Only TTimeToStrTime and set_mac_addr log a NULL.
 *
 * The local times go through the C library's one shared record, that of localtime: every function
 * that reads the clock as a text or a record, GetLocalTime, DecodeTime, SecToHMTime and
 * SecToYMDTime overwrite it, and so does any log line that is enabled. They are not for two threads
 * at once.
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
#ifndef ORVAUTIL_TIMEUTILS_H
#define ORVAUTIL_TIMEUTILS_H

#include "timeutils/calendars.h"
#include "timeutils/clock.h"
#include "timeutils/ethernet.h"
#include "timeutils/texts.h"
#include "timeutils/values.h"

#endif
