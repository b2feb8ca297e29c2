// SplitByChar.

#include <gtest/gtest.h>

#include <string>

#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace {

constexpr size_t kSize = 48;

class SplitByCharTest : public testing::Test {
protected:
    // The result as a distance from rest.
    ptrdiff_t Split(std::string_view text, int separator) {
        return SplitByChar(ExactCopy(text).get(), first_.data(), rest_.data(), separator) -
               rest_.data();
    }

    // The byte before rest was set to zero, and rest is as it was.
    void ExpectOnlyTheByteBeforeRestCleared() {
        EXPECT_EQ(rest_.at(-1), '\0');
        rest_.at(-1) = GuardedBuffer::kFill;
        rest_.ExpectUntouched();
    }

    GuardedBuffer first_{kSize};
    GuardedBuffer rest_{kSize};
};

naive::Outcome Call(const std::string& text, int separator) {
    std::string first(kSize, 'f');
    std::string rest(kSize, 'r');
    char* const buffer = rest.data() + 1;
    const char* end = SplitByChar(ExactCopy(text).get(), first.data(), buffer, separator);
    return {end - buffer, first, rest};
}

void ExpectAsNaive(const std::string& text, int separator) {
    ASSERT_EQ(Call(text, separator),
              naive::SplitByChar(text, std::string(kSize, 'f'), std::string(kSize, 'r'), separator))
        << testing::PrintToString(text) << " at " << separator;
}

}  // namespace

TEST_F(SplitByCharTest, SplitsAtTheFirstSeparator) {
    EXPECT_EQ(Split("ab,cd,ef", ','), 6);
    first_.ExpectHolds(Terminated("ab"));
    rest_.ExpectHolds(Terminated("cd,ef"));
}

TEST_F(SplitByCharTest, EmptiesRestWhenTheSeparatorIsTheLastByte) {
    EXPECT_EQ(Split("ab,", ','), 1);
    first_.ExpectHolds(Terminated("ab"));
    rest_.ExpectHolds(Terminated(""));
}

TEST_F(SplitByCharTest, EmptiesFirstWhenTheSeparatorOpensTheText) {
    EXPECT_EQ(Split(",x", ','), 2);
    first_.ExpectHolds(Terminated(""));
    rest_.ExpectHolds(Terminated("x"));
}

TEST_F(SplitByCharTest, EmptiesBothForALoneSeparator) {
    EXPECT_EQ(Split(",", ','), 1);
    first_.ExpectHolds(Terminated(""));
    rest_.ExpectHolds(Terminated(""));
}

TEST_F(SplitByCharTest, KeepsLaterSeparatorsInRest) {
    EXPECT_EQ(Split("a,,", ','), 2);
    first_.ExpectHolds(Terminated("a"));
    rest_.ExpectHolds(Terminated(","));
}

TEST_F(SplitByCharTest, ClearsTheByteBeforeRestWithoutASeparator) {
    EXPECT_EQ(Split("abc", ','), 0);
    first_.ExpectHolds(Terminated("abc"));
    ExpectOnlyTheByteBeforeRestCleared();
}

TEST_F(SplitByCharTest, ClearsTheByteBeforeRestForAnEmptyText) {
    EXPECT_EQ(Split("", ','), 0);
    first_.ExpectHolds(Terminated(""));
    ExpectOnlyTheByteBeforeRestCleared();
}

TEST_F(SplitByCharTest, ComparesBytesAsUnsigned) {
    EXPECT_EQ(Split("a\xA7z", 0xA7), 2);
    first_.ExpectHolds(Terminated("a"));
    rest_.ExpectHolds(Terminated("z"));
    EXPECT_EQ(Split("b\xFFy", 0xFF), 2);
    first_.ExpectHolds(Terminated("b"));
    rest_.ExpectHolds(Terminated("y"));
}

TEST_F(SplitByCharTest, FindsNoSeparatorOutsideAByte) {
    for (const int separator : {0xA7 - 256, -1, 256 + ',', 0x10000 + ',', INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(Split("a\xA7\xFF,z", separator), 0) << separator;
        first_.ExpectHolds(Terminated("a\xA7\xFF,z"));
        ExpectOnlyTheByteBeforeRestCleared();
    }
}

TEST_F(SplitByCharTest, FindsNoSeparatorInTheTerminator) {
    EXPECT_EQ(Split("abc", 0), 0);
    first_.ExpectHolds(Terminated("abc"));
    ExpectOnlyTheByteBeforeRestCleared();
}

// rest is measured against the text as it is after first was written.
TEST_F(SplitByCharTest, MayWriteRestOverTheTextBehindTheSeparator) {
    GuardedBuffer text(10, Terminated("key=value"));
    EXPECT_EQ(SplitByChar(text.data(), first_.data(), text.data() + 4, '='), text.data() + 10);
    first_.ExpectHolds(Terminated("key"));
    text.ExpectHolds(Terminated("key=value"));
}

TEST_F(SplitByCharTest, LeavesTheTextAlone) {
    GuardedBuffer text(9, Terminated("ab,cd,ef"));
    SplitByChar(text.data(), first_.data(), rest_.data(), ',');
    text.ExpectHolds(Terminated("ab,cd,ef"));
}

TEST_F(SplitByCharTest, AgreesWithTheNaiveOneOnAllShortTexts) {
    for (const int separator : {int{','}, 0xA7, 0xA7 - 256, 0}) {
        CheckAllTexts("a,\xA7 ", 6, [&](const auto& text) { ExpectAsNaive(text, separator); });
    }
}

TEST_F(SplitByCharTest, AgreesWithTheNaiveOneOnRandomTexts) {
    CheckRandom(1, [](Random& random) {
        const std::string text = random.Text("abcdef,;\x01\x7F\x80\xFF", 40);
        ExpectAsNaive(text, random.Between(-130, 260));
    });
}

// The alphabet, its separators among it.
TEST_F(SplitByCharTest, AgreesWithTheNaiveOneWhereTheSeparatorOccurs) {
    CheckRandom(2, [](Random& random) {
        constexpr std::string_view kAlphabet = "abcdef,;\x01\x7F\x80\xFF";
        const int separator = static_cast<unsigned char>(random.OneOf(kAlphabet));
        ExpectAsNaive(random.Text(kAlphabet, 40), separator);
    });
}

TEST(SplitByChar, RestMayBeTheTextItself) {
    char text[] = "ab,cdefgh";
    char first[sizeof text];
    EXPECT_EQ(SplitByChar(text, first, text, ','), text + 7);
    EXPECT_STREQ(first, "ab");
    EXPECT_STREQ(text, "cdefgh");
}

TEST_F(SplitByCharTest, WritesNothingForATextOfNull) {
    EXPECT_EQ(SplitByChar(nullptr, first_.data(), rest_.data(), ','), rest_.data());
    EXPECT_EQ(rest_.at(-1), GuardedBuffer::kFill);
    first_.ExpectUntouched();
    rest_.ExpectUntouched();
    EXPECT_EQ(SplitByChar(nullptr, first_.data(), nullptr, ','), nullptr);
    first_.ExpectUntouched();
}

TEST_F(SplitByCharTest, SkipsAFirstOfNull) {
    EXPECT_EQ(SplitByChar("ab,cd,ef", nullptr, rest_.data(), ','), rest_.data() + 6);
    rest_.ExpectHolds(Terminated("cd,ef"));
    rest_ = GuardedBuffer(kSize);
    EXPECT_EQ(SplitByChar("abc", nullptr, rest_.data(), ','), rest_.data());
    ExpectOnlyTheByteBeforeRestCleared();
}

TEST_F(SplitByCharTest, SkipsARestOfNull) {
    EXPECT_EQ(SplitByChar("ab,cd,ef", first_.data(), nullptr, ','), nullptr);
    first_.ExpectHolds(Terminated("ab"));
    EXPECT_EQ(SplitByChar("ab", nullptr, nullptr, ','), nullptr);
}
