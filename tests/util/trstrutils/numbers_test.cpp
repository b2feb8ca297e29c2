// str2int.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/exact_copy.h"
#include "tests/support/inputs.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace {

constexpr int kDefault = -777;

int Read(std::string_view text) {
    return str2int(ExactCopy(text).get(), kDefault);
}

void ExpectAsNaive(const std::string& text) {
    ASSERT_EQ(Read(text), naive::str2int(text, kDefault)) << testing::PrintToString(text);
}

}  // namespace

TEST(str2int, ReadsDigits) {
    EXPECT_EQ(Read("123"), 123);
    EXPECT_EQ(Read("0"), 0);
    EXPECT_EQ(Read("9876543"), 9876543);
    EXPECT_EQ(Read("007"), 7);
}

TEST(str2int, ReadsAMinusSign) {
    EXPECT_EQ(Read("-45"), -45);
    EXPECT_EQ(Read("-0"), 0);
}

TEST(str2int, TakesTheMinusSignFromTheFirstByteOnly) {
    for (const char* text : {" -5", "0-5", "--5", "5-", "-5-"}) {
        EXPECT_EQ(Read(text), kDefault) << text;
    }
}

TEST(str2int, IsTheDefaultForAPlusSign) {
    EXPECT_EQ(Read("+5"), kDefault);
    EXPECT_EQ(Read("-+5"), kDefault);
}

TEST(str2int, IsTheDefaultForAnEmptyTextOrALoneMinus) {
    for (const int value : {0, 5, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(str2int("", value), value);
        EXPECT_EQ(str2int("-", value), value);
    }
}

TEST(str2int, SkipsSpacesWhileTheValueIsZero) {
    EXPECT_EQ(Read("  7"), 7);
    EXPECT_EQ(Read("0 12"), 12);
    EXPECT_EQ(Read("- 5"), -5);
    EXPECT_EQ(Read("-  0 0 12"), -12);
    EXPECT_EQ(Read(" 0 0 1"), 1);
}

TEST(str2int, IsZeroForSpacesOnly) {
    EXPECT_EQ(Read(" "), 0);
    EXPECT_EQ(Read("     "), 0);
    EXPECT_EQ(Read("- "), 0);
    EXPECT_EQ(Read("0 "), 0);
}

TEST(str2int, EndsAtASpaceAfterTheNumber) {
    EXPECT_EQ(Read("12 34"), 12);
    EXPECT_EQ(Read("-12 34"), -12);
    EXPECT_EQ(Read("12 "), 12);
    EXPECT_EQ(Read("12 x-\t+"), 12);
}

TEST(str2int, IsTheDefaultForAnyOtherByte) {
    EXPECT_EQ(Read("12a"), kDefault);
    for (int byte = 1; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        const bool is_digit = byte >= '0' && byte <= '9';
        if (is_digit || character == ' ') {
            continue;
        }
        EXPECT_EQ(Read(std::string("12") + character), kDefault) << byte;
        EXPECT_EQ(Read(std::string("0 ") + character + "7"), kDefault) << byte;
        if (character != '-') {
            EXPECT_EQ(Read(std::string(1, character)), kDefault) << byte;
            EXPECT_EQ(Read(character + std::string("7")), kDefault) << byte;
        }
    }
}

TEST(str2int, ReachesTheLimitsOfThirtyTwoBits) {
    EXPECT_EQ(Read("2147483647"), INT_MAX);
    EXPECT_EQ(Read("-2147483647"), -INT_MAX);
    EXPECT_EQ(Read("-2147483648"), INT_MIN);
}

TEST(str2int, WrapsBeyondThirtyTwoBits) {
    EXPECT_EQ(Read("2147483648"), INT_MIN);
    EXPECT_EQ(Read("-2147483649"), INT_MAX);
    EXPECT_EQ(Read("4294967295"), -1);
    EXPECT_EQ(Read("-4294967295"), 1);
    EXPECT_EQ(Read("4294967296"), 0);
    EXPECT_EQ(Read("4294967301"), 5);
    EXPECT_EQ(Read("99999999999999999999"), 1661992959);  // 10^20 - 1, modulo 2^32
}

TEST(str2int, SkipsASpaceAfterAValueThatWrappedToZero) {
    EXPECT_EQ(Read("4294967296 12"), 12);
    EXPECT_EQ(Read("-4294967296 12"), -12);
    EXPECT_EQ(Read("4294967296 x"), kDefault);
}

TEST(str2int, AgreesWithTheNaiveOneOnAllShortTexts) {
    CheckAllTexts("0 7-9x", 7, ExpectAsNaive);
}

TEST(str2int, AgreesWithTheNaiveOneOnRandomTexts) {
    CheckRandom(9, [](Random& random) {
        const bool is_clean = random.Between(0, 1) == 0;
        const std::string sign = random.Between(0, 1) == 0 ? "-" : "";
        ExpectAsNaive(sign + random.Text(is_clean ? "0123456789" : "0000 123456789-+\t\x80", 24));
    });
}

TEST(str2int, IsTheDefaultForNull) {
    EXPECT_EQ(str2int(nullptr, -7), -7);
    EXPECT_EQ(str2int(nullptr, 42), 42);
}
