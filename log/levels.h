// The levels by their names.
#ifndef LOG_LEVELS_H
#define LOG_LEVELS_H

#include "log/log.h"

struct LogLevel {
    int bit;
    char letter;       // on a command line
    const char* name;  // in a line
};

constexpr LogLevel kLogLevels[] = {
    {LOG_ERROR, 'E', "Error"},
    {LOG_WARNING, 'W', "Warning"},
    {LOG_INFO, 'I', "Info"},
    {LOG_DEBUG, 'D', "Debug"},
};

#endif
