// GetSysSecond.

#include <gtest/gtest.h>
#include <sys/sysinfo.h>

#include <climits>
#include <cstdint>
#include <type_traits>

#include "tests/support/dirty_stack.h"
#include "util/timeutils.h"

static_assert(std::is_same_v<decltype(GetSysSecond()), int>);

namespace {

struct FakeSysinfo {
    bool is_on = false;
    int64_t uptime = 0;
    int result = 0;
    bool writes = true;
};
FakeSysinfo gFake;

int SecondsWith(int64_t uptime, int result = 0) {
    gFake = {true, uptime, result, true};
    const int seconds = GetSysSecond();
    gFake = {};
    return seconds;
}

}  // namespace

extern "C" {
int __real_sysinfo(struct sysinfo* info);
int __wrap_sysinfo(struct sysinfo* info);
}

int __wrap_sysinfo(struct sysinfo* info) {
    if (!gFake.is_on) {
        return __real_sysinfo(info);
    }
    if (gFake.writes) {
        info->uptime = static_cast<decltype(info->uptime)>(gFake.uptime);
    }
    return gFake.result;
}

TEST(GetSysSecond, IsTheUptime) {
    EXPECT_EQ(SecondsWith(0), 0);
    EXPECT_EQ(SecondsWith(12345), 12345);
    EXPECT_EQ(SecondsWith(INT_MAX), INT_MAX);
}

TEST(GetSysSecond, KeepsTheLow32Bits) {
    EXPECT_EQ(SecondsWith(int64_t{INT_MAX} + 1), INT_MIN);
    EXPECT_EQ(SecondsWith(0xFFFFFFFF), -1);
    EXPECT_EQ(SecondsWith((int64_t{1} << 32) + 7), 7);
}

TEST(GetSysSecond, DoesNotLookAtTheResultOfTheCall) {
    EXPECT_EQ(SecondsWith(77, -1), 77);
}

TEST(GetSysSecond, IsZeroWithoutAnAnswer) {
    gFake = {.is_on = true, .result = -1, .writes = false};
    DirtyStackWith("7");
    const int seconds = GetSysSecond();
    gFake = {};
    EXPECT_EQ(seconds, 0);
}

TEST(GetSysSecond, LiesBetweenTwoReadingsOfTheSystem) {
    struct sysinfo before;
    ASSERT_EQ(sysinfo(&before), 0);
    const int seconds = GetSysSecond();
    struct sysinfo after;
    ASSERT_EQ(sysinfo(&after), 0);
    EXPECT_LE(before.uptime, seconds);
    EXPECT_LE(seconds, after.uptime);
}
