/* A program of other firmware: it calls the library, and switches the library's log on. */
#include <stdio.h>
#include <string.h>

#include <orvautil/fileutils.h>
#include <orvautil/log.h>
#include <orvautil/timeutils.h>
#include <orvautil/trstrutils.h>

int main(void) {
    TTime noon;
    char text[16] = "abc";
    memset(&noon, 0, sizeof noon);
    noon.tm_year = 124;
    noon.tm_mon = 1;
    noon.tm_mday = 29;
    noon.tm_hour = 12;
    const long seconds = (long)EncodeTime(&noon);
    printf("seconds %ld, weekday %d\n", seconds, noon.tm_wday);
    printf("picture %d\n", JudgePicFile("logo.bmp"));

    Str2Upcase(NULL, 1); /* not told: the log is still off */
    SetLogProgName("prog");
    SetLogLevel(LOG_WARNING | LOG_INFO, 1);
    Str2Upcase(NULL, 1);
    Str2Upcase(text, 2);
    PrintLog(LOG_INFO, "prog", __func__, __LINE__, "text %s", text);
    return 0;
}
