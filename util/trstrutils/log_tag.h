// The source name under which all of trstrutils logs.
#ifndef UTIL_TRSTRUTILS_LOG_TAG_H
#define UTIL_TRSTRUTILS_LOG_TAG_H

constexpr char kLogTag[] = "trstrutils";

#endif
