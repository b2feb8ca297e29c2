// ConvertCompileDate.

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

#include "tests/support/dirty_stack.h"
#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/support/log_lines.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

namespace {

std::string Converted(const std::string& text) {
    GuardedBuffer dst(48);
    EXPECT_EQ(ConvertCompileDate(ExactCopy(text).get(), dst.data(), dst.size()), 1) << text;
    const std::string digits = dst.text();
    dst.ExpectHolds(Terminated(digits));
    return digits;
}

}  // namespace

TEST(ConvertCompileDate, KnowsTheTwelveMonths) {
    const std::string kNames[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::string kNumbers[] = {"01", "02", "03", "04", "05", "06",
                                    "07", "08", "09", "10", "11", "12"};
    for (size_t i = 0; i < std::size(kNames); ++i) {
        EXPECT_EQ(Converted(kNames[i] + " 17 2024"), "2024" + kNumbers[i] + "17");
    }
}

TEST(ConvertCompileDate, AnUnknownMonthIs00) {
    for (const std::string word : {"Xyz", "may", "MAY", "mAy", "Ma", "M", "ayJ", "5"}) {
        EXPECT_EQ(Converted(word + " 3 2025"), "20250003") << word;
    }
}

TEST(ConvertCompileDate, SkipsBlanks) {
    EXPECT_EQ(Converted("Feb  3 2025"), "20250203");
    EXPECT_EQ(Converted("  Feb\t3\n 2025"), "20250203");
    EXPECT_EQ(Converted("Feb 3 2025 08:09:10"), "20250203");
    EXPECT_EQ(Converted("Feb 3+2025"), "20250203");
}

TEST(ConvertCompileDate, MissingNumbersAre0) {
    EXPECT_EQ(Converted(""), "00000000");
    EXPECT_EQ(Converted("   "), "00000000");
    EXPECT_EQ(Converted("May"), "00000500");
    EXPECT_EQ(Converted("May 17"), "00000517");
    EXPECT_EQ(Converted("May 17 x"), "00000517");
    EXPECT_EQ(Converted("May x 2024"), "00000500");  // the scan ends at the x
    EXPECT_EQ(Converted("17 2024"), "0000002024");   // 2024 is the day
}

TEST(ConvertCompileDate, WritesNumbersOfOtherWidths) {
    EXPECT_EQ(Converted("May 7 5"), "00050507");
    EXPECT_EQ(Converted("May 123 12345"), "1234505123");
    EXPECT_EQ(Converted("May -7 -5"), "-00505-7");
}

TEST(ConvertCompileDate, NumbersStopAtTheLimitsOf32Bits) {
    EXPECT_EQ(Converted("May 1 2147483648"), "21474836470501");
    EXPECT_EQ(Converted("May 1 4294967297"), "21474836470501");
    EXPECT_EQ(Converted("May -99999999999 1"), "000105-2147483648");
    EXPECT_EQ(Converted("May 1 99999999999999999999"), "21474836470501");
}

TEST(ConvertCompileDate, OnlyThe39FirstCharactersCount) {
    const std::string blanks(27, ' ');
    const std::string many_blanks(500, ' ');
    EXPECT_EQ(Converted("May  17 " + blanks + "2024"), "20240517");  // 39 characters
    EXPECT_EQ(Converted("May  17  " + blanks + "2024"), "02020517");
    EXPECT_EQ(Converted("May  17   " + blanks + "2024"), "00200517");
    EXPECT_EQ(Converted("May 17 2024" + std::string(500, '9')), "21474836470517");
    EXPECT_EQ(Converted(many_blanks + "May 17 2024"), "00000000");
}

TEST(ConvertCompileDate, EndsAfter39CharactersWhateverTheStackHolds) {
    const std::string text = "May  17 " + std::string(27, ' ') + "20249";
    char digits[16];
    DirtyStackWith("7");
    ConvertCompileDate(text.c_str(), digits, sizeof digits);
    EXPECT_STREQ(digits, "20240517");
}

TEST(ConvertCompileDate, FindsNoMonthOnTheStack) {
    const std::string_view kName = "May";
    for (size_t shift = 0; shift < kName.size(); ++shift) {
        char digits[16];
        DirtyStackWith(kName, shift);
        ConvertCompileDate("", digits, sizeof digits);
        EXPECT_STREQ(digits, "00000000") << shift;
    }
}

TEST(ConvertCompileDate, ALongMonthWordDoesNoHarm) {
    EXPECT_EQ(Converted("Mayday 17 2024"), "20240517");
    EXPECT_EQ(Converted("Sept 17 2024"), "20240917");
    EXPECT_EQ(Converted(std::string(38, 'x')), "00000000");
    EXPECT_EQ(Converted(std::string(39, 'x')), "00000000");
    EXPECT_EQ(Converted(std::string(40, 'x')), "00000000");
    EXPECT_EQ(Converted("Dec" + std::string(500, 'x') + " 17 2024"), "00001200");
}

TEST(ConvertCompileDate, IsBoundedBySize) {
    const struct {
        int size;
        std::string written;
    } kCases[] = {
        {16, Terminated("20240517")},
        {9, Terminated("20240517")},
        {8, Terminated("2024051")},
        {5, Terminated("2024")},
        {1, Terminated("")},
        {0, ""},
        {-1, ""},
        {INT_MIN, ""},
    };
    for (const auto& [size, written] : kCases) {
        SCOPED_TRACE(size);
        GuardedBuffer dst(16);
        EXPECT_EQ(ConvertCompileDate("May 17 2024", dst.data(), size), 1);
        dst.ExpectHolds(written);
    }
}

TEST(ConvertCompileDate, NullGives0AndIsNotLogged) {
    CapturedLog log;
    GuardedBuffer dst(16);
    EXPECT_EQ(ConvertCompileDate(nullptr, dst.data(), dst.size()), 0);
    EXPECT_EQ(ConvertCompileDate("May 17 2024", nullptr, 16), 0);
    EXPECT_EQ(ConvertCompileDate(nullptr, nullptr, 16), 0);
    EXPECT_EQ(log.TakeText(), "");
    dst.ExpectUntouched();
}

// The message has a line end of its own, so an empty line follows.
TEST(ConvertCompileDate, LogsTheDigitsWhole) {
    CapturedLog log;
    GuardedBuffer dst(16);
    ConvertCompileDate("May 17 2024", dst.data(), dst.size());
    ConvertCompileDate("Feb  3 2025", dst.data(), 3);
    ConvertCompileDate("Xyz  3 2025", dst.data(), 0);
    const std::vector<LogLine> expected = {
        {"Info", "timeutils", "ConvertCompileDate", "20240517\n"},
        {"Info", "timeutils", "ConvertCompileDate", "20250203\n"},
        {"Info", "timeutils", "ConvertCompileDate", "20250003\n"},
    };
    EXPECT_EQ(log.Take(), expected);
}

TEST(ConvertCompileDate, AgreesWithTheNaiveOneOnAllShortTexts) {
    CheckAllTexts("1 -M", 7, [](const std::string& text) {
        ASSERT_EQ(Converted("May" + text), naive::CompileDate("May" + text)) << text;
    });
    CheckAllTexts("Jan 1x", 5, [](const std::string& text) {
        ASSERT_EQ(Converted(text), naive::CompileDate(text)) << text;
    });
}

TEST(ConvertCompileDate, AgreesWithTheNaiveOneOnRandomTexts) {
    const std::string kWords[] = {"Jan",  "Feb ", "Mar ", "Apr ", "May ", "Jun ", "Jul ", "Aug ",
                                  "Sep ", "Oct",  "Nov ", "Dec ", "dec ", "J ",   ""};
    CheckRandom(4711, [&](Random& random) {
        const std::string word = kWords[random.Between(0, std::size(kWords) - 1)];
        const std::string text = word + random.Text("0123456789   +-x", 48);
        ASSERT_EQ(Converted(text), naive::CompileDate(text)) << text;
        ASSERT_FALSE(testing::Test::HasFailure()) << text;
    });
}
