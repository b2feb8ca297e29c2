// ExtractValueInt.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/exact_copy.h"
#include "tests/support/inputs.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace {

constexpr int kDefault = -777;

int ValueOfN(const std::string& value) {
    return ExtractValueInt(ExactCopy("a=5,n=" + value + ",b=6").get(), "n", ',', kDefault);
}

}  // namespace

TEST(ExtractValueInt, ReadsANumber) {
    EXPECT_EQ(ExtractValueInt("n=12", "n", ',', kDefault), 12);
    EXPECT_EQ(ExtractValueInt("a=5,n=-3", "n", ',', kDefault), -3);
    EXPECT_EQ(ExtractValueInt("n=0", "n", ',', kDefault), 0);
}

TEST(ExtractValueInt, IsTheDefaultForAMissingKey) {
    EXPECT_EQ(ExtractValueInt("a=5", "n", ',', kDefault), kDefault);
    EXPECT_EQ(ExtractValueInt("an=5", "n", ',', 8), 8);
    EXPECT_EQ(ExtractValueInt("", "n", ',', INT_MIN), INT_MIN);
}

TEST(ExtractValueInt, IsTheDefaultForANullText) {
    EXPECT_EQ(ExtractValueInt(nullptr, "n", ',', kDefault), kDefault);
}

TEST(ExtractValueInt, IsTheDefaultForAnEmptyValue) {
    EXPECT_EQ(ExtractValueInt("n=", "n", ',', kDefault), kDefault);
    EXPECT_EQ(ExtractValueInt("n=,a=5", "n", ',', kDefault), kDefault);
}

TEST(ExtractValueInt, IsTheDefaultForAValueOfFortyBytes) {
    for (const size_t length : {38U, 39U, 40U, 41U, 80U}) {
        std::string padded_left(length, '0');
        padded_left.back() = '7';
        EXPECT_EQ(ValueOfN(padded_left), length < 40 ? 7 : kDefault) << length;
        std::string padded_right(length, ' ');
        padded_right.front() = '7';
        EXPECT_EQ(ValueOfN(padded_right), length < 40 ? 7 : kDefault) << length;
    }
}

TEST(ExtractValueInt, StopsAtTheFirstNonDigit) {
    EXPECT_EQ(ValueOfN("12x"), 12);
    EXPECT_EQ(ValueOfN("12 34"), 12);
    EXPECT_EQ(ValueOfN("-12-3"), -12);
    EXPECT_EQ(ValueOfN("0x10"), 0);
    EXPECT_EQ(ValueOfN("010"), 10);
    EXPECT_EQ(ValueOfN("1.9"), 1);
}

TEST(ExtractValueInt, IsZeroWithoutLeadingDigits) {
    for (const char* value : {"abc", "-", "+", " ", "x12", "--5", "+-5", "- 5"}) {
        EXPECT_EQ(ValueOfN(value), 0) << value;
    }
}

TEST(ExtractValueInt, AcceptsLeadingWhiteSpaceAndASign) {
    for (const char* value : {" 42", "+42", "\t\n\v\f\r 42", "  +42", "\n42"}) {
        EXPECT_EQ(ValueOfN(value), 42) << value;
    }
    EXPECT_EQ(ValueOfN(" -42"), -42);
}

TEST(ExtractValueInt, ReachesAndStopsAtTheLimitsOfThirtyTwoBits) {
    EXPECT_EQ(ValueOfN("2147483647"), INT_MAX);
    EXPECT_EQ(ValueOfN("-2147483648"), INT_MIN);
    EXPECT_EQ(ValueOfN("2147483648"), INT_MAX);
    EXPECT_EQ(ValueOfN("-2147483649"), INT_MIN);
    EXPECT_EQ(ValueOfN("4294967297"), INT_MAX);
    EXPECT_EQ(ValueOfN("99999999999999999999999999999999999999"), INT_MAX);
    EXPECT_EQ(ValueOfN("-99999999999999999999999999999999999999"), INT_MIN);
}

TEST(ExtractValueInt, TakesASeparatorAboveAsciiUnsigned) {
    EXPECT_EQ(ExtractValueInt("a=1\xA7n=2\xA7"
                              "b=3",
                              "n", 0xA7, kDefault),
              2);
}

TEST(ExtractValueInt, AgreesWithTheNaiveOneOnAllShortTexts) {
    CheckAllTexts("n=,1- ", 6, [](const auto& text) {
        ASSERT_EQ(ExtractValueInt(ExactCopy(text).get(), "n", ',', kDefault),
                  naive::ExtractValueInt(text, "n", ',', kDefault))
            << testing::PrintToString(text);
    });
}

TEST(ExtractValueInt, AgreesWithTheNaiveOneOnRandomTexts) {
    CheckRandom(5, [](Random& random) {
        const std::string text = "a=1,n=" + random.Text("0123456789012345678901234567-+ ,x", 45);
        ASSERT_EQ(ExtractValueInt(ExactCopy(text).get(), "n", ',', kDefault),
                  naive::ExtractValueInt(text, "n", ',', kDefault))
            << testing::PrintToString(text);
    });
}

TEST(ExtractValueInt, IsTheDefaultForNull) {
    EXPECT_EQ(ExtractValueInt(nullptr, "a", ',', -7), -7);
    EXPECT_EQ(ExtractValueInt("a=1", nullptr, ',', -7), -7);
}
