// The level mask: which lines are written at all.

#include "log/levels.h"

#include <cstring>

#include "log/state.h"

uint8_t gLogMask;

int SetLogLevel(unsigned int bits, int on) {
    if (on != 0 && on != 1) {
        return -1;
    }
    gLogMask = static_cast<uint8_t>(on ? gLogMask | bits : gLogMask & ~bits);
    return 0;
}

unsigned char GetLogLevel(void) {
    return gLogMask;
}

void SetLogLevelByStr(const char* letters) {
    if (letters == nullptr) {
        return;
    }
    for (const LogLevel& level : kLogLevels) {
        if (strchr(letters, level.letter) != nullptr) {
            (void)SetLogLevel(static_cast<unsigned int>(level.bit), 1);  // cannot fail with 1
        }
    }
}
