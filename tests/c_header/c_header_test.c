/* The public headers from C: every one is included, and each library part is called. */

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

#include "log/log.h"
#include "platform/troption.h"
#include "splash/splash.h"
#include "udisk/udiskdetection.h"
#include "util/fileutils.h"
#include "util/timeutils.h"
#include "util/trstrutils.h"

static int failures = 0;

static void Check(int holds, const char* what, int line) {
    if (!holds) {
        fprintf(stderr, "line %d: %s does not hold\n", line, what);
        ++failures;
    }
}

#define CHECK(condition) Check((condition), #condition, __LINE__)

static void TestLog(void) {
    const int run_mode = 2;
    CHECK(LOG_ERROR == 1 && LOG_WARNING == 2 && LOG_INFO == 4 && LOG_DEBUG == 8);
    CHECK(GetLogLevel() == 0);
    CHECK(SetLogLevel(LOG_DEBUG, 1) == 0);
    SetLogLevelByStr("E");
    CHECK(GetLogLevel() == (LOG_DEBUG | LOG_ERROR));
    CHECK(SetLogLevel(LOG_DEBUG, 2) == -1);
    CHECK(SetLogProgName("c_header_test") == 0);
    CHECK(SetLogOption(LOG_OPT_RUNMODE, &run_mode) == 0);
    CHECK(RegisterLogThread("main") == 0);
    CHECK(RegisterLogThread("main") == 1);
    PrintLog(LOG_ERROR, "c_header_test", "TestLog", __LINE__, "%s %d", "a line of", 2);
}

static void TestOptions(const char* folder) {
    char path[64];
    char value[8] = "before";
    snprintf(path, sizeof path, "%s/options.txt", folder);
    FILE* file = fopen(path, "w");
    fputs("name=0123456789\n", file);
    fclose(file);
    setenv("ORVATOOL_OPTIONS", path, 1);
    CHECK(InitOption() == 1);
    CHECK(LoadOptionStr("missing", value, sizeof value) == 0);
    CHECK(strcmp(value, "before") == 0);
    CHECK(LoadOptionStr("name", value, sizeof value) == 1);
    CHECK(strcmp(value, "0123456") == 0);
    remove(path);
    CHECK(InitOption() == 0);
}

static void TestFiles(const char* folder) {
    char path[64];
    snprintf(path, sizeof path, "%s/a/b", folder);
    CreateMulvPath(path);
    CHECK(rmdir(path) == -1);
    *strrchr(path, '/') = '\0';
    CHECK(rmdir(path) == 0);
}

static void TestTime(void) {
    TTime record;
    memset(&record, 0, sizeof record);
    record.tm_year = 100;
    record.tm_mday = 1;
    struct tm* same_type = &record;
    CHECK(same_type->tm_year == 100);
    CHECK(IsLeapYear(2000) == 1);
    CHECK(GetMaxDaysOfGregoMonth(1900, 2) == 28);
    const unsigned int earlier = (unsigned int)TrGetTickCount();
    CHECK((unsigned int)TrGetTickCount() - earlier < 3600000U);
}

static void TestTexts(void) {
    char text[] = "a=b";
    char first[sizeof text];
    char rest[sizeof text];
    CHECK(SplitByChar(text, first, rest, '=') == rest + 2);
    CHECK(strcmp(first, "a") == 0);
    CHECK(strcmp(rest, "b") == 0);
}

static void TestPins(void) {
    CHECK(GpioReadPin(0) == -1);
    CHECK(GpioPutBytes(NULL, 6) == -1);
}

int main(void) {
    char folder[] = "/tmp/c_header_XXXXXX";
    if (mkdtemp(folder) == NULL) {
        perror(folder);
        return 1;
    }
    TestLog();
    TestOptions(folder);
    TestFiles(folder);
    TestTime();
    TestTexts();
    TestPins();
    CHECK(rmdir(folder) == 0);

    /* Not called, because they would mount; that they link is enough. */
    int (*const do_mount)(void) = DoMountUdisk;
    void (*const do_umount)(void) = DoUmount;
    CHECK(do_mount != NULL && do_umount != NULL);
    return failures == 0 ? 0 : 1;
}
