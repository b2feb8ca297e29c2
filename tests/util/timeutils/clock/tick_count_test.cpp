// TrGetTickCount.

#include <gtest/gtest.h>
#include <sys/time.h>

#include <climits>
#include <cstdint>

#include "tests/support/captured_stream.h"
#include "tests/support/fake_clock.h"
#include "tests/support/log_lines.h"
#include "util/timeutils.h"

namespace {

uint32_t Difference(int later, int earlier) {
    return static_cast<uint32_t>(later) - static_cast<uint32_t>(earlier);
}

}  // namespace

static_assert(sizeof(TrGetTickCount()) == 4);

TEST(TrGetTickCount, IsTheWallClockInMilliseconds) {
    const struct {
        time_t seconds;
        suseconds_t microseconds;
        int tick;
    } kCases[] = {
        {0, 0, 0},
        {0, 999, 0},
        {0, 1000, 1},
        {0, 1999, 1},
        {1, 999999, 1999},
        {1000000, 500000, 1000000500},
        {2147483, 647999, INT_MAX},
        {2147483, 648000, INT_MIN},
        {4294967, 295999, -1},
        {4294967, 296000, 0},
        {1709644029, 123456, 247045315},  // less 398 times 2^32
        {INT_MAX, 999999, -1},
        {-1, 0, -1000},
    };
    for (const auto& [seconds, microseconds, tick] : kCases) {
        const FakeClock clock(seconds, microseconds);
        EXPECT_EQ(TrGetTickCount(), tick) << seconds << " s " << microseconds << " us";
    }
}

TEST(TrGetTickCount, DiffersByTheTimeBetweenAlsoAcrossTheWrap) {
    FakeClock clock(2147483, 600000);
    const int earlier = TrGetTickCount();
    clock.Set(2147484, 600000);
    const int later = TrGetTickCount();
    EXPECT_GT(earlier, 0);
    EXPECT_LT(later, 0);
    EXPECT_EQ(Difference(later, earlier), 1000U);
}

TEST(TrGetTickCount, JumpsWithTheClock) {
    FakeClock clock(1709644029, 5000);
    const int earlier = TrGetTickCount();
    clock.Advance(3600);
    EXPECT_EQ(Difference(TrGetTickCount(), earlier), 3600000U);
    clock.Advance(-7200);
    EXPECT_EQ(Difference(TrGetTickCount(), earlier), static_cast<uint32_t>(-3600000));
}

TEST(TrGetTickCount, LiesBetweenTwoReadingsOfTheRealClock) {
    const auto now = [] {
        struct timeval value;
        gettimeofday(&value, nullptr);
        return static_cast<uint32_t>(value.tv_sec) * 1000 +
               static_cast<uint32_t>(value.tv_usec) / 1000;
    };
    const uint32_t before = now();
    const auto tick = static_cast<uint32_t>(TrGetTickCount());
    EXPECT_LE(tick - before, now() - before);
}

TEST(TrGetTickCount, DoesNotLog) {
    CapturedLog log;
    TrGetTickCount();
    EXPECT_EQ(log.TakeText(), "");
}
