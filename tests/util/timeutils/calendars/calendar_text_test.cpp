// LocalTimeToChris and ChrisToLocalTime.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/support/log_lines.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"
#include "util/timeutils/calendars/day_number.h"

namespace {

constexpr int kBufferSize = 32;

using Rewrite = int (*)(int calendar_mode, char* text, int size, int text_type, int code);

struct Rewritten {
    int result;
    std::string text;

    bool operator==(const Rewritten&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Rewritten& rewritten) {
    return out << rewritten.result << " \"" << rewritten.text << '"';
}

Rewritten Run(Rewrite rewrite, int calendar_mode, const std::string& text, int text_type,
              int code) {
    GuardedBuffer buf(kBufferSize, Terminated(text));
    const int result = rewrite(calendar_mode, buf.data(), buf.size(), text_type, code);
    return {result, buf.text()};
}

Rewritten ToChris(int calendar_mode, const std::string& text, int text_type, int code) {
    return Run(LocalTimeToChris, calendar_mode, text, text_type, code);
}

Rewritten ToLocal(int calendar_mode, const std::string& text, int text_type, int code) {
    return Run(ChrisToLocalTime, calendar_mode, text, text_type, code);
}

// The record converters have tests of their own.
TTime Converted(TTime rec, bool to_local, int calendar_mode) {
    if (calendar_mode == 1) {
        to_local ? ChrisTmToPersianTm(&rec) : PersianTmToChrisTm(&rec);
    }
    if (calendar_mode == 2) {
        to_local ? ChrisTmToIslamicTm(&rec) : IslamicTmToChrisTm(&rec);
    }
    return rec;
}

void CompareWithNaive(bool to_local, int calendar_mode, const std::string& text, int size,
                      int text_type, int code) {
    if (testing::Test::HasFatalFailure()) {
        return;  // the first difference is enough
    }
    GuardedBuffer buf(64, Terminated(text));
    std::string bytes(buf.data(), 64);
    int result = 1;
    if (calendar_mode != 0) {
        const int parse_mode = to_local ? 0 : calendar_mode;
        const TTime rec = naive::ParseStrToTTime(text, TTime{}, text_type, code, parse_mode);
        bytes = naive::TTimeToStr(Converted(rec, to_local, calendar_mode), bytes, size, text_type,
                                  code);
        result = to_local ? 1 : 0;
    }
    const Rewrite rewrite = to_local ? ChrisToLocalTime : LocalTimeToChris;
    EXPECT_EQ(rewrite(calendar_mode, buf.data(), size, text_type, code), result);
    buf.ExpectHolds(bytes);
    ASSERT_FALSE(testing::Test::HasFailure())
        << "differs from naive::ParseStrToTTime with naive::TTimeToStr, "
        << (to_local ? "to" : "from") << " calendar " << calendar_mode << ", \"" << text
        << "\", size " << size << ", type " << text_type << ", code " << code;
}

}  // namespace

TEST(LocalTimeToChris, ConvertsADateAndTime) {
    EXPECT_EQ(ToChris(1, "1403-01-01T12:30:45", 4, 9), (Rewritten{0, "2024-03-20T12:30:00"}));
    EXPECT_EQ(ToChris(1, "1403-07-01 08:05", 4, 9), (Rewritten{0, "2024-09-22T08:05:00"}));
    EXPECT_EQ(ToChris(2, "1446-01-01T23:59:59", 4, 9), (Rewritten{0, "2024-07-08T23:59:00"}));
}

TEST(LocalTimeToChris, ConvertsADate) {
    EXPECT_EQ(ToChris(2, "1445-09-01", 1, 9), (Rewritten{0, "2024-03-11"}));
    EXPECT_EQ(ToChris(1, "1403-06-31", 1, 9), (Rewritten{0, "2024-09-21"}));
    EXPECT_EQ(ToChris(1, "1403-12-30", 1, 9), ToChris(1, "1404-01-01", 1, 9));
}

TEST(LocalTimeToChris, WidensShortYearsInTheCalendar) {
    EXPECT_EQ(ToChris(1, "01/01/03", 1, 7), (Rewritten{0, "20/03/24"}));
    EXPECT_EQ(ToChris(1, "78-10-11", 1, 0), (Rewritten{0, "00-01-01"}));  // 1378
    EXPECT_EQ(ToChris(1, "78-10-11 08:05", 4, 0), (Rewritten{0, "2000-01-01T08:05:00"}));
    EXPECT_EQ(ToChris(2, "20-09-24 08:05", 4, 0), (Rewritten{0, "2000-01-01T08:05:00"}));
}

TEST(ChrisToLocalTime, ConvertsADateAndTime) {
    EXPECT_EQ(ToLocal(1, "2024-03-20 08:05", 4, 9), (Rewritten{1, "1403-01-01T08:05:00"}));
    EXPECT_EQ(ToLocal(2, "2024-03-20T08:05:59", 4, 9), (Rewritten{1, "1445-09-10T08:05:00"}));
}

TEST(ChrisToLocalTime, ConvertsADate) {
    EXPECT_EQ(ToLocal(2, "2024-03-11", 1, 9), (Rewritten{1, "1445-09-01"}));
    EXPECT_EQ(ToLocal(1, "2000-01-01", 1, 9), (Rewritten{1, "1378-10-11"}));
    EXPECT_EQ(ToLocal(2, "1970-01-01", 1, 9), (Rewritten{1, "1389-10-22"}));
}

TEST(ChrisToLocalTime, WidensShortYearsAsGregorianOnes) {
    EXPECT_EQ(ToLocal(1, "20.03.24", 1, 8), (Rewritten{1, "01.01.03"}));
    EXPECT_EQ(ToLocal(1, "24-03-20T00:00", 4, 0), (Rewritten{1, "1403-01-01T00:00:00"}));
    EXPECT_EQ(ToLocal(2, "70-01-01T00:00", 4, 0), (Rewritten{1, "1389-10-22T00:00:00"}));
    EXPECT_EQ(ToLocal(1, "70-01-01T00:00", 4, 0), (Rewritten{1, "1348-10-11T00:00:00"}));
    EXPECT_EQ(ToLocal(7, "70-01-01T00:00", 4, 0), (Rewritten{1, "1970-01-01T00:00:00"}));
}

TEST(CalendarTexts, TimesAreNotRead) {
    for (const int calendar_mode : {1, 2, 7}) {
        EXPECT_EQ(ToChris(calendar_mode, "12:34:56", 2, 9), (Rewritten{0, "00:00:00"}));
        EXPECT_EQ(ToChris(calendar_mode, "12:34", 3, 9), (Rewritten{0, "00:00"}));
        EXPECT_EQ(ToLocal(calendar_mode, "12:34:56", 2, 9), (Rewritten{1, "00:00:00"}));
        EXPECT_EQ(ToLocal(calendar_mode, "12:34", 3, 9), (Rewritten{1, "00:00"}));
    }
}

TEST(CalendarTexts, OtherTypesLeaveTheText) {
    for (const int text_type : {0, 5, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(ToChris(1, "1403-01-01", text_type, 9), (Rewritten{0, "1403-01-01"}));
        EXPECT_EQ(ToLocal(2, "2024-03-20", text_type, 9), (Rewritten{1, "2024-03-20"}));
    }
}

TEST(CalendarTexts, Mode0LeavesTheText) {
    for (int text_type = 0; text_type <= 5; ++text_type) {
        for (const std::string text : {"2024-03-20T08:05:06", "x", ""}) {
            EXPECT_EQ(ToChris(0, text, text_type, 9), (Rewritten{1, text}));
            EXPECT_EQ(ToLocal(0, text, text_type, 9), (Rewritten{1, text}));
        }
    }
}

TEST(CalendarTexts, NullGivesMinus1InEveryMode) {
    for (const int calendar_mode : {0, 1, 2, 7, -1}) {
        EXPECT_EQ(LocalTimeToChris(calendar_mode, nullptr, 32, 1, 9), -1);
        EXPECT_EQ(ChrisToLocalTime(calendar_mode, nullptr, 32, 1, 9), -1);
    }
}

TEST(CalendarTexts, UnknownModesRewriteWithoutConversion) {
    for (const int calendar_mode : {3, 7, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(ToChris(calendar_mode, "2024-03-20 08:05:06", 4, 9),
                  (Rewritten{0, "2024-03-20T08:05:00"}));
        EXPECT_EQ(ToLocal(calendar_mode, "2024-03-20 08:05:06", 4, 9),
                  (Rewritten{1, "2024-03-20T08:05:00"}));
        EXPECT_EQ(ToChris(calendar_mode, "x-1", 1, 9), (Rewritten{0, "0000-00-00"}));
    }
}

TEST(CalendarTexts, AreBoundedBySizeExceptForADateAlone) {
    for (const Rewrite rewrite : {&LocalTimeToChris, &ChrisToLocalTime}) {
        const auto expect = [&](const std::string& before, int size, int text_type,
                                const std::string& written) {
            GuardedBuffer buf(kBufferSize, Terminated(before));
            rewrite(7, buf.data(), size, text_type, 9);
            buf.ExpectHolds(written);
        };
        expect("2024-03-20 08:05:06", 20, 4, Terminated("2024-03-20T08:05:00"));
        expect("2024-03-20 08:05:06", 65536, 4, Terminated("2024-03-20T08:05:00"));
        expect("2024-03-20 08:05:06", 12, 4, Terminated("2024-03-20T") + Terminated("8:05:06"));
        expect("2024-03-20 08:05:06", 0, 4, Terminated("2024-03-20 08:05:06"));
        expect("12:34:56", 4, 2, Terminated("00:") + Terminated("4:56"));
        expect("12:34:56", -1, 2, Terminated("12:34:56"));
        expect("12:34", 3, 3, Terminated("00") + Terminated("34"));
        expect("2024-03-20x", 0, 1, Terminated("2024-03-20") + Terminated(""));
    }
}

TEST(CalendarTexts, DoNotLog) {
    CapturedLog log;
    ToChris(1, "1403-01-01T12:30:45", 4, 9);
    ToLocal(2, "x", 5, 9);
    LocalTimeToChris(1, nullptr, 32, 1, 9);
    EXPECT_EQ(log.TakeText(), "");
}

TEST(CalendarTexts, AgreeWithTheNaiveOnesOnAllShortTexts) {
    CheckAllTexts("3 T-", 5, [](const std::string& text) {
        for (const int calendar_mode : {0, 1, 2, 7}) {
            for (const int code : {0, 4, 8, 9}) {
                CompareWithNaive(code > 4, calendar_mode, text, 32, 4, code);
                CompareWithNaive(code < 4, calendar_mode, text, 32, 1, code);
            }
        }
    });
}

TEST(CalendarTexts, AgreeWithTheNaiveOnesOnRandomTexts) {
    CheckRandom(1416, [](Random& random) {
        std::string text = std::to_string(random.Between(0, 3) == 0 ? random.Between(0, 9999)
                                                                    : random.Between(0, 99));
        for (const char separator : {'-', '-', 'T', ':', ':'}) {
            text += random.Between(0, 20) == 0 ? random.OneOf("T -/x:") : separator;
            text += random.Text("0123", 2);
        }
        const int size = random.Between(0, 3) == 0 ? random.Between(-2, 24) : 64;
        const int text_type = random.Between(0, 3) == 0 ? random.Between(0, 5) : 4;
        CompareWithNaive(random.Between(0, 1) == 0, random.Between(-1, 3), text, size, text_type,
                         random.Between(-40, 40));
    });
}
