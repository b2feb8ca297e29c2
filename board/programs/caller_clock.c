/* Scenarios that set and read the clock. */
#define _GNU_SOURCE
#include <errno.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include "board/programs/caller.h"
#include "util/timeutils.h"

enum { kMsPerSecond = 1000, kNsPerMs = 1000000 };

static int64_t ReadMs(clockid_t clock) {
    struct timespec now;
    clock_gettime(clock, &now);
    return (int64_t)now.tv_sec * kMsPerSecond + now.tv_nsec / kNsPerMs;
}

/* A tick between two readings of the clock. */
static void PrintTick(void) {
    const int64_t before = ReadMs(CLOCK_REALTIME);
    const int tick = TrGetTickCount();
    const int64_t after = ReadMs(CLOCK_REALTIME);
    printf("tick %lld %d %lld\n", (long long)before, tick, (long long)after);
}

/* YEAR MONTH DAY HOUR MINUTE SECOND: sets the clock; prints how long all took, in ms. */
static void RunSyncSysTime(char** words) {
    TTime record;
    memset(&record, 0, sizeof record);
    record.tm_year = atoi(words[0]) - 1900;
    record.tm_mon = atoi(words[1]) - 1;
    record.tm_mday = atoi(words[2]);
    record.tm_hour = atoi(words[3]);
    record.tm_min = atoi(words[4]);
    record.tm_sec = atoi(words[5]);
    const int64_t start = ReadMs(CLOCK_MONOTONIC);
    PrintTick();
    const int result = SyncSysTime(&record);
    PrintTick();
    printf("took %lld\n", (long long)(ReadMs(CLOCK_MONOTONIC) - start));
    printf("result %d\n", result);
    printf("record %d-%d-%d %d:%d:%d isdst %d\n", record.tm_year + 1900, record.tm_mon + 1,
           record.tm_mday, record.tm_hour, record.tm_min, record.tm_sec, record.tm_isdst);
}

/* The kernel's zone; the C library does not tell it. */
static int KernelZone(void) {
    struct timezone zone = {0, 0};
    syscall(SYS_gettimeofday, NULL, &zone);
    return zone.tz_minuteswest;
}

/* MINUTES and a date: sets the clock while the kernel has a zone, and prints that one then. */
static void RunSyncSysTimeInZone(char** words) {
    const struct timezone zone = {atoi(words[0]), 0}, none = {0, 0};
    settimeofday(NULL, &zone);
    RunSyncSysTime(words + 1);
    printf("zone %d\n", KernelZone());
    settimeofday(NULL, &none);
}

/* A date: sets the clock as a user who may not. */
static void RunSyncSysTimeWithoutRight(char** words) {
    enum { kNobody = 65534 };
    if (seteuid(kNobody) != 0) {
        abort();
    }
    RunSyncSysTime(words);
    if (seteuid(0) != 0) {
        abort();
    }
}

/* What the C library makes of a time and a zone in one call: result and error. */
static void RunTimeAndZone(char** words) {
    (void)words;
    struct timeval now;
    struct timezone zone = {0, 0};
    gettimeofday(&now, NULL);
    errno = 0;
    const int result = settimeofday(&now, &zone);
    printf("result %d, %s\n", result, strerror(errno));
}

const Scenario kClockScenarios[] = {
    {"SyncSysTime", RunSyncSysTime},
    {"SyncSysTimeInZone", RunSyncSysTimeInZone},
    {"SyncSysTimeWithoutRight", RunSyncSysTimeWithoutRight},
    {"TimeAndZone", RunTimeAndZone},
    {NULL, NULL},
};
