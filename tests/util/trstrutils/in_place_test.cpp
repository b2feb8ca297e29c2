// TrimAroundSpace and Str2Upcase.

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/support/log_lines.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace {

std::string Trimmed(std::string_view text) {
    GuardedBuffer buffer(text.size() + 1, Terminated(text));
    TrimAroundSpace(buffer.data());
    return buffer.text();
}

// With the terminator and what is left after it.
void ExpectAllBytesAsNaive(const std::string& text) {
    const auto buffer = ExactCopy(text);
    TrimAroundSpace(buffer.get());
    ASSERT_EQ(std::string(buffer.get(), text.size() + 1), naive::TrimAroundSpace(text))
        << testing::PrintToString(text);
}

}  // namespace

TEST(TrimAroundSpace, RemovesSpacesAtBothEnds) {
    EXPECT_EQ(Trimmed("  a b  "), "a b");
    EXPECT_EQ(Trimmed(" a"), "a");
    EXPECT_EQ(Trimmed("a "), "a");
    EXPECT_EQ(Trimmed("   a  b   c "), "a  b   c");
}

TEST(TrimAroundSpace, LeavesATextWithoutSpacesAlone) {
    EXPECT_EQ(Trimmed("a"), "a");
    EXPECT_EQ(Trimmed("a b"), "a b");
}

TEST(TrimAroundSpace, EmptiesATextOfSpaces) {
    EXPECT_EQ(Trimmed(" "), "");
    EXPECT_EQ(Trimmed("     "), "");
}

TEST(TrimAroundSpace, KeepsTabsAndLineEnds) {
    EXPECT_EQ(Trimmed("\ta\n"), "\ta\n");
    EXPECT_EQ(Trimmed(" \ta\r\n "), "\ta\r\n");
    EXPECT_EQ(Trimmed("\v \f"), "\v \f");
    EXPECT_EQ(Trimmed(" \xA0 "), "\xA0");
}

TEST(TrimAroundSpace, LeavesANullOrEmptyTextAlone) {
    TrimAroundSpace(nullptr);
    GuardedBuffer buffer(1, Terminated(""));
    TrimAroundSpace(buffer.data());
    buffer.ExpectHolds(Terminated(""));
}

TEST(TrimAroundSpace, WritesNothingToAnEmptyText) {
    static const char kConstant[] = "";  // a write would end the test
    TrimAroundSpace(const_cast<char*>(kConstant));
}

// The byte in front may be a space: it is not the text's.
TEST(TrimAroundSpace, LooksAtNoByteBeforeTheText) {
    GuardedBuffer buffer(4, Terminated("  "));
    buffer.at(-1) = ' ';
    TrimAroundSpace(buffer.data());
    EXPECT_EQ(buffer.at(-1), ' ');
    EXPECT_EQ(buffer.text(), "");
}

TEST(TrimAroundSpace, MovesTheTextAndItsTerminatorOnly) {
    GuardedBuffer buffer(9, Terminated("  abcd  "));
    TrimAroundSpace(buffer.data());
    buffer.ExpectHolds(Terminated("abcd") + "d" + '\0' + ' ' + '\0');
}

TEST(TrimAroundSpace, AgreesWithTheNaiveOneOnAllShortTexts) {
    CheckAllTexts(" a\t\xA0", 8, ExpectAllBytesAsNaive);
}

TEST(TrimAroundSpace, AgreesWithTheNaiveOneOnRandomTexts) {
    CheckRandom(6, [](Random& random) {
        ExpectAllBytesAsNaive(random.Text(random.Between(0, 1) == 0 ? "  a" : "   ab\t\x80", 40));
    });
}

TEST(Str2Upcase, ChangesTheFirstBytesOnly) {
    GuardedBuffer buffer(4, Terminated("abc"));
    EXPECT_EQ(Str2Upcase(buffer.data(), 2), 0);
    buffer.ExpectHolds(Terminated("ABc"));
}

TEST(Str2Upcase, ChangesNothingForALengthBelowOne) {
    for (const int length : {0, -1, INT_MIN}) {
        GuardedBuffer buffer(4, Terminated("abc"));
        EXPECT_EQ(Str2Upcase(buffer.data(), length), 0) << length;
        buffer.ExpectHolds(Terminated("abc"));
    }
}

TEST(Str2Upcase, DoesNotStopAtATerminator) {
    GuardedBuffer buffer(8, std::string_view("ab\0cd\0ef", 8));
    EXPECT_EQ(Str2Upcase(buffer.data(), 7), 0);
    buffer.ExpectHolds(std::string_view("AB\0CD\0Ef", 8));
}

TEST(Str2Upcase, ChangesTextsOfAnyLength) {
    GuardedBuffer buffer(100000, std::string(100000, 'a'));
    EXPECT_EQ(Str2Upcase(buffer.data(), 100000), 0);
    buffer.ExpectHolds(std::string(100000, 'A'));
}

TEST(Str2Upcase, LeavesEveryByteButTheTwentySixLettersAlone) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    GuardedBuffer buffer(256, bytes);
    EXPECT_EQ(Str2Upcase(buffer.data(), 256), 0);
    bytes.replace('a', 26, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    buffer.ExpectHolds(bytes);
}

TEST(Str2Upcase, WritesNothingToATextWithoutSmallLetters) {
    static const char kConstant[] = "ABC`{ 1\xE1";  // a write would end the test
    EXPECT_EQ(Str2Upcase(const_cast<char*>(kConstant), sizeof kConstant), 0);
}

TEST(Str2Upcase, LogsANullText) {
    for (const int length : {3, 0, -1}) {
        CapturedLog log;
        EXPECT_EQ(Str2Upcase(nullptr, length), -1);
        EXPECT_EQ(log.Take(),
                  (std::vector<LogLine>{{"Warning", "trstrutils", "Str2Upcase", "pStr is NULL"}}));
    }
}

TEST(Str2Upcase, LogsNothingElse) {
    CapturedLog log;
    GuardedBuffer buffer(4, Terminated("abc"));
    EXPECT_EQ(Str2Upcase(buffer.data(), 0), 0);
    EXPECT_EQ(Str2Upcase(buffer.data(), 4), 0);
    EXPECT_EQ(log.TakeText(), "");
}

TEST(Str2Upcase, AgreesWithTheNaiveOneOnRandomBytes) {
    CheckRandom(7, [](Random& random) {
        std::string bytes(static_cast<size_t>(random.Between(0, 24)), '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random.Next());
        }
        const int length = random.Between(-1, static_cast<int>(bytes.size()));
        const std::string expected = naive::Str2Upcase(bytes, length);
        const auto buffer = ExactCopy(bytes);
        ASSERT_EQ(Str2Upcase(buffer.get(), length), 0);
        ASSERT_EQ(std::string(buffer.get(), bytes.size()), expected)
            << "differs from naive::Str2Upcase, " << testing::PrintToString(bytes);
    });
}
