// Numbers as digits.

#include "util/digits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "tests/support/dirty_stack.h"
#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/util/timeutils/any_int.h"

namespace {

int Read(std::string_view text, int width) {
    const auto copy = ExactCopy(text);
    return width == 2 ? ReadField<2>(copy.get()) : ReadField<4>(copy.get());
}

}  // namespace

TEST(ReadField, ReadsTheCharacters) {
    EXPECT_EQ(Read("2024-05-17", 4), 2024);
    EXPECT_EQ(Read("05-17", 2), 5);
    EXPECT_EQ(Read("17", 2), 17);
    EXPECT_EQ(Read("2024", 2), 20);
}

TEST(ReadField, EndsAtTheFirstOtherCharacter) {
    EXPECT_EQ(Read("2-24", 4), 2);
    EXPECT_EQ(Read("5:30", 2), 5);
    EXPECT_EQ(Read("x1", 2), 0);
    EXPECT_EQ(Read("1x", 2), 1);
}

TEST(ReadField, TakesWhiteSpaceAndASignBeforeTheDigits) {
    EXPECT_EQ(Read(" 7", 2), 7);
    EXPECT_EQ(Read("\t\n 7", 4), 7);
    EXPECT_EQ(Read("+7", 2), 7);
    EXPECT_EQ(Read("-7", 2), -7);
    EXPECT_EQ(Read("-24-", 4), -24);
    EXPECT_EQ(Read("- 7", 4), 0);
}

TEST(ReadField, TakesNoDigitFromTheStack) {
    DirtyStackWith("7");
    EXPECT_EQ(ReadOddField("+12345", 2), 1);
    DirtyStackWith("7");
    EXPECT_EQ(ReadOddField("+12345", 4), 123);
}

TEST(ReadField, ReadsNothingAfterTheEndOfTheText) {
    EXPECT_EQ(Read("", 2), 0);
    EXPECT_EQ(Read("0", 2), 0);
    EXPECT_EQ(Read("1", 4), 1);
}

TEST(ReadInt, StopsAtTheLimits) {
    EXPECT_EQ(ReadInt("2147483648"), INT_MAX);
    EXPECT_EQ(ReadInt("-2147483649"), INT_MIN);
    EXPECT_EQ(ReadInt("99999999999999999999"), INT_MAX);
    EXPECT_EQ(ReadInt(" -12x"), -12);
    EXPECT_EQ(ReadInt("x"), 0);
}

TEST(ReadInt, ReadsAsStrtolDoes) {
    CheckAllTexts(" +-019x", 5, [](const std::string& text) {
        const auto copy = ExactCopy(text);
        ASSERT_EQ(ReadInt(copy.get()), strtol(text.c_str(), nullptr, 10)) << text;
    });
    for (const char* text : {"999999999", "0999999999", "1000000000", "2147483647", "-2147483648",
                             "000000000000000000012", "123456789012", "\v\f\r\n\t 5"}) {
        const long long value = strtoll(text, nullptr, 10);
        EXPECT_EQ(ReadInt(text), std::min<long long>(value, INT_MAX)) << text;
    }
}

TEST(ReadInt, SetsErrnoWhereStrtolDoes) {
    errno = 0;
    EXPECT_EQ(ReadInt("999999999"), 999999999);
    EXPECT_EQ(errno, 0);
    EXPECT_EQ(ReadInt("99999999999999999999"), INT_MAX);
    EXPECT_EQ(errno, ERANGE);
}

TEST(WriteNumber, WritesAsPrintfDoes) {
    const auto check = [](int value) {
        for (const int width : {2, 4}) {
            GuardedBuffer buffer(16);
            char expected[16];
            snprintf(expected, sizeof expected, width == 2 ? "%02d" : "%04d", value);
            char* const end = width == 2 ? WriteNumber<2>(buffer.data(), value)
                                         : WriteNumber<4>(buffer.data(), value);
            ASSERT_EQ(std::string(buffer.data(), end), expected) << value;
            buffer.ExpectHolds(expected);
        }
    };
    for (int value = -12'000; value <= 12'000; ++value) {
        check(value);
    }
    for (const int value :
         {INT_MIN, INT_MIN + 1, -1'000'000'000, -99'999, 99'999, INT_MAX - 1, INT_MAX}) {
        check(value);
    }
    CheckRandom(2, [&](Random& random) { check(AnyInt(random)); });
}

TEST(WriteThree, PutsSeparatorsBetween) {
    GuardedBuffer buffer(64);
    WriteThree<4>(buffer.data(), 2024, '-', 5, 7);
    buffer.ExpectHolds("2024-05-07");
    GuardedBuffer clock(64);
    WriteThree<2>(clock.data(), -8, ':', 123, INT_MIN);
    clock.ExpectHolds("-8:123:-2147483648");
}

TEST(PutText, CutsAsSnprintfDoes) {
    const std::string text = "2024-05-07";
    for (const int size : {INT_MIN, -1, 0, 1, 2, 10, 11, 12, 40}) {
        GuardedBuffer buffer(48);
        PutText(buffer.data(), size, text.data(), text.data() + text.size());
        if (size < 1) {
            buffer.ExpectUntouched();
        } else {
            buffer.ExpectHolds(Terminated(text.substr(0, static_cast<size_t>(size - 1))));
        }
    }
    GuardedBuffer buffer(4);
    PutText(buffer.data(), 4, text.data(), text.data());
    buffer.ExpectHolds(Terminated(""));
}
