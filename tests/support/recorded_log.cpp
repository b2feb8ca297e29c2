// The replaced PrintLog.

#include "tests/support/recorded_log.h"

#include <cerrno>
#include <cstdio>

#include "log/log.h"
#include "tests/support/log_lines.h"

extern "C" {

void __real_PrintLog(int level, const char* file, const char* function, int line,
                     const char* format, ...);
void __wrap_PrintLog(int level, const char* file, const char* function, int line,
                     const char* format, ...) {
    const int kept_errno = errno;
    va_list values;
    va_start(values, format);
    const LogLine made = MakeLogLine(level, file, function, line, format, values);
    va_end(values);
    if (RecordedLog::active()) {
        RecordedLog::active()(ToText(made));
    }
    __real_PrintLog(level, file, function, line, "%s", made.message.c_str());
    errno = kept_errno;
}
}
