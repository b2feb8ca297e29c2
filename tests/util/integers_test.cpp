// Numbers made to fit 32 bits.

#include "util/integers.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "tests/support/inputs.h"
#include "tests/util/timeutils/any_int.h"

namespace {

constexpr int kAtTheLimits[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, INT_MAX - 1, INT_MAX};

uint32_t Unsigned(int value) {
    return static_cast<uint32_t>(value);
}

// The sums of the calendars and the time values: taken in 64 bits and cut once they are what
// unsigned arithmetic gives that is cut at every step.
void ExpectSameSums(int a, int b, int c) {
    ASSERT_EQ(Unsigned(WrapToInt32(int64_t{a} + b)), Unsigned(a) + Unsigned(b)) << a << ' ' << b;
    ASSERT_EQ(Unsigned(WrapToInt32(int64_t{a} - b)), Unsigned(a) - Unsigned(b)) << a << ' ' << b;
    ASSERT_EQ(Unsigned(WrapToInt32(int64_t{a} * b)), Unsigned(a) * Unsigned(b)) << a << ' ' << b;
    ASSERT_EQ(Unsigned(WrapToInt32(int64_t{a} * b + c)), Unsigned(a) * Unsigned(b) + Unsigned(c))
        << a << ' ' << b << ' ' << c;
    ASSERT_EQ(Unsigned(WrapToInt32(int64_t{a} - b - c)), Unsigned(a) - Unsigned(b) - Unsigned(c))
        << a << ' ' << b << ' ' << c;
    ASSERT_EQ(WrapToInt32(-int64_t{a}), static_cast<int>(0 - Unsigned(a))) << a;
}

}  // namespace

TEST(WrapToInt32, KeepsTheLow32Bits) {
    EXPECT_EQ(WrapToInt32(int64_t{INT_MAX} + 1), INT_MIN);
    EXPECT_EQ(WrapToInt32(int64_t{INT_MIN} - 1), INT_MAX);
    EXPECT_EQ(WrapToInt32(uint32_t{0xFFFFFFFF}), -1);
    EXPECT_EQ(WrapToInt32(int64_t{0x123456789}), 0x23456789);
}

TEST(WrapToInt32, OfASumIn64BitsIsTheSumOfUnsignedNumbersAtTheLimits) {
    for (const int a : kAtTheLimits) {
        for (const int b : kAtTheLimits) {
            for (const int c : kAtTheLimits) {
                ExpectSameSums(a, b, c);
            }
        }
    }
}

TEST(WrapToInt32, OfASumIn64BitsIsTheSumOfUnsignedNumbersAnywhere) {
    CheckRandom(20240507, [](Random& random) {
        const int a = AnyInt(random);
        const int b = AnyInt(random);
        ExpectSameSums(a, b, AnyInt(random));
    });
}

TEST(SaturateToInt, TruncatesDoubles) {
    EXPECT_EQ(SaturateToInt(0.0), 0);
    EXPECT_EQ(SaturateToInt(2.9), 2);
    EXPECT_EQ(SaturateToInt(-2.9), -2);
    EXPECT_EQ(SaturateToInt(-0.9), 0);
}

TEST(SaturateToInt, StopsDoublesAtTheLimits) {
    const struct {
        volatile double value;  // read at run time: compilers convert constants in their own way
        int expected;
    } kCases[] = {
        {2147483646.0, INT_MAX - 1}, {2147483646.9, INT_MAX - 1},  {2147483647.0, INT_MAX},
        {2147483647.5, INT_MAX},     {2147483648.0, INT_MAX},      {1e300, INT_MAX},
        {HUGE_VAL, INT_MAX},         {-2147483647.0, INT_MIN + 1}, {-2147483647.9, INT_MIN + 1},
        {-2147483648.0, INT_MIN},    {-2147483648.9, INT_MIN},     {-2147483649.0, INT_MIN},
        {-1e300, INT_MIN},           {-HUGE_VAL, INT_MIN},
    };
    for (const auto& test : kCases) {
        EXPECT_EQ(SaturateToInt(test.value), test.expected) << test.expected;
    }
}

TEST(SaturateToInt, StopsLongsAtTheLimits) {
    EXPECT_EQ(SaturateToInt(LONG_MAX), INT_MAX);
    EXPECT_EQ(SaturateToInt(LONG_MIN), INT_MIN);
    EXPECT_EQ(SaturateToInt(long{INT_MAX} - 1), INT_MAX - 1);
    EXPECT_EQ(SaturateToInt(long{INT_MIN} + 1), INT_MIN + 1);
    EXPECT_EQ(SaturateToInt(-7L), -7);
}

TEST(DivideDown, RoundsTowardsMinusInfinityAndLeavesNoNegativeRemainder) {
    CheckRandom(97, [](Random& random) {
        const int64_t wide = (int64_t{AnyInt(random)} << random.Between(0, 24)) + AnyInt(random);
        for (const int64_t value : {wide, int64_t{AnyInt(random)}, int64_t{SmallInt(random, 9)}}) {
            const Division division = DivideDown<97>(value);
            ASSERT_EQ(division.quotient * 97 + division.remainder, value);
            ASSERT_TRUE(division.remainder >= 0 && division.remainder < 97) << value;
            const int64_t up = DivideUp<97>(value) * 97 - value;
            ASSERT_TRUE(up >= 0 && up < 97) << value;
        }
    });
}

TEST(BufferSize, OfASizeBelow1IsNone) {
    EXPECT_EQ(BufferSize(INT_MAX), size_t{INT_MAX});
    EXPECT_EQ(BufferSize(1), 1u);
    EXPECT_EQ(BufferSize(0), 0u);
    EXPECT_EQ(BufferSize(-1), 0u);
    EXPECT_EQ(BufferSize(INT_MIN), 0u);
}
