// The replaced clock calls.

#include "tests/support/fake_clock.h"

namespace {

bool is_faked = false;
struct timeval fake_now;

}  // namespace

FakeClock::FakeClock(time_t seconds, suseconds_t microseconds) {
    Set(seconds, microseconds);
}

FakeClock::~FakeClock() {
    is_faked = false;
}

void FakeClock::Set(time_t seconds, suseconds_t microseconds) {
    is_faked = true;
    fake_now.tv_sec = seconds;
    fake_now.tv_usec = microseconds;
}

void FakeClock::Advance(time_t seconds) {
    fake_now.tv_sec += seconds;
}

extern "C" {

time_t __real_time(time_t* out);
int __real_gettimeofday(struct timeval* now, void* zone);

time_t __wrap_time(time_t* out) {
    if (!is_faked) {
        return __real_time(out);
    }
    if (out != nullptr) {
        *out = fake_now.tv_sec;
    }
    return fake_now.tv_sec;
}

int __wrap_gettimeofday(struct timeval* now, void* zone) {
    if (!is_faked) {
        return __real_gettimeofday(now, zone);
    }
    *now = fake_now;
    return 0;
}
}
