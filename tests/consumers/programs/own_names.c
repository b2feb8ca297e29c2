/*
 * Calls functions of the library that call others inside it: of calendars, records, the log. The
 * test defines functions of its own under all other names of the library; none may be called.
 */
#include <stdio.h>
#include <string.h>

#include <orvautil/log.h>
#include <orvautil/timeutils.h>
#include <orvautil/trstrutils.h>

int main(void) {
    int numbers[] = {3, 1, 2};
    TTime day;
    memset(&day, 0, sizeof day);
    day.tm_year = 124;
    day.tm_mon = 1;
    day.tm_mday = 29;
    const long seconds = (long)EncodeTime(&day);
    ChrisTmToLocalTm(CALENDAR_PERSIAN, &day);
    printf("%ld: %d-%d-%d\n", seconds, day.tm_year, day.tm_mon, day.tm_mday);
    MergeSort(numbers, 3);
    printf("%d %d %d\n", numbers[0], numbers[1], numbers[2]);
    SetLogLevel(LOG_WARNING, 1);
    Str2Upcase(NULL, 1);
    return 0;
}
