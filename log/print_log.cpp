// One log line: the head, the message and a newline, straight onto the standard output stream.

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <ctime>

#include "log/levels.h"
#include "log/log.h"
#include "log/state.h"
#include "util/digits.h"
#include "util/time_units.h"

namespace {

constexpr int kYearLength = 4;  // a fifth digit is cut
constexpr int kStampSize = 1024;

const char* LevelName(int bits) {
    for (const LogLevel& level : kLogLevels) {
        if (level.bit == bits) {
            return level.name;
        }
    }
    return "Unknown";
}

// Writes the local time of now in the form 2024-03-05T14:07:09.
void FormatStamp(char (&stamp)[kStampSize]) {
    const time_t now = time(nullptr);
    const struct tm* local = localtime(&now);
    char* end = WriteNumber<kYearLength>(stamp, local->tm_year + kTmYearBase);
    end = std::min(end, stamp + kYearLength);
    *end++ = '-';
    end = WriteNumber<2>(end, local->tm_mon + 1);
    *end++ = '-';
    end = WriteNumber<2>(end, local->tm_mday);
    *end++ = 'T';
    end = WriteThree<2>(end, local->tm_hour, ':', local->tm_min, local->tm_sec);
    *end = '\0';
}

// Kept out of PrintLog: a line that is not enabled then costs a test and a return.
[[gnu::noinline]] void WriteLine(int level, const char* file, const char* function, int line,
                                 const char* format, va_list values) {
    // localtime sets errno on a terminal without zone file, and the message may show it by "%m".
    const int caller_errno = errno;
    char stamp[kStampSize];
    FormatStamp(stamp);
    if (gRunMode == 1) {
        const LogThreadSlot* thread = FindLogThread();
        printf("[%s:%s][%s] %s [%s %s %d]: ", gLogProgName, stamp, thread ? thread->name : "",
               LevelName(level), file, function, line);
    } else {
        printf("[%s:%s] %s [%s %s %d]: ", gLogProgName, stamp, LevelName(level), file, function,
               line);
    }
    errno = caller_errno;
    if (format != nullptr) {
        vfprintf(stdout, format, values);
    }
    putchar('\n');
    errno = caller_errno;
}

}  // namespace

// A line that is not enabled costs least without a guard, for which there is no array here.
__attribute__((no_stack_protector)) void PrintLog(int level, const char* file, const char* function,
                                                  int line, const char* format, ...) {
    if ((level & gLogMask) == 0) {
        return;
    }
    va_list values;
    va_start(values, format);
    WriteLine(level, file, function, line, format, values);
    va_end(values);
}
