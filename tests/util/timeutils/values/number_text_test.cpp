// ConvertStrToInt.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/exact_copy.h"
#include "tests/support/inputs.h"
#include "tests/util/trstrutils/naive.h"
#include "util/timeutils.h"

namespace {

constexpr int kDefault = 5;

int Number(const std::string& text, int default_value = kDefault) {
    return ConvertStrToInt(ExactCopy(text).get(), default_value);
}

}  // namespace

TEST(ConvertStrToInt, ReadsSignedDecimals) {
    EXPECT_EQ(Number("0"), 0);
    EXPECT_EQ(Number("12"), 12);
    EXPECT_EQ(Number("-12"), -12);
    EXPECT_EQ(Number("0042"), 42);
    EXPECT_EQ(Number("-0"), 0);
    EXPECT_EQ(Number("1234567890"), 1234567890);
}

TEST(ConvertStrToInt, AnEmptyTextAndALoneSignGiveTheDefault) {
    for (const int default_value : {5, 0, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(Number("", default_value), default_value);
        EXPECT_EQ(Number("-", default_value), default_value);
    }
}

TEST(ConvertStrToInt, SkipsBlanksWhileTheValueIs0) {
    EXPECT_EQ(Number("  42"), 42);
    EXPECT_EQ(Number("0 42"), 42);
    EXPECT_EQ(Number("0 0 0 4"), 4);
    EXPECT_EQ(Number("- 7"), -7);
    EXPECT_EQ(Number("-0 7"), -7);
    EXPECT_EQ(Number(" "), 0);
    EXPECT_EQ(Number("   "), 0);
    EXPECT_EQ(Number("- "), 0);
    EXPECT_EQ(Number("0 "), 0);
}

TEST(ConvertStrToInt, ABlankEndsAnotherNumber) {
    EXPECT_EQ(Number("12 "), 12);
    EXPECT_EQ(Number("12 34"), 12);
    EXPECT_EQ(Number("12 ab"), 12);
    EXPECT_EQ(Number("-12 -"), -12);
}

TEST(ConvertStrToInt, AnyOtherCharacterGivesTheDefault) {
    for (const std::string text : {"12x", "1a", "x12", "+5", "--5", " -5", "1-", "1.5", "\t5",
                                   "5\n", "0 x", "12\xB5", "\xB2", "1/", "1:", "12x 5"}) {
        EXPECT_EQ(Number(text), kDefault) << text;
        EXPECT_EQ(Number(text, INT_MIN), INT_MIN) << text;
    }
}

TEST(ConvertStrToInt, WrapsAt32Bits) {
    EXPECT_EQ(Number("2147483647"), INT_MAX);
    EXPECT_EQ(Number("2147483648"), INT_MIN);
    EXPECT_EQ(Number("-2147483648"), INT_MIN);
    EXPECT_EQ(Number("-2147483649"), INT_MAX);
    EXPECT_EQ(Number("4294967295"), -1);
    EXPECT_EQ(Number("4294967296"), 0);
    EXPECT_EQ(Number("4294967297"), 1);
    EXPECT_EQ(Number("-4294967297"), -1);
}

// A value that wrapped round to 0 is like one that still is 0.
TEST(ConvertStrToInt, SkipsBlanksAfterAValueThatWrappedTo0) {
    EXPECT_EQ(Number("4294967296 5"), 5);
    EXPECT_EQ(Number("-4294967296 5"), -5);
    EXPECT_EQ(Number("4294967296 x"), kDefault);
    EXPECT_EQ(Number("4294967296 "), 0);
    EXPECT_EQ(Number("4294967297 x"), 1);
}

TEST(ConvertStrToInt, AgreesWithTheNaiveReaderOnAllShortTexts) {
    CheckAllTexts("09- x+", 6, [](const std::string& text) {
        ASSERT_EQ(Number(text), naive::str2int(text, kDefault)) << '"' << text << '"';
    });
}

TEST(ConvertStrToInt, AgreesWithTheNaiveReaderOnRandomTexts) {
    CheckRandom(1403, [](Random& random) {
        const bool is_number = random.Between(0, 1) == 0;
        const std::string text =
            random.Text(is_number ? "0123456789" : "-0123456789 x\t\xB5", is_number ? 14 : 8);
        const int default_value = static_cast<int>(random.Next());
        ASSERT_EQ(Number(text, default_value), naive::str2int(text, default_value)) << text;
    });
}
