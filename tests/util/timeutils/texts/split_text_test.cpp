// ParseDate, ParseTime, ParseTimeNoSec and ParseDateNoYear, and what all four share (Splitters).

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

namespace {

constexpr int kUntouched = -777;

// One of the four functions, with its outputs in an array.
struct Splitter {
    const char* name;
    char separator;
    size_t count;
    std::function<void(char* text, int* numbers)> call;
};

const Splitter kDate = {"ParseDate", '-', 3,
                        [](char* t, int* n) { ParseDate(t, &n[0], &n[1], &n[2]); }};
const Splitter kTime = {"ParseTime", ':', 3,
                        [](char* t, int* n) { ParseTime(t, &n[0], &n[1], &n[2]); }};
const Splitter kTimeNoSec = {"ParseTimeNoSec", ':', 2,
                             [](char* t, int* n) { ParseTimeNoSec(t, &n[0], &n[1]); }};
const Splitter kDateNoYear = {"ParseDateNoYear", '-', 2,
                              [](char* t, int* n) { ParseDateNoYear(t, &n[0], &n[1]); }};
const Splitter kSplitters[] = {kDate, kTime, kTimeNoSec, kDateNoYear};

// In texts of the tests '|' stands for the separator and, in expectations, '0' for a terminator
// where the separator was.
void ExpectSplit(const Splitter& splitter, std::string text, const std::vector<int>& numbers,
                 const std::vector<size_t>& overwritten) {
    for (char& byte : text) {
        byte = byte == '|' ? splitter.separator : byte;
    }
    SCOPED_TRACE(splitter.name + (" " + text));
    GuardedBuffer buf(48, Terminated(text));
    std::vector<int> got(splitter.count, kUntouched);
    splitter.call(buf.data(), got.data());
    std::vector<int> expected = numbers;
    expected.resize(splitter.count, kUntouched);
    EXPECT_EQ(got, expected);
    for (size_t i = 0; i < overwritten.size() && i + 1 < splitter.count; ++i) {
        text[overwritten[i]] = '\0';
    }
    buf.ExpectHolds(Terminated(text));
}

void CompareWithNaive(const Splitter& splitter, const std::string& text) {
    GuardedBuffer buf(48, Terminated(text));
    std::vector<int> numbers(splitter.count, kUntouched);
    const naive::Split expected = naive::SplitNumbers(text, splitter.separator, numbers);
    splitter.call(buf.data(), numbers.data());
    ASSERT_EQ(numbers, expected.numbers)
        << splitter.name << " differs from naive::SplitNumbers, \"" << text << '"';
    buf.ExpectHolds(Terminated(expected.bytes));
    ASSERT_FALSE(testing::Test::HasFailure())
        << splitter.name << " differs from naive::SplitNumbers, \"" << text << '"';
}

}  // namespace

TEST(ParseDate, ReadsYearMonthAndDay) {
    ExpectSplit(kDate, "2024|05|07", {2024, 5, 7}, {4, 7});
    ExpectSplit(kDate, "08|09|10", {8, 9, 10}, {2, 5});
}

TEST(ParseTime, ReadsHourMinuteAndSecond) {
    ExpectSplit(kTime, "08|09|10", {8, 9, 10}, {2, 5});
}

TEST(ParseTimeNoSec, ReadsHourAndMinute) {
    ExpectSplit(kTimeNoSec, "08|09|10", {8, 9}, {2, 5});
}

TEST(ParseDateNoYear, ReadsMonthAndDay) {
    ExpectSplit(kDateNoYear, "08|09|10", {8, 9}, {2, 5});
}

TEST(ParseDate, LeavesWhatStandsBehindTheDay) {
    ExpectSplit(kDate, "1|2|3|4|5", {1, 2, 3}, {1, 3});
}

TEST(ParseTime, LeavesWhatStandsBehindTheSecond) {
    ExpectSplit(kTime, "1|2|3|4|5", {1, 2, 3}, {1, 3});
}

TEST(ParseTimeNoSec, LeavesWhatStandsBehindTheMinute) {
    ExpectSplit(kTimeNoSec, "1|2|3|4|5", {1, 2}, {1});
}

TEST(ParseDateNoYear, LeavesWhatStandsBehindTheDay) {
    ExpectSplit(kDateNoYear, "1|2|3|4|5", {1, 2}, {1});
}

TEST(ParseDate, ADashInFrontIsASignAndASeparator) {
    ExpectSplit(kDate, "-5-6", {-5, 5, 6}, {0, 2});
    ExpectSplit(kDate, "2024--5", {2024, -5, 5}, {4, 5});
}

TEST(ParseDateNoYear, ADashInFrontIsASignAndASeparator) {
    ExpectSplit(kDateNoYear, "-5-6", {-5, 5}, {0});
}

TEST(ParseDate, DoesNotSplitAtColons) {
    ExpectSplit(kDate, "12:30:45", {12}, {});
}

TEST(ParseTime, DoesNotSplitAtDashes) {
    ExpectSplit(kTime, "2024-05-07", {2024}, {});
    ExpectSplit(kTime, "-1:-2:-3", {-1, -2, -3}, {2, 5});
}

TEST(ParseTime, MissingNumbersAre0) {
    ExpectSplit(kTime, "::", {0, 0, 0}, {0, 1});
}

TEST(ParseTime, NumbersStopAtTheLimitsOf32Bits) {
    ExpectSplit(kTime, "2147483647:2147483648:99999999999999999999", {INT_MAX, INT_MAX, INT_MAX},
                {10, 21});
    ExpectSplit(kTime, "-2147483648:-2147483649:4294967297", {INT_MIN, INT_MIN, INT_MAX}, {11, 23});
}

TEST(Splitters, AMissingSeparatorLeavesTheOutputsNotReached) {
    for (const Splitter& splitter : kSplitters) {
        ExpectSplit(splitter, "2024|05", {2024, 5}, {4});
        ExpectSplit(splitter, "2024", {2024}, {});
        ExpectSplit(splitter, "2024/05.07", {2024}, {});
    }
}

TEST(Splitters, MissingNumbersAre0) {
    for (const Splitter& splitter : kSplitters) {
        ExpectSplit(splitter, "", {0}, {});
        ExpectSplit(splitter, "x", {0}, {});
        ExpectSplit(splitter, "5|", {5, 0}, {1});
        ExpectSplit(splitter, "x|y", {0, 0}, {1});
        ExpectSplit(splitter, "3x|4y", {3, 4}, {2});
        ExpectSplit(splitter, " 3 | +4 ", {3, 4}, {3});
    }
}

TEST(Splitters, ANullTextChangesNothing) {
    for (const Splitter& splitter : kSplitters) {
        std::vector<int> numbers(splitter.count, kUntouched);
        splitter.call(nullptr, numbers.data());
        EXPECT_EQ(numbers, std::vector<int>(splitter.count, kUntouched));
    }
}

TEST(Splitters, ReadNothingBehindTheTerminator) {
    const std::string text = "2024:05-07:08-09";
    for (size_t length = 0; length <= text.size(); ++length) {
        for (const Splitter& splitter : kSplitters) {
            int numbers[3];
            splitter.call(ExactCopy(text.substr(0, length)).get(), numbers);
            EXPECT_EQ(numbers[0], naive::Number(text.substr(0, length)));
        }
    }
}

TEST(Splitters, AgreeWithTheNaiveOnesOnAllShortTexts) {
    for (const Splitter& splitter : kSplitters) {
        CheckAllTexts("07-: x", 5,
                      [&](const std::string& text) { CompareWithNaive(splitter, text); });
    }
}

TEST(Splitters, AgreeWithTheNaiveOnesOnRandomTexts) {
    CheckRandom(20240507, [](Random& random) {
        const Splitter& splitter = kSplitters[random.Between(0, 3)];
        CompareWithNaive(splitter, random.Text("0123456789-::- +x", 40));
    });
}

TEST(ParseDate, ReadsTheOthersWhereAnOutputIsMissing) {
    for (size_t missing = 0; missing < 3; ++missing) {
        char text[] = "2024-05-17";
        int numbers[] = {kUntouched, kUntouched, kUntouched};
        int* outputs[] = {&numbers[0], &numbers[1], &numbers[2]};
        outputs[missing] = nullptr;
        ParseDate(text, outputs[0], outputs[1], outputs[2]);
        for (size_t i = 0; i < 3; ++i) {
            const int kWhole[] = {2024, 5, 17};
            EXPECT_EQ(numbers[i], i == missing ? kUntouched : kWhole[i]) << missing;
        }
        EXPECT_STREQ(text + 5, "05");
    }
}

TEST(ParseDate, NumbersThatAreNoneAreZeroAndLargeOnesStopAtTheLimits) {
    char text[] = "x-99999999999- 7y";
    int year = kUntouched;
    int month = kUntouched;
    int day = kUntouched;
    ParseDate(text, &year, &month, &day);
    EXPECT_EQ(year, 0);
    EXPECT_EQ(month, INT_MAX);
    EXPECT_EQ(day, 7);
}

TEST(ParseDate, AMinusSignBeforeTheYearIsASeparatorToo) {
    char text[] = "-5-3";
    int year = kUntouched;
    int month = kUntouched;
    int day = kUntouched;
    ParseDate(text, &year, &month, &day);
    EXPECT_EQ(year, -5);
    EXPECT_EQ(month, 5);
    EXPECT_EQ(day, 3);
}
