// ExtractValue.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace {

class ExtractValueTest : public testing::Test {
protected:
    int Extract(std::string_view text, std::string_view key, int out_max = 16,
                int separator = ',') {
        out_ = GuardedBuffer(16);
        return ExtractValue(ExactCopy(text).get(), ExactCopy(key).get(), separator, out_.data(),
                            out_max);
    }

    void ExpectMissing(std::string_view text, std::string_view key, int separator = ',') {
        EXPECT_EQ(Extract(text, key, 16, separator), -1) << text << " / " << key;
        out_.ExpectHolds(Terminated(""));
    }

    GuardedBuffer out_{16};
};

void ExpectAsNaive(const std::string& text, const std::string& key, int separator, int out_max) {
    naive::Outcome outcome = {-2, std::string(24, 'o'), ""};
    const naive::Outcome expected =
        naive::ExtractValue(text, key, separator, outcome.first, out_max);
    outcome.result = ExtractValue(ExactCopy(text).get(), ExactCopy(key).get(), separator,
                                  outcome.first.data(), out_max);
    ASSERT_EQ(outcome, expected) << "differs from naive::ExtractValue, "
                                 << testing::PrintToString(text) << ", "
                                 << testing::PrintToString(key) << ", " << separator << ", "
                                 << out_max;
}

}  // namespace

TEST_F(ExtractValueTest, ReadsTheValueOfAKey) {
    EXPECT_EQ(Extract("name=Tom,age=7", "age"), 1);
    out_.ExpectHolds(Terminated("7"));
    EXPECT_EQ(Extract("name=Tom,age=7", "name"), 3);
    out_.ExpectHolds(Terminated("Tom"));
}

TEST_F(ExtractValueTest, IsMinusOneForAMissingKey) {
    ExpectMissing("name=Tom,age=7", "sex");
    ExpectMissing("", "sex");
    ExpectMissing("sex", "sex");
    ExpectMissing("a=1,sex", "sex");
}

TEST_F(ExtractValueTest, IsMinusOneForANullText) {
    EXPECT_EQ(ExtractValue(nullptr, "age", ',', out_.data(), 16), -1);
    out_.ExpectHolds(Terminated(""));
}

TEST_F(ExtractValueTest, IsZeroForAnEmptyValue) {
    EXPECT_EQ(Extract("a=,b=2", "a"), 0);
    out_.ExpectHolds(Terminated(""));
    EXPECT_EQ(Extract("b=2,a=", "a"), 0);
    out_.ExpectHolds(Terminated(""));
}

TEST_F(ExtractValueTest, MatchesAKeyOnlyAtTheStartOrAfterASeparator) {
    ExpectMissing("ba=1", "a");
    ExpectMissing("x=1,ba=1", "a");
    ExpectMissing("x=1;a=1", "a");
    EXPECT_EQ(Extract("ba=1,a=22", "a"), 2);
    out_.ExpectHolds(Terminated("22"));
}

TEST_F(ExtractValueTest, MatchesAnEmptyItemsKeyAfterALeadingSeparator) {
    EXPECT_EQ(Extract(",a=5", "a"), 1);
    out_.ExpectHolds(Terminated("5"));
}

TEST_F(ExtractValueTest, MatchesTheWholeKeyAndItsCase) {
    ExpectMissing("age=7", "Age");
    ExpectMissing("age=7", "ag");
    ExpectMissing("age=7", "age2");
    ExpectMissing("a=1,age=7", "AGE");
}

TEST_F(ExtractValueTest, CountsSpacesToKeysAndValues) {
    ExpectMissing("a=1, b=2", "b");
    ExpectMissing("a=1,b =2", "b");
    EXPECT_EQ(Extract("a=1, b = 2 ,c=3", " b "), 3);
    out_.ExpectHolds(Terminated(" 2 "));
}

TEST_F(ExtractValueTest, TakesTheFirstOfTwoMatches) {
    EXPECT_EQ(Extract("x=0,a=1,a=22", "a"), 1);
    out_.ExpectHolds(Terminated("1"));
    EXPECT_EQ(Extract("a=333,a=22", "a"), 3);
    out_.ExpectHolds(Terminated("333"));
}

TEST_F(ExtractValueTest, EndsAValueAtTheSeparatorAlone) {
    EXPECT_EQ(Extract("a=b=c;d,e", "a"), 5);
    out_.ExpectHolds(Terminated("b=c;d"));
}

TEST_F(ExtractValueTest, TakesAnEmptyKey) {
    EXPECT_EQ(Extract("=1,a=2", ""), 1);
    out_.ExpectHolds(Terminated("1"));
    EXPECT_EQ(Extract("a=2,=3", ""), 1);
    out_.ExpectHolds(Terminated("3"));
}

TEST_F(ExtractValueTest, TakesKeysThatHoldASeparatorOrAnEqualsSign) {
    EXPECT_EQ(Extract("a,b=c=1", "b=c"), 1);
    out_.ExpectHolds(Terminated("1"));
    EXPECT_EQ(Extract("x=0,a,b=4", "a,b"), 1);
    out_.ExpectHolds(Terminated("4"));
}

TEST_F(ExtractValueTest, LeavesPercentSignsOfTheKeyAlone) {
    EXPECT_EQ(Extract("x=0,%s%n=4", "%s%n"), 1);
    out_.ExpectHolds(Terminated("4"));
}

TEST_F(ExtractValueTest, KeepsAValueOfOneLessThanTheLimit) {
    EXPECT_EQ(Extract("a=1234,b=1", "a", 5), 4);
    out_.ExpectHolds(Terminated("1234"));
    EXPECT_EQ(Extract("b=1,a=1234", "a", 5), 4);
    out_.ExpectHolds(Terminated("1234"));
}

TEST_F(ExtractValueTest, FillsTheLimitWithoutTerminatorAndReturnsZero) {
    EXPECT_EQ(Extract("a=1234,b=1", "a", 4), 0);
    out_.ExpectHolds("1234");
    EXPECT_EQ(Extract("a=123456789", "a", 4), 0);
    out_.ExpectHolds("1234");
    EXPECT_EQ(Extract("name=Tom,age=7", "age", 1), 0);
    out_.ExpectHolds("7");
}

TEST_F(ExtractValueTest, HasRoomForAnEmptyValueInALimitOfOne) {
    EXPECT_EQ(Extract("a=,b=2", "a", 1), 0);
    out_.ExpectHolds(Terminated(""));
    EXPECT_EQ(Extract("b=2", "a", 1), -1);
    out_.ExpectHolds(Terminated(""));
}

TEST_F(ExtractValueTest, WritesNothingForALimitOfZeroOrBelow) {
    for (const int out_max : {0, -1, -16, INT_MIN}) {
        EXPECT_EQ(Extract("a=,b=2", "a", out_max), 0) << out_max;
        out_.ExpectUntouched();
        EXPECT_EQ(Extract("a=,b=2", "b", out_max), 0) << out_max;
        out_.ExpectUntouched();
        EXPECT_EQ(Extract("a=,b=2", "c", out_max), -1) << out_max;
        out_.ExpectUntouched();
        EXPECT_EQ(ExtractValue(nullptr, "a", ',', out_.data(), out_max), -1) << out_max;
        out_.ExpectUntouched();
    }
}

TEST_F(ExtractValueTest, TakesTheLargestLimit) {
    EXPECT_EQ(Extract("a=12,b=3", "a", INT_MAX), 2);
    out_.ExpectHolds(Terminated("12"));
}

TEST_F(ExtractValueTest, TakesKeysOfUpTo197Bytes) {
    const std::string longest(197, 'k');
    EXPECT_EQ(Extract(longest + "=1", longest), 1);
    out_.ExpectHolds(Terminated("1"));
    EXPECT_EQ(Extract("a=0," + longest + "=1", longest), 1);
    out_.ExpectHolds(Terminated("1"));
}

TEST_F(ExtractValueTest, FindsNoKeyOver197Bytes) {
    for (const size_t length : {198U, 199U, 200U, 201U, 1000U}) {
        const std::string key(length, 'k');
        ExpectMissing(key + "=1", key);
        ExpectMissing("a=0," + key + "=1", key);
        ExpectMissing("=1,=2", key);  // it is not taken for an empty one either
    }
    // Cut to the pattern's 199 bytes such a key would match.
    const std::string cut(198, 'k');
    ExpectMissing(cut + "1", std::string(198, 'k'));
    ExpectMissing("a=0," + cut + "1", std::string(199, 'k'));
}

TEST_F(ExtractValueTest, TakesKeysAtTheVeryEnd) {
    EXPECT_EQ(Extract("key=", "key"), 0);
    out_.ExpectHolds(Terminated(""));
    EXPECT_EQ(Extract("a=1,key=", "key"), 0);
    out_.ExpectHolds(Terminated(""));
    EXPECT_EQ(Extract("a=1,key=2", "key"), 1);
    out_.ExpectHolds(Terminated("2"));
}

TEST_F(ExtractValueTest, FindsNoKeyThatTheTextEndsIn) {
    for (const char* text : {"k", "ke", "key", ",", ",k", ",key", "a=1,", "a=1,ke", "a=1,key"}) {
        ExpectMissing(text, "key");
    }
}

TEST_F(ExtractValueTest, GoesOnBehindAFirstItemThatOnlyBeginsLikeTheKey) {
    EXPECT_EQ(Extract("keys=1,key=22", "key"), 2);
    out_.ExpectHolds(Terminated("22"));
    EXPECT_EQ(Extract("key,key=22", "key"), 2);
    out_.ExpectHolds(Terminated("22"));
}

TEST_F(ExtractValueTest, ComparesBytesAsUnsigned) {
    EXPECT_EQ(Extract("a=1\xA7"
                      "b=22\xA7"
                      "c=3",
                      "b", 16, 0xA7),
              2);
    out_.ExpectHolds(Terminated("22"));
    EXPECT_EQ(Extract("a=1\xFF"
                      "b=22",
                      "a", 16, 0xFF),
              1);
    out_.ExpectHolds(Terminated("1"));
}

// Such a separator never equals a byte of the value.
TEST_F(ExtractValueTest, RunsToTheEndForASeparatorOutsideAByte) {
    for (const int separator : {0xA7 - 256, 256 + 0xA7, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(Extract("a=1\xA7"
                          "b=22",
                          "a", 16, separator),
                  6)
            << separator;
        out_.ExpectHolds(
            Terminated("1\xA7"
                       "b=22"));
    }
}

// Only the low byte of the separator goes into the pattern that is searched.
TEST_F(ExtractValueTest, FindsKeysBehindTheSeparatorsLowByte) {
    for (const int separator : {0xA7 - 256, 256 + 0xA7}) {
        EXPECT_EQ(Extract("a=1\xA7"
                          "b=22\xA7"
                          "c=3",
                          "b", 16, separator),
                  6)
            << separator;
        out_.ExpectHolds(
            Terminated("22\xA7"
                       "c=3"));
    }
}

TEST_F(ExtractValueTest, FindsOnlyTheFirstKeyForASeparatorOfZero) {
    EXPECT_EQ(Extract("a=1,b=2", "a", 16, 0), 5);
    out_.ExpectHolds(Terminated("1,b=2"));
    ExpectMissing("a=1,b=2", "b", 0);
}

TEST_F(ExtractValueTest, AgreesWithTheNaiveOneOnAllShortTexts) {
    for (const char* key : {"a", "", "aa", ",a", "a="}) {
        for (const int out_max : {0, 1, 2, 9}) {
            CheckAllTexts("a=,b", 6,
                          [&](const auto& text) { ExpectAsNaive(text, key, ',', out_max); });
        }
    }
}

TEST_F(ExtractValueTest, AgreesWithTheNaiveOneOnRandomTexts) {
    CheckRandom(4, [](Random& random) {
        const std::string_view alphabet = random.Between(0, 1) == 0 ? "ab==,," : "a=,\xA7\x7F\x80";
        const std::string text = random.Text(alphabet, 22);
        const std::string key = random.Text(alphabet, 2);
        const int separator = random.Between(0, 9) == 0
                                  ? random.Between(-200, 500)
                                  : static_cast<unsigned char>(random.OneOf(alphabet));
        ExpectAsNaive(text, key, separator, random.Between(-1, 24));
    });
}

TEST_F(ExtractValueTest, IsMissingForAKeyOfNull) {
    EXPECT_EQ(ExtractValue("(null)=1,=2", nullptr, ',', out_.data(), 16), -1);
    out_.ExpectHolds(Terminated(""));
    EXPECT_EQ(ExtractValue(nullptr, nullptr, ',', nullptr, 16), -1);
}

TEST_F(ExtractValueTest, HasTheSameResultWithoutOut) {
    for (const int out_max : {INT_MIN, 0, 1, 3, 4, 16}) {
        for (const char* text : {"a=", "a=123", "b=1", "a=1,b=2"}) {
            EXPECT_EQ(ExtractValue(text, "a", ',', nullptr, out_max), Extract(text, "a", out_max))
                << text << ", " << out_max;
        }
    }
}
