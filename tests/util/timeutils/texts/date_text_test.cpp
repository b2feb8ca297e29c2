// FormatDate, FmtDateToStandardDate and StandardDateToFmtDate.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/guarded_buffer.h"
#include "tests/util/timeutils/texts/layout_texts.h"
#include "util/timeutils.h"

namespace {

// Checks the result and that nothing is written behind the terminator.
std::string Formatted(int code, int year, int month, int day) {
    GuardedBuffer dst(48);
    EXPECT_EQ(FormatDate(dst.data(), code, year, month, day), 0);
    const std::string text = dst.text();
    dst.ExpectHolds(Terminated(text));
    return text;
}

std::string ToStandard(const std::string& text, int code, int calendar_mode) {
    GuardedBuffer buf(16, Terminated(text));
    EXPECT_EQ(FmtDateToStandardDate(buf.data(), buf.size(), code, calendar_mode), 1);
    return buf.text();
}

}  // namespace

TEST(FormatDate, WritesNothingWithoutADestination) {
    EXPECT_EQ(FormatDate(nullptr, 9, 2024, 5, 7), 0);
    EXPECT_EQ(FormatDate(nullptr, 4, 2024, 5, 7), 0);
}

TEST(FormatDate, HasTenLayouts) {
    for (int code = 0; code < 10; ++code) {
        EXPECT_EQ(Formatted(code, 2024, 5, 7), kLayoutTexts[code]) << code;
    }
}

TEST(FormatDate, UsesOnlyTheLastDigit) {
    for (int code = 0; code <= 40; ++code) {
        EXPECT_EQ(Formatted(code, 2024, 5, 7), kLayoutTexts[code % 10]) << code;
    }
    EXPECT_EQ(Formatted(11, 2024, 5, 7), "24/05/07");
    EXPECT_EQ(Formatted(17, 2024, 5, 7), "07/05/24");
    EXPECT_EQ(Formatted(5, 1999, 5, 7), "05.07.99");
    EXPECT_EQ(Formatted(INT_MAX, 2024, 5, 7), kLayoutTexts[7]);
}

TEST(FormatDate, ANegativeCodePutsTheYearFirst) {
    const char kSeparators[] = "-..-..-..-";  // by the last digit without its sign
    for (int code = -40; code < 0; ++code) {
        const char separator = kSeparators[-code % 10];
        const std::string expected = separator == '-' ? "24-05-07" : "24.05.07";
        EXPECT_EQ(Formatted(code, 2024, 5, 7), expected) << code;
    }
    EXPECT_EQ(Formatted(INT_MIN, 2024, 5, 7), "24.05.07");  // its last digit is 8
}

TEST(FormatDate, ShortensTheYearToItsLastTwoDigits) {
    EXPECT_EQ(Formatted(0, 1999, 12, 31), "99-12-31");
    EXPECT_EQ(Formatted(0, 2000, 1, 1), "00-01-01");
    EXPECT_EQ(Formatted(1, 12305, 1, 1), "05/01/01");
    EXPECT_EQ(Formatted(7, 5, 1, 1), "01/01/05");
    EXPECT_EQ(Formatted(4, -105, 1, 2), "01/02/-5");
}

TEST(FormatDate, WritesFourYearDigitsInTheStandardForm) {
    EXPECT_EQ(Formatted(9, 7, 5, 7), "0007-05-07");
    EXPECT_EQ(Formatted(9, 12345, 5, 7), "12345-05-07");
    EXPECT_EQ(Formatted(9, -5, 5, 7), "-005-05-07");
    EXPECT_EQ(Formatted(9, 2024, -1, 123), "2024--1-123");
    EXPECT_EQ(Formatted(9, INT_MIN, INT_MIN, INT_MAX), "-2147483648--2147483648-2147483647");
}

TEST(FormatDate, SeparatorsOverwriteWideFields) {
    EXPECT_EQ(Formatted(1, 2024, 123, 7), "24/12/-07");
    EXPECT_EQ(Formatted(0, -12, 5, 7), "-1--0--07");  // -12-05-07 before
    EXPECT_EQ(Formatted(8, 2024, 5, 1234), "12.4-.5-24");
    EXPECT_EQ(Formatted(3, 2024, -10, 7), "-1--0--24");  // -10-07-24 before
    EXPECT_EQ(Formatted(4, 2024, 5, 12345), "05/12/45-24");
    EXPECT_EQ(Formatted(7, INT_MAX, INT_MIN, INT_MIN), "-2/47/83648--2147483648-47");
}

TEST(FmtDateToStandardDate, ReadsEveryLayout) {
    for (int code = 0; code <= 40; ++code) {
        EXPECT_EQ(ToStandard(kLayoutTexts[code % 10], code, 0), "2024-05-07") << code;
    }
    for (int code = -40; code < 0; ++code) {
        EXPECT_EQ(ToStandard("24.05.07", code, 0), "2024-05-07") << code;
    }
}

TEST(FmtDateToStandardDate, WidensByTheCalendar) {
    EXPECT_EQ(ToStandard("31.12.99", 8, 0), "1999-12-31");
    EXPECT_EQ(ToStandard("31.12.99", 8, 1), "1399-12-31");
    EXPECT_EQ(ToStandard("31.12.99", 8, 2), "1499-12-31");
    EXPECT_EQ(ToStandard("0099-12-31", 9, 1), "0099-12-31");
}

TEST(FmtDateToStandardDate, WritesIncompleteTextsToo) {
    EXPECT_EQ(ToStandard("", 8, 0), "2000-00-00");
    EXPECT_EQ(ToStandard("07.05", 8, 0), "2000-05-07");
    EXPECT_EQ(ToStandard("ab.cd.ef", 8, 2), "1400-00-00");
}

TEST(FmtDateToStandardDate, IsBoundedBySize) {
    const struct {
        int size;
        std::string written;
    } kCases[] = {
        {12, Terminated("2024-05-07")},
        {11, Terminated("2024-05-07")},
        {10, Terminated("2024-05-0")},
        {5, Terminated("2024") + Terminated(".24")},
        {2, Terminated("2") + Terminated(".05.24")},
        {1, Terminated("") + Terminated("7.05.24")},
        {0, Terminated("07.05.24")},
        {-1, Terminated("07.05.24")},
        {INT_MIN, Terminated("07.05.24")},
    };
    for (const auto& [size, written] : kCases) {
        SCOPED_TRACE(size);
        GuardedBuffer buf(16, Terminated("07.05.24"));
        EXPECT_EQ(FmtDateToStandardDate(buf.data(), size, 8, 0), 1);
        buf.ExpectHolds(written);
    }
}

TEST(FmtDateToStandardDate, NullGives0) {
    EXPECT_EQ(FmtDateToStandardDate(nullptr, 11, 8, 0), 0);
}

TEST(StandardDateToFmtDate, WritesEveryLayout) {
    for (int code = -40; code <= 40; ++code) {
        for (const int calendar_mode : {0, 1, 2, 7, -1}) {
            GuardedBuffer buf(16, Terminated("2024-05-07"));
            EXPECT_EQ(StandardDateToFmtDate(buf.data(), buf.size(), code, calendar_mode), 1);
            EXPECT_EQ(buf.text(), Formatted(code, 2024, 5, 7)) << code << ' ' << calendar_mode;
        }
    }
}

TEST(StandardDateToFmtDate, DoesNotUseTheSize) {
    for (const int size : {11, 3, 1, 0, -1, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(size);
        GuardedBuffer buf(11, Terminated("2024-05-07"));
        EXPECT_EQ(StandardDateToFmtDate(buf.data(), size, 4, 0), 1);
        buf.ExpectHolds(Terminated("05/07/24") + Terminated("7"));
    }
}

TEST(StandardDateToFmtDate, ReadsTheStandardFormOnly) {
    GuardedBuffer buf(11, Terminated("07.05.24"));
    EXPECT_EQ(StandardDateToFmtDate(buf.data(), buf.size(), 9, 0), 1);
    // The year is "07.0", the month ".2" and the day beyond the text.
    buf.ExpectHolds(Terminated("0007-00-00"));
}

TEST(StandardDateToFmtDate, NullGives0) {
    EXPECT_EQ(StandardDateToFmtDate(nullptr, 11, 8, 0), 0);
}
