// DecodeTime, and seconds counts as "%H:%M" and "%Y-%m-%d".

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <string>
#include <type_traits>

#include "tests/support/guarded_buffer.h"
#include "tests/support/log_lines.h"
#include "tests/support/time_zone.h"
#include "tests/util/timeutils/any_int.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

namespace {

constexpr int kWinter = 1709644029;  // 2024-03-05 13:07:09 UTC
constexpr int kSummer = 1719820800;  // 2024-07-01 08:00:00 UTC

// seconds with other high bits, where time_t has any.
time_t WithHighBits(int seconds, uint32_t high) {
    return static_cast<time_t>(uint64_t{high} << 32 | static_cast<uint32_t>(seconds));
}

struct tm Decoded(time_t t) {
    struct tm rec = MarkedRecord({});
    EXPECT_EQ(DecodeTime(&rec, t), &rec);
    return rec;
}

using Writer = int (*)(char*, int, time_t);

// What strftime leaves in a cleared buffer of that size, terminated in every case.
std::string ClearedAndWritten(const char* pattern, int size, time_t t) {
    const struct tm rec = Decoded(t);
    std::string buffer(static_cast<size_t>(size), '\0');
    strftime(buffer.data(), buffer.size(), pattern, &rec);
    buffer.back() = '\0';
    return buffer;
}

void ExpectWritesBoundedBy(Writer write, const char* pattern) {
    for (const time_t t : {time_t{0}, time_t{kWinter}, time_t{kSummer}, time_t{-1}}) {
        for (int size = 1; size <= 40; ++size) {
            GuardedBuffer buffer(static_cast<size_t>(size));
            EXPECT_EQ(write(buffer.data(), size, t), 1);
            buffer.ExpectHolds(ClearedAndWritten(pattern, size, t));
        }
    }
}

void ExpectNothingWritten(Writer write) {
    for (const int size : {0, -1, INT_MIN}) {
        GuardedBuffer buffer(16);
        EXPECT_EQ(write(buffer.data(), size, kWinter), 1);
        buffer.ExpectUntouched();
    }
    EXPECT_EQ(write(nullptr, 16, kWinter), 0);
}

bool gStrftimeFills = false;

void ExpectEndsWhatStrftimeFilled(Writer write) {
    GuardedBuffer buffer(4);
    gStrftimeFills = true;
    EXPECT_EQ(write(buffer.data(), 4, kWinter), 1);
    gStrftimeFills = false;
    buffer.ExpectHolds(Terminated("xxx"));
}

std::string TextOf(Writer write, time_t t) {
    GuardedBuffer buffer(20);
    EXPECT_EQ(write(buffer.data(), buffer.size(), t), 1);
    return buffer.text();
}

}  // namespace

extern "C" {
size_t __real_strftime(char* buf, size_t size, const char* pattern, const struct tm* rec);

// Where a text does not fit, a C library may leave any bytes.
size_t __wrap_strftime(char* buf, size_t size, const char* pattern, const struct tm* rec) {
    if (!gStrftimeFills) {
        return __real_strftime(buf, size, pattern, rec);
    }
    memset(buf, 'x', size);
    return 0;
}
}

static_assert(std::is_same_v<decltype(&SecToHMTime), Writer>);
static_assert(std::is_same_v<decltype(&SecToYMDTime), Writer>);

TEST(DecodeTime, GivesTheLocalTime) {
    const ScopedTimeZone zone(kCentralEurope);
    EXPECT_EQ(FieldsOf(Decoded(kWinter)), (std::array{9, 7, 14, 5, 2, 124, 2, 64, 0}));
    EXPECT_EQ(FieldsOf(Decoded(kSummer)), (std::array{0, 0, 10, 1, 6, 124, 1, 182, 1}));
}

TEST(DecodeTime, CopiesTheTrailingFields) {
    const ScopedTimeZone zone(kCentralEurope);
    const struct tm winter = Decoded(kWinter);
    EXPECT_EQ(winter.tm_gmtoff, 3600);
    EXPECT_STREQ(winter.tm_zone, "CET");
    const struct tm summer = Decoded(kSummer);
    EXPECT_EQ(summer.tm_gmtoff, 7200);
    EXPECT_STREQ(summer.tm_zone, "CEST");
}

TEST(DecodeTime, GivesWhatTheSystemGives) {
    for (const char* name : {"UTC0", kCentralEurope, "XXX-5:30", "YYY11"}) {
        const ScopedTimeZone zone(name);
        Random random(2024);
        for (int i = 0; i < 5000; ++i) {
            const time_t t = AnyInt(random);
            const struct tm rec = Decoded(t);
            const struct tm expected = *localtime(&t);
            ASSERT_EQ(FieldsOf(rec), FieldsOf(expected)) << t;
            ASSERT_EQ(rec.tm_gmtoff, expected.tm_gmtoff) << t;
            ASSERT_EQ(rec.tm_zone, expected.tm_zone) << t;
        }
    }
}

TEST(DecodeTime, ReadsTheLimits) {
    const ScopedTimeZone zone("UTC0");
    EXPECT_EQ(FieldsOf(Decoded(0)), (std::array{0, 0, 0, 1, 0, 70, 4, 0, 0}));
    EXPECT_EQ(FieldsOf(Decoded(-1)), (std::array{59, 59, 23, 31, 11, 69, 3, 364, 0}));
    EXPECT_EQ(FieldsOf(Decoded(INT_MAX)), (std::array{7, 14, 3, 19, 0, 138, 2, 18, 0}));
    EXPECT_EQ(FieldsOf(Decoded(INT_MIN)), (std::array{52, 45, 20, 13, 11, 1, 5, 346, 0}));
}

TEST(DecodeTime, LooksOnlyAtTheLow32Bits) {
    const ScopedTimeZone zone(kCentralEurope);
    for (const int seconds : {0, 1, -1, kWinter, INT_MAX, INT_MIN}) {
        for (const uint32_t high : {0U, 1U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
            EXPECT_EQ(FieldsOf(Decoded(WithHighBits(seconds, high))), FieldsOf(Decoded(seconds)));
        }
    }
}

TEST(DecodeTime, DiffersFromEncodeTimeByTheZone) {
    const ScopedTimeZone zone(kCentralEurope);
    struct tm winter = Decoded(kWinter);
    EXPECT_EQ(EncodeTime(&winter), kWinter + 3600);
    struct tm summer = Decoded(kSummer);
    EXPECT_EQ(EncodeTime(&summer), kSummer + 7200);
}

TEST(DecodeTime, UndoesEncodeTimeInUtc) {
    const ScopedTimeZone zone("UTC0");
    Random random(7);
    for (int i = 0; i < 20'000; ++i) {
        const auto seconds = static_cast<int>(random.Next() >> 1);
        struct tm rec = Decoded(seconds);
        ASSERT_EQ(EncodeTime(&rec), seconds);
    }
}

TEST(SecToHMTime, WritesHourAndMinuteOfTheLocalTime) {
    const ScopedTimeZone zone(kCentralEurope);
    EXPECT_EQ(TextOf(SecToHMTime, kWinter), "14:07");
    EXPECT_EQ(TextOf(SecToHMTime, kSummer), "10:00");
    EXPECT_EQ(TextOf(SecToHMTime, 0), "01:00");
    EXPECT_EQ(TextOf(SecToHMTime, -1), "00:59");
}

TEST(SecToYMDTime, WritesTheLocalDate) {
    const ScopedTimeZone zone(kCentralEurope);
    EXPECT_EQ(TextOf(SecToYMDTime, kWinter), "2024-03-05");
    EXPECT_EQ(TextOf(SecToYMDTime, 1719871199), "2024-07-01");
    EXPECT_EQ(TextOf(SecToYMDTime, 1719871200), "2024-07-02");
    EXPECT_EQ(TextOf(SecToYMDTime, -3601), "1969-12-31");
    EXPECT_EQ(TextOf(SecToYMDTime, INT_MIN), "1901-12-13");
}

TEST(SecToHMTime, ClearsTheBufferAndStaysInside) {
    const ScopedTimeZone zone(kCentralEurope);
    ExpectWritesBoundedBy(SecToHMTime, "%H:%M");
    GuardedBuffer exact(sizeof "14:07");
    EXPECT_EQ(SecToHMTime(exact.data(), exact.size(), kWinter), 1);
    exact.ExpectHolds(Terminated("14:07"));
}

TEST(SecToYMDTime, ClearsTheBufferAndStaysInside) {
    const ScopedTimeZone zone(kCentralEurope);
    ExpectWritesBoundedBy(SecToYMDTime, "%Y-%m-%d");
    GuardedBuffer exact(sizeof "2024-03-05");
    EXPECT_EQ(SecToYMDTime(exact.data(), exact.size(), kWinter), 1);
    exact.ExpectHolds(Terminated("2024-03-05"));
}

TEST(SecToHMTime, TerminatesATextThatDoesNotFit) {
    for (int size = 1; size <= 5; ++size) {
        GuardedBuffer buffer(static_cast<size_t>(size));
        EXPECT_EQ(SecToHMTime(buffer.data(), size, kWinter), 1);
        EXPECT_EQ(buffer.at(size - 1), '\0') << size;
        EXPECT_EQ(buffer.at(size), GuardedBuffer::kFill) << size;
    }
}

TEST(SecToYMDTime, TerminatesATextThatDoesNotFit) {
    for (int size = 1; size <= 10; ++size) {
        GuardedBuffer buffer(static_cast<size_t>(size));
        EXPECT_EQ(SecToYMDTime(buffer.data(), size, kWinter), 1);
        EXPECT_EQ(buffer.at(size - 1), '\0') << size;
        EXPECT_EQ(buffer.at(size), GuardedBuffer::kFill) << size;
    }
}

TEST(SecToHMTime, TerminatesWhateverStrftimeLeft) {
    ExpectEndsWhatStrftimeFilled(SecToHMTime);
    ExpectEndsWhatStrftimeFilled(SecToYMDTime);
}

TEST(SecToHMTime, WritesNothingWithoutABuffer) {
    ExpectNothingWritten(SecToHMTime);
}

TEST(SecToYMDTime, WritesNothingWithoutABuffer) {
    ExpectNothingWritten(SecToYMDTime);
}

TEST(SecToHMTime, LooksOnlyAtTheLow32Bits) {
    const ScopedTimeZone zone(kCentralEurope);
    EXPECT_EQ(TextOf(SecToHMTime, WithHighBits(kWinter, 7)), "14:07");
    EXPECT_EQ(TextOf(SecToYMDTime, WithHighBits(-3601, 0)), "1969-12-31");
}

TEST(DecodeTime, DoesNotLogNorDoTheTexts) {
    CapturedLog log;
    Decoded(kWinter);
    SecToHMTime(nullptr, 5, 0);
    SecToYMDTime(nullptr, 5, 0);
    EXPECT_EQ(log.TakeText(), "");
}
