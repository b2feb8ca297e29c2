// The current time as records: GetClockDT and GetTime.

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstddef>
#include <cstring>
#include <ctime>
#include <vector>

#include "tests/support/fake_clock.h"
#include "tests/support/time_zone.h"
#include "tests/util/timeutils/clock/local_seconds.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

namespace {

using ClockFields = std::array<unsigned short, 8>;

// What GetClockDT writes; fails when it writes anything besides.
ClockFields ReadClock() {
    std::array<ClockFields, 3> memory;
    memset(&memory, 0x5A, sizeof memory);
    const ClockFields fence = memory[0];
    GetClockDT(reinterpret_cast<TClockDT*>(&memory[1]));
    EXPECT_EQ(memory[0], fence);
    EXPECT_EQ(memory[2], fence);
    return memory[1];
}

}  // namespace

static_assert(sizeof(TClockDT) == 16);
static_assert(offsetof(TClockDT, year) == 0);
static_assert(offsetof(TClockDT, month) == 2);
static_assert(offsetof(TClockDT, day) == 4);
static_assert(offsetof(TClockDT, hour) == 6);
static_assert(offsetof(TClockDT, minute) == 8);
static_assert(offsetof(TClockDT, second) == 10);
static_assert(offsetof(TClockDT, day_of_week) == 12);
static_assert(offsetof(TClockDT, day_of_year) == 14);

TEST(GetClockDT, HasTheLocalTimeInEightFields) {
    const ScopedTimeZone zone(kCentralEurope);
    const struct {
        Date date;
        Clock clock;
        ClockFields fields;
    } kCases[] = {
        {{2024, 5, 7}, {8, 9, 10}, {2024, 5, 7, 8, 9, 10, 2, 128}},
        {{2024, 1, 1}, {0, 0, 0}, {2024, 1, 1, 0, 0, 0, 1, 1}},
        {{2024, 2, 29}, {12, 0, 1}, {2024, 2, 29, 12, 0, 1, 4, 60}},
        {{2024, 3, 1}, {1, 2, 3}, {2024, 3, 1, 1, 2, 3, 5, 61}},
        {{2023, 3, 1}, {1, 2, 3}, {2023, 3, 1, 1, 2, 3, 3, 60}},
        {{2024, 5, 5}, {0, 0, 0}, {2024, 5, 5, 0, 0, 0, 0, 126}},        // a Sunday
        {{2024, 5, 4}, {23, 59, 59}, {2024, 5, 4, 23, 59, 59, 6, 125}},  // a Saturday
        {{2024, 12, 31}, {23, 59, 59}, {2024, 12, 31, 23, 59, 59, 2, 366}},
        {{2023, 12, 31}, {23, 59, 59}, {2023, 12, 31, 23, 59, 59, 0, 365}},
        {{2000, 12, 31}, {6, 7, 8}, {2000, 12, 31, 6, 7, 8, 0, 366}},
    };
    for (const auto& [date, clock, fields] : kCases) {
        const FakeClock fake(LocalSeconds(date, clock));
        EXPECT_EQ(ReadClock(), fields) << date;
    }
}

TEST(GetClockDT, ShowsYearsOutside2000To2037AsTheyAre) {
    const ScopedTimeZone zone(kCentralEurope);
    const struct {
        Date date;
        ClockFields fields;
    } kCases[] = {
        {{1902, 1, 1}, {1902, 1, 1, 0, 0, 0, 3, 1}},
        {{1969, 12, 31}, {1969, 12, 31, 0, 0, 0, 3, 365}},
        {{1999, 3, 1}, {1999, 3, 1, 0, 0, 0, 1, 60}},
        {{2038, 1, 1}, {2038, 1, 1, 0, 0, 0, 5, 1}},
    };
    for (const auto& [date, fields] : kCases) {
        const FakeClock fake(LocalSeconds(date));
        EXPECT_EQ(ReadClock(), fields) << date;
    }
}

TEST(GetClockDT, ReadsTheClockAtItsFullWidth) {
    const ScopedTimeZone zone("UTC0");
    if constexpr (sizeof(time_t) == 8) {
        const FakeClock fake(LocalSeconds({2040, 2, 29}, {1, 2, 3}));
        EXPECT_EQ(ReadClock(), (ClockFields{2040, 2, 29, 1, 2, 3, 3, 60}));
    } else {
        const FakeClock fake(INT_MAX);
        EXPECT_EQ(ReadClock(), (ClockFields{2038, 1, 19, 3, 14, 7, 2, 19}));
    }
}

TEST(GetClockDT, HonoursTheZone) {
    const FakeClock fake(1715062150);
    const ScopedTimeZone zone("HST10");
    EXPECT_EQ(ReadClock(), (ClockFields{2024, 5, 6, 20, 9, 10, 1, 127}));
}

TEST(GetTime, CopiesTheWholeLocalRecord) {
    const ScopedTimeZone zone(kCentralEurope);
    const FakeClock fake(1715062150);
    struct tm memory[3];
    memset(memory, 0x5A, sizeof memory);
    GetTime(&memory[1]);

    const struct tm& now = memory[1];
    EXPECT_EQ(FieldsOf(now), (std::array{10, 9, 8, 7, 4, 124, 2, 127, 1}));
    EXPECT_EQ(now.tm_gmtoff, 7200);
    EXPECT_STREQ(now.tm_zone, "CEST");
    const struct tm fence = MarkedRecord(DateIn(memory[0]));
    EXPECT_TRUE(SameBytes(memory[0], fence));
    EXPECT_TRUE(SameBytes(memory[2], fence));
}

TEST(GetTime, TellsWinterFromSummer) {
    const ScopedTimeZone zone(kCentralEurope);
    const FakeClock fake(LocalSeconds({2024, 1, 7}, {8, 9, 10}));
    struct tm now = MarkedRecord({});
    GetTime(&now);
    EXPECT_EQ(FieldsOf(now), (std::array{10, 9, 8, 7, 0, 124, 0, 6, 0}));
    EXPECT_EQ(now.tm_gmtoff, 3600);
    EXPECT_STREQ(now.tm_zone, "CET");
}

TEST(GetTime, ShowsYearsOutside2000To2037AsTheyAre) {
    const ScopedTimeZone zone(kCentralEurope);
    std::vector<int> years = {1902, 1969, 1999, 2000, 2037, 2038};
    if constexpr (sizeof(time_t) == 8) {
        years.insert(years.end(), {2040, 2100, 12345});
    }
    for (const int year : years) {
        const FakeClock fake(LocalSeconds({year, 1, 2}, {3, 4, 5}));
        struct tm now = MarkedRecord({});
        GetTime(&now);
        EXPECT_EQ(DateIn(now), (Date{year, 1, 2}));
        EXPECT_EQ(now.tm_hour, 3);
    }
}
