// The source name under which all of fileutils logs.
#ifndef UTIL_FILEUTILS_LOG_TAG_H
#define UTIL_FILEUTILS_LOG_TAG_H

constexpr char kLogTag[] = "fileutils";

#endif
