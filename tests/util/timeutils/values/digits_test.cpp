// Digits, digit groups and HHMM numbers as texts.

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/support/log_lines.h"
#include "util/timeutils.h"

static_assert(std::is_same_v<decltype(&digitvalue), int (*)(int)>);
static_assert(std::is_same_v<decltype(&TimeTimeToInt), int (*)(const char*, int*, int)>);
static_assert(std::is_same_v<decltype(&IntTimeToStrTime), int (*)(char*, int, int)>);

namespace {

constexpr int kUnwritten = -777;

// The numbers read, with one more slot behind them that must stay unwritten.
std::vector<int> NumbersIn(const std::string& text, int count) {
    std::vector<int> numbers(static_cast<size_t>(count), kUnwritten);
    numbers.push_back(kUnwritten);
    EXPECT_EQ(TimeTimeToInt(ExactCopy(text).get(), numbers.data(), count), 0) << text;
    EXPECT_EQ(numbers.back(), kUnwritten) << text;
    numbers.pop_back();
    return numbers;
}

// The same by cutting the text into its groups: each separator opens the next slot.
std::vector<int> NaiveNumbersIn(const std::string& text, int count) {
    std::vector<std::string> groups(1);
    for (size_t i = 0; i < text.size(); ++i) {
        const bool is_digit = std::string_view("0123456789").find(text[i]) != std::string::npos;
        const bool is_first_separator =
            !is_digit &&
            (i == 0 || std::string_view("0123456789").find(text[i - 1]) != std::string::npos);
        if (is_digit) {
            groups.back() += text[i];
        } else if (is_first_separator) {
            groups.emplace_back();
        }
    }
    std::vector<int> numbers(static_cast<size_t>(count), kUnwritten);
    for (size_t i = 0; i < groups.size() && i < numbers.size(); ++i) {
        if (!groups[i].empty()) {
            unsigned value = 0;
            for (const char digit : groups[i]) {
                value = value * 10 + static_cast<unsigned>(digit - '0');
            }
            numbers[i] = static_cast<int>(value);
        }
    }
    return numbers;
}

std::string ClockText(int hhmm, int size = 32) {
    GuardedBuffer buffer(static_cast<size_t>(size));
    EXPECT_EQ(IntTimeToStrTime(buffer.data(), size, hhmm), 0);
    buffer.ExpectHolds(Terminated(buffer.text()));
    return buffer.text();
}

}  // namespace

TEST(digitvalue, IsTheValueOfADigit) {
    for (int c = 0; c < 256; ++c) {
        EXPECT_EQ(digitvalue(c), c >= '0' && c <= '9' ? c - '0' : -1) << c;
    }
}

TEST(digitvalue, LooksOnlyAtTheLowByte) {
    EXPECT_EQ(digitvalue('0' + 256), 0);
    EXPECT_EQ(digitvalue('9' + 7 * 256), 9);
    EXPECT_EQ(digitvalue('5' - 256), 5);
    EXPECT_EQ(digitvalue(':' + 256), -1);
    EXPECT_EQ(digitvalue(-1), -1);
    EXPECT_EQ(digitvalue(INT_MAX), -1);
    EXPECT_EQ(digitvalue(INT_MIN), -1);
    EXPECT_EQ(digitvalue(INT_MIN + '3'), 3);
}

TEST(TimeTimeToInt, ReadsGroupsOfDigits) {
    EXPECT_EQ(NumbersIn("08:30", 2), (std::vector{8, 30}));
    EXPECT_EQ(NumbersIn("2024-05-17", 3), (std::vector{2024, 5, 17}));
    EXPECT_EQ(NumbersIn("2024-05-17T08:30:15", 6), (std::vector{2024, 5, 17, 8, 30, 15}));
    EXPECT_EQ(NumbersIn("000", 1), (std::vector{0}));
}

TEST(TimeTimeToInt, TakesARunOfOtherCharactersAsOneSeparator) {
    EXPECT_EQ(NumbersIn("1::2", 3), (std::vector{1, 2, kUnwritten}));
    EXPECT_EQ(NumbersIn("1 \xFF-x2", 2), (std::vector{1, 2}));
}

TEST(TimeTimeToInt, ALeadingSeparatorLeavesTheFirstNumber) {
    EXPECT_EQ(NumbersIn(":5", 2), (std::vector{kUnwritten, 5}));
    EXPECT_EQ(NumbersIn("::5", 2), (std::vector{kUnwritten, 5}));
    EXPECT_EQ(NumbersIn(":5", 1), (std::vector{kUnwritten}));
}

TEST(TimeTimeToInt, LeavesNumbersThatTheTextDoesNotGive) {
    EXPECT_EQ(NumbersIn("7", 3), (std::vector{7, kUnwritten, kUnwritten}));
    EXPECT_EQ(NumbersIn("7:", 3), (std::vector{7, kUnwritten, kUnwritten}));
    EXPECT_EQ(NumbersIn("", 2), (std::vector{kUnwritten, kUnwritten}));
    EXPECT_EQ(NumbersIn("abc", 2), (std::vector{kUnwritten, kUnwritten}));
}

TEST(TimeTimeToInt, IgnoresGroupsBeyondTheCount) {
    EXPECT_EQ(NumbersIn("1:2:3", 2), (std::vector{1, 2}));
    EXPECT_EQ(NumbersIn("12:34", 1), (std::vector{12}));
}

TEST(TimeTimeToInt, ReadsAnyNumberOfGroups) {
    std::string text;
    for (int i = 0; i < 40000; ++i) {
        text += "7:";
    }
    EXPECT_EQ(NumbersIn(text, 40000), std::vector<int>(40000, 7));
}

TEST(TimeTimeToInt, WrapsAt32Bits) {
    EXPECT_EQ(NumbersIn("2147483647 2147483648 4294967296 4294967303", 4),
              (std::vector{INT_MAX, INT_MIN, 0, 7}));
}

TEST(TimeTimeToInt, RefusesMissingArguments) {
    int number = kUnwritten;
    EXPECT_EQ(TimeTimeToInt("1", &number, 0), -1);
    EXPECT_EQ(TimeTimeToInt(nullptr, &number, 1), -1);
    EXPECT_EQ(TimeTimeToInt("1", nullptr, 1), -1);
    EXPECT_EQ(TimeTimeToInt("", nullptr, 1), -1);
    EXPECT_EQ(TimeTimeToInt(nullptr, &number, -1), -1);
    EXPECT_EQ(number, kUnwritten);
}

TEST(TimeTimeToInt, WritesNothingForANegativeCount) {
    int number = kUnwritten;
    for (const int count : {-1, INT_MIN}) {
        EXPECT_EQ(TimeTimeToInt("1:2", &number, count), 0);
    }
    EXPECT_EQ(number, kUnwritten);
}

TEST(TimeTimeToInt, AgreesWithCuttingTheTextIntoGroups) {
    CheckAllTexts("07:\xB5", 6, [](const std::string& text) {
        for (int count = 1; count <= 4; ++count) {
            ASSERT_EQ(NumbersIn(text, count), NaiveNumbersIn(text, count)) << text;
        }
    });
    Random random(830);
    for (int i = 0; i < 30'000; ++i) {
        const std::string text = random.Text("0123456789012345678901234567890123456789:-T", 60);
        const int count = random.Between(1, 8);
        ASSERT_EQ(NumbersIn(text, count), NaiveNumbersIn(text, count)) << text;
    }
}

TEST(IntTimeToStrTime, WritesHourAndMinute) {
    EXPECT_EQ(ClockText(930), "09:30");
    EXPECT_EQ(ClockText(0), "00:00");
    EXPECT_EQ(ClockText(5), "00:05");
    EXPECT_EQ(ClockText(2359), "23:59");
    for (int hhmm = 0; hhmm < 10000; ++hhmm) {
        std::string digits = std::to_string(hhmm);
        digits.insert(0, 4 - digits.size(), '0');
        ASSERT_EQ(ClockText(hhmm, 6), digits.insert(2, ":"));
    }
}

TEST(IntTimeToStrTime, TruncatesTowardZero) {
    EXPECT_EQ(ClockText(-5), "00:-5");
    EXPECT_EQ(ClockText(-930), "-9:-30");
    EXPECT_EQ(ClockText(12345), "123:45");
    EXPECT_EQ(ClockText(INT_MAX), "21474836:47");
    EXPECT_EQ(ClockText(INT_MIN), "-21474836:-48");
}

TEST(IntTimeToStrTime, CutsWiderNumbersToTheBuffer) {
    EXPECT_EQ(ClockText(12345, 6), "123:4");
    EXPECT_EQ(ClockText(INT_MIN, 6), "-2147");
}

TEST(IntTimeToStrTime, RefusesSizesBelowSix) {
    for (const int size : {5, 4, 1, 0, -1, INT_MIN}) {
        GuardedBuffer buffer(8);
        EXPECT_EQ(IntTimeToStrTime(buffer.data(), size, 930), -1) << size;
        buffer.ExpectUntouched();
    }
    EXPECT_EQ(IntTimeToStrTime(nullptr, 6, 930), -1);
}

TEST(digitvalue, DoesNotLogNorDoTheOthers) {
    CapturedLog log;
    digitvalue('x');
    TimeTimeToInt(nullptr, nullptr, 0);
    IntTimeToStrTime(nullptr, 0, 0);
    EXPECT_EQ(log.TakeText(), "");
}
