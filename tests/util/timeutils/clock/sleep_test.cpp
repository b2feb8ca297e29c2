// Trmmsleep.

#include <gtest/gtest.h>
#include <sys/select.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/log_lines.h"
#include "util/timeutils.h"

namespace {

// How one select ends, and by how much the clock has moved meanwhile.
struct Wait {
    int result;
    int error = 0;
    time_t seconds = 0;
};

using Timeout = std::pair<long, long>;  // seconds, microseconds
using Timeouts = std::vector<Timeout>;

constexpr Wait kTimeUp = {0};

constexpr Wait Interrupted(time_t seconds) {
    return {-1, EINTR, seconds};
}

// While it lives, select ends as told; once no more is told, its time runs out. The clock moves
// only in select and, on request, whenever it is read.
struct FakeWaits {
    explicit FakeWaits(std::vector<Wait> told, time_t start = 1715062150)
        : waits(std::move(told)), now(start) {
        active = this;
    }
    ~FakeWaits() { active = nullptr; }
    FakeWaits(const FakeWaits&) = delete;
    FakeWaits& operator=(const FakeWaits&) = delete;

    std::vector<Wait> waits;
    time_t now;
    time_t seconds_per_reading = 0;
    Timeouts timeouts;  // of the calls
    bool had_descriptors = false;

    inline static FakeWaits* active = nullptr;
};

// The timeouts of the waits that sleeping takes.
Timeouts Sleep(unsigned int ms, std::vector<Wait> waits) {
    FakeWaits fake(std::move(waits));
    Trmmsleep(ms);
    EXPECT_FALSE(fake.had_descriptors);
    return fake.timeouts;
}

LogLine SelectLine(int error) {
    return {"Debug", "timeutils", "Trmmsleep",
            "select ret is : -1, errno : " + std::to_string(error)};
}

}  // namespace

extern "C" {

time_t __real_time(time_t* out);
time_t __wrap_time(time_t* out) {
    FakeWaits* fake = FakeWaits::active;
    if (fake == nullptr) {
        return __real_time(out);
    }
    const time_t now = fake->now;
    fake->now += fake->seconds_per_reading;
    if (out != nullptr) {
        *out = now;
    }
    return now;
}

int __wrap_select(int count, fd_set* readable, fd_set* writable, fd_set* exceptional,
                  struct timeval* timeout) {
    FakeWaits* fake = FakeWaits::active;
    if (fake == nullptr || fake->timeouts.size() > 100) {
        abort();  // nothing here may really sleep, or for ever
    }
    fake->had_descriptors |=
        count != 0 || readable != nullptr || writable != nullptr || exceptional != nullptr;
    const size_t turn = fake->timeouts.size();
    fake->timeouts.emplace_back(timeout->tv_sec, timeout->tv_usec);
    *timeout = {77, 88};  // the kernel leaves what was not slept; nobody may rely on it
    if (turn >= fake->waits.size()) {
        return 0;
    }
    fake->now += fake->waits[turn].seconds;
    errno = fake->waits[turn].error;
    return fake->waits[turn].result;
}
}

TEST(Trmmsleep, WaitsOnceWithTheTimeSplitIntoSecondsAndMicroseconds) {
    const struct {
        unsigned int ms;
        Timeout timeout;
    } kCases[] = {
        {0, {0, 0}},
        {1, {0, 1000}},
        {100, {0, 100000}},
        {999, {0, 999000}},
        {1000, {1, 0}},
        {1001, {1, 1000}},
        {1500, {1, 500000}},
        {INT_MAX, {2147483, 647000}},
        {INT_MAX + 1U, {2147483, 648000}},
        {UINT_MAX, {4294967, 295000}},
    };
    for (const auto& [ms, timeout] : kCases) {
        EXPECT_EQ(Sleep(ms, {kTimeUp}), Timeouts{timeout}) << ms;
    }
}

TEST(Trmmsleep, EndsWhenTheTimeRunsOutWhateverTheClockSays) {
    EXPECT_EQ(Sleep(5000, {{0, 0, 1}}), (Timeouts{{5, 0}}));
    EXPECT_EQ(Sleep(5000, {{0, 0, -100}}), (Timeouts{{5, 0}}));
    EXPECT_EQ(Sleep(5000, {Interrupted(1), kTimeUp}), (Timeouts{{5, 0}, {4, 0}}));
}

TEST(Trmmsleep, TakesNoTimeAsElapsedInTheFirstPass) {
    FakeWaits ticking(std::vector<Wait>{});
    ticking.seconds_per_reading = 3;
    Trmmsleep(5000);
    EXPECT_EQ(ticking.timeouts, (Timeouts{{5, 0}}));

    ticking.timeouts.clear();
    Trmmsleep(0);  // the clock alone would have ended it
    EXPECT_EQ(ticking.timeouts, (Timeouts{{0, 0}}));
}

TEST(Trmmsleep, GoesOnWithTheRestAfterEachInterruption) {
    EXPECT_EQ(Sleep(4500, {Interrupted(1), Interrupted(0), Interrupted(2)}),
              (Timeouts{{4, 500000}, {3, 500000}, {3, 500000}, {1, 500000}}));
}

TEST(Trmmsleep, WaitsAgainInFullWhenLessThanASecondHasPassed) {
    const std::vector<Wait> often(50, Interrupted(0));
    EXPECT_EQ(Sleep(700, often), Timeouts(51, {0, 700000}));
}

TEST(Trmmsleep, EndsWhenMoreThanTheTimeHasPassedButNotWhenJustThat) {
    EXPECT_EQ(Sleep(2000, {Interrupted(1), Interrupted(1), Interrupted(1)}),
              (Timeouts{{2, 0}, {1, 0}, {0, 0}}));
    EXPECT_EQ(Sleep(2000, {Interrupted(2)}), (Timeouts{{2, 0}, {0, 0}}));
    EXPECT_EQ(Sleep(1999, {Interrupted(2)}), (Timeouts{{1, 999000}}));
    EXPECT_EQ(Sleep(0, {Interrupted(0)}), (Timeouts{{0, 0}, {0, 0}}));
    EXPECT_EQ(Sleep(0, {Interrupted(1)}), (Timeouts{{0, 0}}));
}

TEST(Trmmsleep, EndsAtAnInterruptionAfterTheClockWasSetBack) {
    EXPECT_EQ(Sleep(5000, {Interrupted(-1)}), (Timeouts{{5, 0}}));
    EXPECT_EQ(Sleep(5000, {Interrupted(-86400)}), (Timeouts{{5, 0}}));
    EXPECT_EQ(Sleep(5000, {Interrupted(1), Interrupted(-2)}), (Timeouts{{5, 0}, {4, 0}}));
}

TEST(Trmmsleep, GoesOnWhenTheClockIsBackAtItsStart) {
    EXPECT_EQ(Sleep(5000, {Interrupted(3), Interrupted(-3)}), (Timeouts{{5, 0}, {2, 0}, {5, 0}}));
}

TEST(Trmmsleep, EndsAtAnInterruptionAfterTheClockWasSetFarForward) {
    EXPECT_EQ(Sleep(5000, {Interrupted(3600)}), (Timeouts{{5, 0}}));
}

TEST(Trmmsleep, CountsTheElapsedMillisecondsIn32Bits) {
    // 4294968 s are 704 ms more than 2^32.
    EXPECT_EQ(Sleep(5000, {Interrupted(4294968)}), (Timeouts{{5, 0}, {4, 296000}}));
    EXPECT_EQ(Sleep(703, {Interrupted(4294968)}), (Timeouts{{0, 703000}}));
    // One second back is 2^32 - 1000 ms.
    EXPECT_EQ(Sleep(UINT_MAX, {Interrupted(-1)}), (Timeouts{{4294967, 295000}, {0, 999000}}));
    EXPECT_EQ(Sleep(UINT_MAX - 1000, {Interrupted(-1)}), (Timeouts{{4294966, 295000}}));
    EXPECT_EQ(Sleep(UINT_MAX - 999, {Interrupted(-1)}), (Timeouts{{4294966, 296000}, {0, 0}}));
}

TEST(Trmmsleep, CountsTheElapsedSecondsIn32BitsToo) {
    // 2^31 - 1 s, 2^32 - 2 s and 2^32 - 1 s, each times 1000: 1000, 2000 and 1000 short of 2^32.
    FakeWaits fake({Interrupted(INT_MAX), Interrupted(INT_MAX), Interrupted(1)}, INT_MIN);
    Trmmsleep(UINT_MAX);
    EXPECT_EQ(fake.timeouts, (Timeouts{{4294967, 295000}, {0, 999000}, {1, 999000}, {0, 999000}}));
}

TEST(Trmmsleep, WaitsAgainAfterAnyOtherResult) {
    CapturedLog log;
    EXPECT_EQ(Sleep(3000, {{1, 0, 1}, {2, 0, 1}, {-2, EINTR, 0}, {INT_MAX, 0, 1}}),
              (Timeouts{{3, 0}, {2, 0}, {1, 0}, {1, 0}, {0, 0}}));
    EXPECT_EQ(log.Take(), std::vector<LogLine>{});
    EXPECT_EQ(Sleep(3000, {{1, 0, 4}}), (Timeouts{{3, 0}}));
}

TEST(Trmmsleep, LogsEachFailureAndGoesOn) {
    CapturedLog log;
    EXPECT_EQ(Sleep(3000, {{-1, EINTR, 0}, {-1, EINVAL, 1}, {-1, ENOMEM, 0}, kTimeUp}),
              (Timeouts{{3, 0}, {3, 0}, {2, 0}, {2, 0}}));
    EXPECT_EQ(log.Take(), (std::vector{SelectLine(EINTR), SelectLine(EINVAL), SelectLine(ENOMEM)}));
}

TEST(Trmmsleep, LogsTheFailureAfterWhichItEnds) {
    CapturedLog log;
    EXPECT_EQ(Sleep(0, {Interrupted(1)}), (Timeouts{{0, 0}}));
    EXPECT_EQ(log.Take(), std::vector{SelectLine(EINTR)});
}

TEST(Trmmsleep, LogsNothingOfAWaitThatEndsInTime) {
    CapturedLog log;
    Sleep(1500, {{0, EINTR, 0}});
    EXPECT_EQ(log.TakeText(), "");
}

TEST(Trmmsleep, AClockThatWasSetBackByLessThanHasPassedMakesTheRestLonger) {
    EXPECT_EQ(Sleep(5000, {Interrupted(3), Interrupted(-2)}), (Timeouts{{5, 0}, {2, 0}, {4, 0}}));
}

TEST(Trmmsleep, AClockThatWasSetForwardByLessThanTheWaitMakesTheRestShorter) {
    EXPECT_EQ(Sleep(60000, {Interrupted(40)}), (Timeouts{{60, 0}, {20, 0}}));
}
