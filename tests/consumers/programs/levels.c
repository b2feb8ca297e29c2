/* Beside <syslog.h>, whose levels have other values: C and C++. */
#include <stdio.h>
#include <syslog.h>

#define ORVAUTIL_PREFIXED_LEVELS
#include <orvautil/log.h>

int main(void) {
    const int levels[] = {ORVAUTIL_LOG_ERROR, ORVAUTIL_LOG_WARNING, ORVAUTIL_LOG_INFO,
                          ORVAUTIL_LOG_DEBUG};
    SetLogLevel(ORVAUTIL_LOG_WARNING, 1);
    for (int i = 0; i < 4; ++i) {
        PrintLog(levels[i], "levels", "main", 1, "level %d", levels[i]);
    }
    printf("syslog's warning is %d\n", LOG_WARNING);
    return 0;
}
