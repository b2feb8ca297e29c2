// The one way in which our own sources write a log line. Only a macro knows its caller's line.
#ifndef LOG_LOG_LINE_H
#define LOG_LOG_LINE_H

#include "log/log.h"

// The source names that lines carry: one for each library part, whichever of its files logs.
namespace log_tag {
constexpr char kFileutils[] = "fileutils";
constexpr char kMain[] = "main";
constexpr char kTimeutils[] = "timeutils";
constexpr char kTrstrutils[] = "trstrutils";
constexpr char kUdisk[] = "udiskdetection";
}  // namespace log_tag

// Logs under the source name kLogTag, which each source that logs takes from the names above.
#define LOG(level, ...) PrintLog((level), kLogTag, __func__, __LINE__, __VA_ARGS__)

#endif
