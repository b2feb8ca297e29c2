// A clock that the test sets. Link with WRAP time gettimeofday.
#ifndef TESTS_SUPPORT_FAKE_CLOCK_H
#define TESTS_SUPPORT_FAKE_CLOCK_H

#include <sys/time.h>

#include <ctime>

// While it lives, time and gettimeofday answer from here; afterwards from the system again.
class FakeClock {
public:
    explicit FakeClock(time_t seconds, suseconds_t microseconds = 0);
    ~FakeClock();

    void Set(time_t seconds, suseconds_t microseconds = 0);
    void Advance(time_t seconds);
};

#endif
