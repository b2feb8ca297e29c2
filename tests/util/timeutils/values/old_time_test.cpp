// The old packed time.

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <type_traits>

#include "tests/util/timeutils/any_int.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

static_assert(std::is_same_v<decltype(&OldEncodeTime), int (*)(const TTime*)>);
static_assert(std::is_same_v<decltype(&OldDecodeTime), TTime* (*)(int, TTime*)>);

namespace {

struct tm Decoded(int value) {
    struct tm rec = MarkedRecord({});
    EXPECT_EQ(OldDecodeTime(value, &rec), &rec);
    return rec;
}

// sec, min, hour, mday, mon, year; the other fields as marked.
std::array<int, 9> Fields(int sec, int min, int hour, int mday, int mon, int year) {
    return {sec, min, hour, mday, mon, year, kMark, kMark, kMark};
}

// The formula in whole numbers that cannot overflow, cut to 32 bits at the end.
int NaiveOldEncode(const struct tm& rec) {
    const int64_t days =
        int64_t{rec.tm_year} * 372 + int64_t{rec.tm_mon} * 31 + rec.tm_mday - 37201;
    const int64_t seconds =
        days * 86400 + (int64_t{rec.tm_hour} * 60 + rec.tm_min) * 60 + rec.tm_sec;
    return static_cast<int>(static_cast<uint32_t>(seconds));
}

}  // namespace

TEST(OldEncodeTime, Counts31DaysAMonthAnd372AYear) {
    const struct {
        Date date;
        Clock clock;
        int value;
    } kCases[] = {
        {{2000, 1, 1}, {0, 0, 0}, 0},
        {{2000, 1, 1}, {0, 0, 1}, 1},
        {{2000, 1, 1}, {0, 1, 0}, 60},
        {{2000, 1, 1}, {1, 0, 0}, 3600},
        {{2000, 1, 2}, {0, 0, 0}, 86400},
        {{2000, 2, 1}, {0, 0, 0}, 2678400},
        {{2000, 2, 31}, {0, 0, 0}, 61 * 86400},
        {{2000, 3, 1}, {0, 0, 0}, 62 * 86400},
        {{2001, 1, 1}, {0, 0, 0}, 372 * 86400},
        {{1999, 12, 31}, {23, 59, 59}, -1},
        {{1999, 1, 1}, {0, 0, 0}, -372 * 86400},
        {{2066, 10, 25}, {3, 14, 7}, INT_MAX},
        {{2066, 10, 25}, {3, 14, 8}, INT_MIN},
    };
    for (const auto& [date, clock, value] : kCases) {
        const struct tm rec = RecordOf(date, clock);
        EXPECT_EQ(OldEncodeTime(&rec), value) << date;
    }
}

TEST(OldEncodeTime, DoesNotBringFieldsIntoRange) {
    const struct tm rec = RecordOf({2000, 14, 40}, {30, 70, 90});
    EXPECT_EQ(OldEncodeTime(&rec), (13 * 31 + 39) * 86400 + (30 * 60 + 70) * 60 + 90);
    EXPECT_EQ(FieldsOf(rec), Fields(90, 70, 30, 40, 13, 100));
}

TEST(OldEncodeTime, ReadsSixFieldsOnly) {
    struct tm rec = RecordOf({2024, 2, 29}, {12, 0, 0});
    const int value = OldEncodeTime(&rec);
    rec.tm_wday = rec.tm_yday = rec.tm_isdst = 0;
    rec.tm_gmtoff = 3600;
    EXPECT_EQ(OldEncodeTime(&rec), value);
}

TEST(OldEncodeTime, WrapsAsTheFormulaDoes) {
    Random random(372);
    for (int i = 0; i < 200'000; ++i) {
        struct tm rec = MarkedRecord({});
        rec.tm_year = AnyInt(random);
        rec.tm_mon = AnyInt(random);
        rec.tm_mday = AnyInt(random);
        rec.tm_hour = AnyInt(random);
        rec.tm_min = AnyInt(random);
        rec.tm_sec = AnyInt(random);
        ASSERT_EQ(OldEncodeTime(&rec), NaiveOldEncode(rec))
            << testing::PrintToString(FieldsOf(rec));
    }
}

TEST(OldDecodeTime, SplitsTheCount) {
    EXPECT_EQ(FieldsOf(Decoded(0)), Fields(0, 0, 0, 1, 0, 100));
    EXPECT_EQ(FieldsOf(Decoded(59)), Fields(59, 0, 0, 1, 0, 100));
    EXPECT_EQ(FieldsOf(Decoded(86399)), Fields(59, 59, 23, 1, 0, 100));
    EXPECT_EQ(FieldsOf(Decoded(86400)), Fields(0, 0, 0, 2, 0, 100));
    EXPECT_EQ(FieldsOf(Decoded(2678399)), Fields(59, 59, 23, 31, 0, 100));
    EXPECT_EQ(FieldsOf(Decoded(2678400)), Fields(0, 0, 0, 1, 1, 100));
    EXPECT_EQ(FieldsOf(Decoded(372 * 86400 - 1)), Fields(59, 59, 23, 31, 11, 100));
    EXPECT_EQ(FieldsOf(Decoded(372 * 86400)), Fields(0, 0, 0, 1, 0, 101));
    EXPECT_EQ(FieldsOf(Decoded(INT_MAX)), Fields(7, 14, 3, 25, 9, 166));
}

TEST(OldDecodeTime, NamesDatesThatDoNotExist) {
    EXPECT_EQ(FieldsOf(Decoded(60 * 86400)), Fields(0, 0, 0, 30, 1, 100));
}

TEST(OldDecodeTime, DoesNotCorrectNegativeValues) {
    EXPECT_EQ(FieldsOf(Decoded(-1)), Fields(-1, 0, 0, 1, 0, 100));
    EXPECT_EQ(FieldsOf(Decoded(-86399)), Fields(-59, -59, -23, 1, 0, 100));
    EXPECT_EQ(FieldsOf(Decoded(-86400)), Fields(0, 0, 0, 0, 0, 100));
    EXPECT_EQ(FieldsOf(Decoded(-30 * 86400)), Fields(0, 0, 0, -29, 0, 100));
    EXPECT_EQ(FieldsOf(Decoded(-31 * 86400)), Fields(0, 0, 0, 1, -1, 100));
    EXPECT_EQ(FieldsOf(Decoded(-371 * 86400)), Fields(0, 0, 0, -29, -11, 100));
    EXPECT_EQ(FieldsOf(Decoded(-372 * 86400)), Fields(0, 0, 0, 1, 0, 99));
    EXPECT_EQ(FieldsOf(Decoded(INT_MIN)), Fields(-8, -14, -3, -23, -9, 34));
}

TEST(OldDecodeTime, LeavesTheTrailingFieldsAlone) {
    const struct tm marked = MarkedRecord({});
    const struct tm rec = Decoded(123456789);
    EXPECT_EQ(rec.tm_gmtoff, marked.tm_gmtoff);
    EXPECT_EQ(rec.tm_zone, marked.tm_zone);
}

TEST(OldDecodeTime, IsUndoneByOldEncodeTime) {
    Random random(31);
    for (int i = 0; i < 200'000; ++i) {
        const int value = AnyInt(random);
        const struct tm rec = Decoded(value);
        ASSERT_EQ(OldEncodeTime(&rec), value);
    }
}

TEST(OldDecodeTime, UndoesOldEncodeTimeForEveryDayOfTheReckoning) {
    for (int year = 2000; year <= 2065; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= 31; ++day) {
                const struct tm rec = RecordOf({year, month, day}, {23, 59, 58});
                ASSERT_TRUE(SameBytes(Decoded(OldEncodeTime(&rec)), rec)) << DateIn(rec);
            }
        }
    }
}
