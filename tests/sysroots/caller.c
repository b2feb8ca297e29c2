/* A C program of the terminal, built with a sysroot: what passes through it and the library. */

#include <errno.h>
#include <stdio.h>
#include <sys/types.h>

#include <orvautil/fileutils.h>
#include <orvautil/log.h>
#include <orvautil/timeutils.h>
#include <orvautil/trstrutils.h>

static void ShowLayout(void) {
    printf("time_t %zu off_t %zu\n", sizeof(time_t), sizeof(off_t));
}

/* Counts have 32 bits, however wide time_t is; the environment has the zone UTC. */
static void ShowSeconds(void) {
    TTime last = {.tm_year = 138, .tm_mday = 19, .tm_hour = 3, .tm_min = 14, .tm_sec = 7};
    printf("last second %lld\n", (long long)mktime_1(&last));
    ++last.tm_sec;
    printf("one more %lld\n", (long long)mktime_1(&last));
    printf("of a text %lld\n", (long long)StrTimeToSec("2024-05-07T08:09:10"));
    TTime record;
    DecodeTime(&record, (time_t)1715069350);
    printf("hour %d minute %d\n", record.tm_hour, record.tm_min);
    if (sizeof(time_t) > 4) { /* only the low 32 bits count */
        DecodeTime(&record, (time_t)((1LL << 32) + 1715069350));
        printf("hour %d minute %d\n", record.tm_hour, record.tm_min);
    }
}

static void ShowReadDate(void) {
    struct tm record = {.tm_wday = 9, .tm_yday = 999};
    StrTimeToTm(&record, "2024-05-07");
    printf("%d-%d-%d wday %d yday %d\n", record.tm_year, record.tm_mon, record.tm_mday,
           record.tm_wday, record.tm_yday);
}

static void ShowFolder(const char* folder) {
    struct dirent entry;
    struct stat status;
    TrOpenFolder(folder);
    while (TrGetFileName(&entry, &status) == 1) {
        printf("%s has %lld bytes\n", entry.d_name, (long long)status.st_size);
    }
    TrCloseFolder();
}

static void ShowLog(void) {
    SetLogLevelByStr("E");
    SetLogProgName("caller");
    errno = ENOENT;
    PrintLog(LOG_ERROR, "caller", "ShowLog", 1, "%m");
    SetLogLevel(LOG_ERROR, 0);
}

int main(int argc, char* argv[]) {
    ShowLayout();
    ShowSeconds();
    ShowReadDate();
    for (int i = 1; i < argc; ++i) {
        ShowFolder(argv[i]);
    }
    ShowLog();
    const unsigned short words[] = {1, 2};
    printf("checksum %d\n", in_chksum(words, 3));
    return 0;
}
