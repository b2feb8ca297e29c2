// The data that is exported: the month lengths and the zone globals.

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <type_traits>

#include "util/timeutils.h"

static_assert(std::is_same_v<decltype(_ytab), const int[2][12]>);
static_assert(sizeof _ytab == 2 * 12 * 4);
static_assert(std::is_same_v<decltype(_timezone), int> && sizeof _timezone == 4);
static_assert(std::is_same_v<decltype(_dstbias), int> && sizeof _dstbias == 4);
static_assert(std::is_same_v<decltype(_daylight), int> && sizeof _daylight == 4);

namespace {

// As they were before any test ran.
const int kZoneAtStart = _timezone;
const int kBiasAtStart = _dstbias;
const int kDaylightAtStart = _daylight;

// The permissions of the memory at an address, as in "r--p"; empty if nothing is mapped there.
std::string PermissionsOf(const void* address) {
    const auto wanted = reinterpret_cast<uintptr_t>(address);
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        std::istringstream words(line);
        uintptr_t start = 0;
        uintptr_t end = 0;
        char dash = 0;
        std::string permissions;
        words >> std::hex >> start >> dash >> end >> permissions;
        if (start <= wanted && wanted < end) {
            return permissions;
        }
    }
    return "";
}

}  // namespace

TEST(Globals, YearTableHoldsTheMonthLengths) {
    const int kCommon[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const int kLeap[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 0; month < 12; ++month) {
        EXPECT_EQ(_ytab[0][month], kCommon[month]) << month;
        EXPECT_EQ(_ytab[1][month], kLeap[month]) << month;
    }
}

TEST(Globals, YearTableLiesInReadOnlyMemory) {
    EXPECT_EQ(PermissionsOf(&_ytab[0][0]).substr(0, 2), "r-");
    EXPECT_EQ(PermissionsOf(&_ytab[1][11]).substr(0, 2), "r-");
}

TEST(Globals, ZoneIsWritable) {
    EXPECT_EQ(PermissionsOf(&_timezone).substr(0, 2), "rw");
    EXPECT_EQ(PermissionsOf(&_dstbias).substr(0, 2), "rw");
    EXPECT_EQ(PermissionsOf(&_daylight).substr(0, 2), "rw");
}

TEST(Globals, ZoneIsZeroUnlessACallerSetsIt) {
    EXPECT_EQ(kZoneAtStart, 0);
    EXPECT_EQ(kBiasAtStart, 0);
    EXPECT_EQ(kDaylightAtStart, 0);
}
