// The date texts and clock forms against a second implementation.

#include <gtest/gtest.h>

#include <string>

#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

namespace {

constexpr int kBufferSize = 96;

// text at the start of a buffer.
GuardedBuffer Buffer(const std::string& text) {
    return GuardedBuffer(kBufferSize, Terminated(text));
}

// All bytes of such a buffer.
std::string BytesOf(GuardedBuffer& buffer) {
    return std::string(buffer.data(), kBufferSize);
}

void CompareDates(const std::string& text, int code, int calendar_mode) {
    Date date;
    DeFormatDate(ExactCopy(text).get(), code, calendar_mode, &date.year, &date.month, &date.day);
    ASSERT_EQ(date, naive::ReadDate(text, code, calendar_mode))
        << "differs from naive::ReadDate, \"" << text << "\", code " << code << ", calendar "
        << calendar_mode;
}

void CompareHours(const std::string& text, int size, int to24) {
    if (testing::Test::HasFatalFailure()) {
        return;  // the first difference is enough
    }
    GuardedBuffer buffer = Buffer(text);
    const auto expected = naive::ConvertHourText(BytesOf(buffer), size, to24 != 0);
    EXPECT_EQ(HourTimeFormatToCurMode(buffer.data(), size, to24), expected.result);
    buffer.ExpectHolds(expected.bytes);
    if (to24 != 0) {
        buffer = Buffer(text);
        EXPECT_EQ(HourTimeFormatTo24Mode(buffer.data(), size), expected.result);
        buffer.ExpectHolds(expected.bytes);
    }
    ASSERT_FALSE(testing::Test::HasFailure()) << "differs from naive::ConvertHourText, \"" << text
                                              << "\", size " << size << ", to24 " << to24;
}

// Digits in pairs with something between them, so that most texts are dates.
std::string RandomDate(Random& random) {
    std::string text = random.Text("0123456789", 4);
    for (int i = random.Between(0, 4); i > 0; --i) {
        text += random.Text("-/. x+", 1) + random.Text("0123456789", 3);
    }
    return text;
}

// Mostly a clock text of either form.
std::string RandomClock(Random& random) {
    std::string text = random.Text("0123456789", 2) + random.Text(":0123456789 ", 8);
    if (random.Between(0, 20) == 0) {
        text += random.Text("0123456789 ", 70);
    }
    return text + random.Text(" ", 1) + random.Text("APM", 2) + random.Text(" x", 1);
}

int RandomNumber(Random& random) {
    return random.Between(0, 3) == 0 ? static_cast<int>(random.Next()) : random.Between(-99, 2999);
}

}  // namespace

TEST(DateTexts, AgreeWithTheNaiveOnesOnAllShortTexts) {
    CheckAllTexts("4-x", 8, [](const std::string& text) {
        for (const int code : {0, 3, 6, 9, -7}) {
            CompareDates(text, code, static_cast<int>(text.size()) % 3);
        }
    });
    CheckAllTexts("39- +x", 5, [](const std::string& text) {
        for (const int code : {1, 5, 8, 19}) {
            CompareDates(text, code, code % 3);
        }
    });
}

TEST(DateTexts, AreReadAsTheNaiveReaderDoes) {
    CheckRandom(20380119, [](Random& random) {
        const int code = random.Between(-40, 40);
        CompareDates(RandomDate(random), code, random.Between(-1, 3));
    });
}

TEST(DateTexts, AreWrittenAsTheNaiveWriterDoes) {
    CheckRandom(20381231, [](Random& random) {
        const int code = RandomNumber(random);
        const Date date = {RandomNumber(random), RandomNumber(random), RandomNumber(random)};
        GuardedBuffer buffer(kBufferSize);
        FormatDate(buffer.data(), code, date.year, date.month, date.day);
        buffer.ExpectHolds(Terminated(naive::DateText(code, date)));
        ASSERT_FALSE(testing::Test::HasFailure()) << "differs from naive::DateText, code " << code;
    });
}

TEST(DateTexts, MoveToAndFromTheStandardFormAsTheNaiveOnesDo) {
    CheckRandom(1404, [](Random& random) {
        const std::string text = RandomDate(random);
        const int code = random.Between(-40, 40);
        const int calendar_mode = random.Between(-1, 3);
        const int size = random.Between(-2, 16);
        GuardedBuffer buffer = Buffer(text);
        const std::string standard =
            naive::FmtDateToStandardDate(BytesOf(buffer), size, code, calendar_mode);
        ASSERT_EQ(FmtDateToStandardDate(buffer.data(), size, code, calendar_mode), 1);
        buffer.ExpectHolds(standard);
        ASSERT_FALSE(testing::Test::HasFailure())
            << "differs from naive::FmtDateToStandardDate, \"" << text << "\", code " << code
            << ", calendar " << calendar_mode << ", size " << size;

        buffer = Buffer(text);
        const std::string formatted = naive::StandardDateToFmtDate(BytesOf(buffer), code);
        ASSERT_EQ(StandardDateToFmtDate(buffer.data(), size, code, calendar_mode), 1);
        buffer.ExpectHolds(formatted);
        ASSERT_FALSE(testing::Test::HasFailure())
            << "differs from naive::StandardDateToFmtDate, \"" << text << "\", code " << code;
    });
}

TEST(HourTexts, AgreeWithTheNaiveOnesOnAllShortTexts) {
    CheckAllTexts("17: AP", 6, [](const std::string& text) {
        CompareHours(text, 16, 0);
        CompareHours(text, 16, 1);
    });
}

TEST(HourTexts, AgreeWithTheNaiveOnesOnRandomTexts) {
    CheckRandom(1445, [](Random& random) {
        const int size = random.Between(0, 3) == 0 ? random.Between(-2, 12) : kBufferSize;
        CompareHours(RandomClock(random), size, random.Between(-1, 1));
    });
}
