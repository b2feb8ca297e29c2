// The millisecond tick.

#include <sys/time.h>

#include "util/timeutils.h"
#include "util/wrapping.h"

namespace {

constexpr uint32_t kMsPerSecond = 1000;
constexpr int kUsPerMs = 1000;

}  // namespace

int TrGetTickCount(void) {
    struct timeval now;
    (void)gettimeofday(&now, nullptr);  // cannot fail with these arguments
    const auto seconds = static_cast<uint32_t>(now.tv_sec);
    const auto ms = static_cast<uint32_t>(now.tv_usec / kUsPerMs);
    return WrapToInt32(seconds * kMsPerSecond + ms);
}
