// The clock, sleeping, and how long something took.
#include <orvautil/timeutils.h>
#include <stdio.h>
#include <string.h>

enum { STANDARD = 9, PAUSE_MS = 50, MUCH_MS = 60 * 1000 };

int main(void) {
    // The current time in local time, as texts and as numbers.
    char now[20];
    GetCurDateTime(now, sizeof now, TEXT_DATE_TIME, STANDARD);
    printf("date and time take %zu characters\n", strlen(now));
    char date[9];
    GetCurDate(date, sizeof date, 0);
    char time_of_day[6];
    GetCurTimeNoSec(time_of_day, sizeof time_of_day);
    fprintf(stderr, "It is %s, or %s %s.\n", now, date, time_of_day);

    TClockDT clock;
    GetClockDT(&clock);
    TTime rec;
    GetTime(&rec);
    printf("the month is from 1 in TClockDT and from 0 in TTime: %s\n",
           clock.month >= 1 && clock.month <= 12 && rec.tm_mon <= 11 ? "yes" : "no");

    // Good to know: a tick has 32 bits and wraps after 49.7 days. Take differences in unsigned
    // numbers, and only these: the wall clock is counted, so setting it moves the ticks.
    const unsigned int begin = (unsigned int)TrGetTickCount();
    Trmmsleep(PAUSE_MS);
    const unsigned int took_ms = (unsigned int)TrGetTickCount() - begin;
    printf("slept for the pause: %s\n",  // ticks are whole milliseconds, so one may be missing
           took_ms >= PAUSE_MS - 1 && took_ms < MUCH_MS ? "yes" : "no");

    printf("the system is up: %s\n", GetSysSecond() > 0 ? "yes" : "no");
    // SyncSysTime sets the clock. It needs root, and its record counts without zone.
    return 0;
}
