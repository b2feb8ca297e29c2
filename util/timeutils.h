/*
 * Time values, texts, calendars and the clock.
 */
#ifndef UTIL_TIMEUTILS_H
#define UTIL_TIMEUTILS_H

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

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
