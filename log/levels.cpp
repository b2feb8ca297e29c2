// The level mask: which lines are written at all.

#include <cstring>

#include "log/log.h"
#include "log/state.h"

uint8_t gLogMask;

namespace {

struct LevelLetter {
    char letter;
    unsigned int level;
};

constexpr LevelLetter kLevelLetters[] = {
    {'E', LOG_ERROR},
    {'W', LOG_WARNING},
    {'I', LOG_INFO},
    {'D', LOG_DEBUG},
};

}  // namespace

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
    for (const LevelLetter& known : kLevelLetters) {
        if (strchr(letters, known.letter) != nullptr) {
            (void)SetLogLevel(known.level, 1);  // cannot fail with 1
        }
    }
}
