// Sleeping for milliseconds.

#include <sys/select.h>

#include <cerrno>
#include <cstdint>

#include "log/log_line.h"
#include "util/timeutils.h"
#include "util/timeutils/log_tag.h"

namespace {

constexpr uint32_t kMsPerSecond = 1000;
constexpr uint32_t kUsPerMs = 1000;

// The whole seconds since start by the wall clock, in ms. Jumps with the clock.
uint32_t ElapsedMs(time_t start) {
    return kMsPerSecond * (static_cast<uint32_t>(time(nullptr)) - static_cast<uint32_t>(start));
}

// 0 when the time has run out.
int WaitMs(uint32_t ms) {
    struct timeval timeout;
    timeout.tv_sec = static_cast<time_t>(ms / kMsPerSecond);
    timeout.tv_usec = static_cast<suseconds_t>(ms % kMsPerSecond * kUsPerMs);
    return select(0, nullptr, nullptr, nullptr, &timeout);
}

}  // namespace

void Trmmsleep(unsigned int ms) {
    const time_t start = time(nullptr);
    uint32_t elapsed_ms = 0;  // in the first pass
    while (elapsed_ms <= ms) {
        const int result = WaitMs(ms - elapsed_ms);
        if (result == 0) {
            return;
        }
        if (result == -1) {
            LOG(LOG_DEBUG, "select ret is : %d, errno : %d", result, errno);
        }
        elapsed_ms = ElapsedMs(start);
    }
}
