// The source name under which all of timeutils logs.
#ifndef UTIL_TIMEUTILS_LOG_TAG_H
#define UTIL_TIMEUTILS_LOG_TAG_H

constexpr char kLogTag[] = "timeutils";

#endif
