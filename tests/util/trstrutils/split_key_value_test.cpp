// SplitKeyValueByChar.

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>

#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace {

constexpr size_t kSize = 48;

class SplitKeyValueByCharTest : public testing::Test {
protected:
    int Split(std::string_view text, int key_size, int value_size, char separator) {
        return SplitKeyValueByChar(ExactCopy(text).get(), key_.data(), key_size, value_.data(),
                                   value_size, separator);
    }

    // The value as it was but for a zero at index, which may lie behind its end.
    void ExpectOnlyOneZeroInValue(ptrdiff_t index) {
        EXPECT_EQ(value_.at(index), '\0');
        value_.at(index) = GuardedBuffer::kFill;
        value_.ExpectUntouched();
    }

    GuardedBuffer key_{12};
    GuardedBuffer value_{10};
};

void ExpectAsNaive(const std::string& text, int key_size, int value_size, char separator) {
    naive::Outcome outcome = {-1, std::string(kSize, 'k'), std::string(kSize, 'v')};
    const naive::Outcome expected = naive::SplitKeyValueByChar(
        text, outcome.first, key_size, outcome.second, value_size, separator);
    outcome.result = SplitKeyValueByChar(ExactCopy(text).get(), outcome.first.data(), key_size,
                                         outcome.second.data(), value_size, separator);
    ASSERT_EQ(outcome, expected) << "differs from naive::SplitKeyValueByChar, "
                                 << testing::PrintToString(text) << " at " << int{separator} << ", "
                                 << key_size << ", " << value_size;
}

}  // namespace

TEST_F(SplitKeyValueByCharTest, SplitsADateFromATime) {
    EXPECT_EQ(Split("2024-01-02T10:20", 12, 10, 'T'), 0);
    key_.ExpectHolds(Terminated("2024-01-02"));
    value_.ExpectHolds(Terminated("10:20"));
}

TEST_F(SplitKeyValueByCharTest, SplitsAtTheFirstSeparator) {
    EXPECT_EQ(Split("a=b=c", 12, 10, '='), 0);
    key_.ExpectHolds(Terminated("a"));
    value_.ExpectHolds(Terminated("b=c"));
}

TEST_F(SplitKeyValueByCharTest, CutsTheKeyToItsSizeLessOne) {
    EXPECT_EQ(Split("abcdefghij=1", 5, 10, '='), 0);
    key_.ExpectHolds(Terminated("abcd"));
    value_.ExpectHolds(Terminated("1"));
}

TEST_F(SplitKeyValueByCharTest, CutsTheValueToItsSizeLessOne) {
    EXPECT_EQ(Split("k=abcdefghij", 12, 5, '='), 0);
    key_.ExpectHolds(Terminated("k"));
    value_.ExpectHolds(Terminated("abcd"));
}

TEST_F(SplitKeyValueByCharTest, KeepsPartsThatJustFit) {
    EXPECT_EQ(Split("abcd=efg", 5, 4, '='), 0);
    key_.ExpectHolds(Terminated("abcd"));
    value_.ExpectHolds(Terminated("efg"));
}

TEST_F(SplitKeyValueByCharTest, EmptiesPartsOfSizeOne) {
    EXPECT_EQ(Split("abcd=efg", 1, 1, '='), 0);
    key_.ExpectHolds(Terminated(""));
    value_.ExpectHolds(Terminated(""));
}

TEST_F(SplitKeyValueByCharTest, EmptiesTheKeyWhenTheSeparatorOpensTheText) {
    EXPECT_EQ(Split("=1", 12, 10, '='), 0);
    key_.ExpectHolds(Terminated(""));
    value_.ExpectHolds(Terminated("1"));
}

TEST_F(SplitKeyValueByCharTest, ClearsValueAtTheKeysLengthWithoutASeparator) {
    memset(value_.data(), 'z', 5);
    EXPECT_EQ(Split("abc", 12, 10, '='), 0);
    key_.ExpectHolds(Terminated("abc"));
    value_.ExpectHolds(Terminated("zzz") + "z");
}

TEST_F(SplitKeyValueByCharTest, ClearsValueAtTheKeysLengthWhenTheSeparatorIsLast) {
    EXPECT_EQ(Split("abc=", 12, 10, '='), 0);
    key_.ExpectHolds(Terminated("abc"));
    ExpectOnlyOneZeroInValue(3);
}

TEST_F(SplitKeyValueByCharTest, ClearsValuesFirstByteForAnEmptyText) {
    EXPECT_EQ(Split("", 12, 10, '='), 0);
    key_.ExpectHolds(Terminated(""));
    ExpectOnlyOneZeroInValue(0);
}

TEST_F(SplitKeyValueByCharTest, ClearsValuesFirstByteForALoneSeparator) {
    EXPECT_EQ(Split("=", 12, 10, '='), 0);
    key_.ExpectHolds(Terminated(""));
    ExpectOnlyOneZeroInValue(0);
}

TEST_F(SplitKeyValueByCharTest, CountsTheCutKeyForTheClearedByte) {
    EXPECT_EQ(Split("abcdefghij", 5, 10, '='), 0);
    key_.ExpectHolds(Terminated("abcd"));
    ExpectOnlyOneZeroInValue(4);
}

TEST_F(SplitKeyValueByCharTest, ClearsAByteBehindAValueShorterThanTheKey) {
    EXPECT_EQ(Split("abcdefghijk", 12, 10, '='), 0);
    key_.ExpectHolds(Terminated("abcdefghijk"));
    ExpectOnlyOneZeroInValue(11);
    EXPECT_EQ(Split("abcdefghijk=", 12, 1, '='), 0);
    ExpectOnlyOneZeroInValue(11);
}

TEST_F(SplitKeyValueByCharTest, WritesNothingToAKeyOfSizeZeroOrBelow) {
    for (const int size : {0, -1, -5, INT_MIN + 1, INT_MIN}) {
        EXPECT_EQ(Split("abc=12", size, 10, '='), 0) << size;
        key_.ExpectUntouched();
        value_.ExpectHolds(Terminated("12"));
    }
}

TEST_F(SplitKeyValueByCharTest, WritesNothingToAValueOfSizeZeroOrBelow) {
    for (const int size : {0, -1, -5, INT_MIN + 1, INT_MIN}) {
        for (const char* text : {"abc=12", "abc=", "abc"}) {
            EXPECT_EQ(Split(text, 12, size, '='), 0) << size;
            key_.ExpectHolds(Terminated("abc"));
            value_.ExpectUntouched();
        }
    }
}

TEST_F(SplitKeyValueByCharTest, WritesNothingAtAllWithoutAKeySizeAndAValue) {
    for (const int size : {0, -1, -5, INT_MIN}) {
        for (const char* text : {"abc=", "abc", ""}) {
            EXPECT_EQ(Split(text, size, 10, '='), 0) << size;
            key_.ExpectUntouched();
            value_.ExpectUntouched();
        }
    }
}

TEST_F(SplitKeyValueByCharTest, TakesTheLargestSizes) {
    EXPECT_EQ(Split("abc=12", INT_MAX, INT_MAX, '='), 0);
    key_.ExpectHolds(Terminated("abc"));
    value_.ExpectHolds(Terminated("12"));
}

TEST_F(SplitKeyValueByCharTest, TakesAnyByteAsSeparator) {
    for (const char separator : {'\x01', '\x7F', '\x80', '\xA7', '\xFF'}) {
        const std::string text = std::string("k") + separator + "v";
        EXPECT_EQ(Split(text, 12, 10, separator), 0);
        key_.ExpectHolds(Terminated("k"));
        value_.ExpectHolds(Terminated("v"));
    }
}

TEST_F(SplitKeyValueByCharTest, FindsNoSeparatorInTheTerminator) {
    EXPECT_EQ(Split("abc", 12, 10, '\0'), 0);
    key_.ExpectHolds(Terminated("abc"));
    ExpectOnlyOneZeroInValue(3);
}

// The text is measured after the key was written: a key in the text's place hides the value.
TEST_F(SplitKeyValueByCharTest, LosesTheValueWhenTheKeyTakesTheTextsPlace) {
    GuardedBuffer text(8, Terminated("abc=def"));
    EXPECT_EQ(SplitKeyValueByChar(text.data(), text.data(), 8, value_.data(), 10, '='), 0);
    text.ExpectHolds(Terminated("abc") + "def" + '\0');
    ExpectOnlyOneZeroInValue(3);
}

TEST_F(SplitKeyValueByCharTest, LeavesTheTextAlone) {
    GuardedBuffer text(8, Terminated("abc=def"));
    SplitKeyValueByChar(text.data(), key_.data(), 12, value_.data(), 10, '=');
    text.ExpectHolds(Terminated("abc=def"));
}

TEST_F(SplitKeyValueByCharTest, AgreesWithTheNaiveOneOnAllShortTexts) {
    for (const int key_size : {-1, 0, 1, 2, 4, 9}) {
        for (const int value_size : {-1, 0, 1, 2, 4, 9}) {
            CheckAllTexts("a=\xA7", 5, [&](const auto& text) {
                ExpectAsNaive(text, key_size, value_size, '=');
                ExpectAsNaive(text, key_size, value_size, '\xA7');
            });
        }
    }
}

TEST_F(SplitKeyValueByCharTest, AgreesWithTheNaiveOneOnRandomTexts) {
    CheckRandom(3, [](Random& random) {
        constexpr std::string_view kAlphabet = "abcdefgh=\x01\x7F\x80\xFF";
        const char separator = random.OneOf(kAlphabet);
        const std::string text = random.Text(kAlphabet, 40);
        ExpectAsNaive(text, random.Between(-3, 48), random.Between(-3, 48), separator);
    });
}

TEST(SplitKeyValueByChar, ValueMayBeTheTextItself) {
    char text[] = "ab=cdefgh";
    char key[sizeof text];
    EXPECT_EQ(SplitKeyValueByChar(text, key, sizeof key, text, sizeof text, '='), 0);
    EXPECT_STREQ(key, "ab");
    EXPECT_STREQ(text, "cdefgh");
}

TEST_F(SplitKeyValueByCharTest, WritesNothingForATextOfNull) {
    EXPECT_EQ(SplitKeyValueByChar(nullptr, key_.data(), 12, value_.data(), 10, '='), 0);
    key_.ExpectUntouched();
    value_.ExpectUntouched();
}

TEST_F(SplitKeyValueByCharTest, SkipsAKeyOfNull) {
    EXPECT_EQ(SplitKeyValueByChar("key=value", nullptr, 12, value_.data(), 10, '='), 0);
    value_.ExpectHolds(Terminated("value"));
}

TEST_F(SplitKeyValueByCharTest, ClearsTheByteThatAKeyOfItsSizeWouldGive) {
    for (const int key_size : {12, 6, 4, 3, 1}) {
        value_ = GuardedBuffer(10);
        EXPECT_EQ(SplitKeyValueByChar("abcde", nullptr, key_size, value_.data(), 10, '='), 0);
        ExpectOnlyOneZeroInValue(std::min(5, key_size - 1));
    }
    value_ = GuardedBuffer(10);
    SplitKeyValueByChar("abcde", nullptr, 0, value_.data(), 10, '=');
    value_.ExpectUntouched();
}

TEST_F(SplitKeyValueByCharTest, SkipsAValueOfNull) {
    EXPECT_EQ(SplitKeyValueByChar("key=value", key_.data(), 12, nullptr, 10, '='), 0);
    key_.ExpectHolds(Terminated("key"));
    EXPECT_EQ(SplitKeyValueByChar("abc", key_.data(), 12, nullptr, 10, '='), 0);
    key_.ExpectHolds(Terminated("abc"));
    EXPECT_EQ(SplitKeyValueByChar("abc", nullptr, 12, nullptr, 10, '='), 0);
}
