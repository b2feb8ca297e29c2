/* Sets the library's _timezone, of which a program may hold the one copy. */
#include <stdio.h>
#include <string.h>

#include <orvautil/timeutils.h>

int main(void) {
    TTime start;
    memset(&start, 0, sizeof start);
    start.tm_year = 70;
    start.tm_mday = 1;
    _timezone = 3600;
    printf("%ld\n", (long)mktime_1(&start));
    return 0;
}
