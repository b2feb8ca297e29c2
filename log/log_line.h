// The one way in which our own sources write a log line. Only a macro knows its caller's line.
#ifndef LOG_LOG_LINE_H
#define LOG_LOG_LINE_H

#include "log/log.h"

// Logs under the source name kLogTag, of which each library part defines its own.
#define LOG(level, ...) PrintLog((level), kLogTag, __func__, __LINE__, __VA_ARGS__)

#endif
