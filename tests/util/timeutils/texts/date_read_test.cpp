// DeFormatDate.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/exact_copy.h"
#include "tests/util/timeutils/texts/layout_texts.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

namespace {

constexpr int kCalendarModes[] = {0, 1, 2, 3, 7, 11, -1, INT_MIN, INT_MAX};

Date Read(const std::string& text, int code, int calendar_mode = 0) {
    Date date = {-77, -77, -77};
    EXPECT_EQ(DeFormatDate(ExactCopy(text).get(), code, calendar_mode, &date.year, &date.month,
                           &date.day),
              1);
    return date;
}

int YearOf(const std::string& digits, int calendar_mode) {
    const int year = Read(digits + "-05-07", 0, calendar_mode).year;
    EXPECT_EQ(Read("05/07/" + digits, 4, calendar_mode).year, year);
    EXPECT_EQ(Read("07.05." + digits, 8, calendar_mode).year, year);
    return year;
}

}  // namespace

TEST(DeFormatDate, KnowsWhereEachLayoutHasItsFields) {
    for (int code = 0; code <= 40; ++code) {
        EXPECT_EQ(Read(kLayoutTexts[code % 10], code), (Date{2024, 5, 7})) << code;
    }
    EXPECT_EQ(Read(kLayoutTexts[7], INT_MAX), (Date{2024, 5, 7}));
}

TEST(DeFormatDate, ANegativeCodeReadsTheYearFirst) {
    for (int code = -40; code < 0; ++code) {
        EXPECT_EQ(Read("24x05x07", code), (Date{2024, 5, 7})) << code;
        EXPECT_EQ(Read("99x05x07", code, 1), (Date{1399, 5, 7})) << code;
    }
    EXPECT_EQ(Read("24x05x07", INT_MIN), (Date{2024, 5, 7}));
}

TEST(DeFormatDate, WidensByTheCalendarOnBothSidesOfEachEdge) {
    const struct {
        const char* digits;
        int gregorian;
        int persian;
        int islamic;
    } kCases[] = {
        {"00", 2000, 1400, 1400}, {"15", 2015, 1415, 1415}, {"16", 2016, 1416, 1416},
        {"17", 2017, 1317, 1417}, {"36", 2036, 1336, 1436}, {"37", 2037, 1337, 1437},
        {"38", 1938, 1338, 1438}, {"99", 1999, 1399, 1499}, {"-9", 1991, 1391, 1391},
    };
    for (const auto& [digits, gregorian, persian, islamic] : kCases) {
        EXPECT_EQ(YearOf(digits, 1), persian) << digits;
        EXPECT_EQ(YearOf(digits, 2), islamic) << digits;
        for (const int calendar_mode : {0, 3, 7, 11, 12, -1, -2, INT_MIN, INT_MAX}) {
            EXPECT_EQ(YearOf(digits, calendar_mode), gregorian) << digits << ' ' << calendar_mode;
        }
    }
}

TEST(DeFormatDate, TakesFourDigitsAsTheyStandInEveryMode) {
    for (const int calendar_mode : kCalendarModes) {
        EXPECT_EQ(Read("0016-01-02", 9, calendar_mode), (Date{16, 1, 2}));
        EXPECT_EQ(Read("0099-12-31", 9, calendar_mode), (Date{99, 12, 31}));
        EXPECT_EQ(Read("1403-01-02", 19, calendar_mode), (Date{1403, 1, 2}));
    }
}

TEST(DeFormatDate, ReadsBackWhatFormatDateWrites) {
    const struct {
        int calendar_mode;
        int first_year;
        int last_year;
    } kCenturies[] = {{0, 1938, 2037}, {1, 1317, 1416}, {2, 1400, 1499}, {7, 1938, 2037}};
    for (const auto& [calendar_mode, first_year, last_year] : kCenturies) {
        for (int code = -40; code <= 40; ++code) {
            for (int year = first_year; year <= last_year; ++year) {
                const Date date = {year, year % 12 + 1, year % 31 + 1};
                char text[11];
                FormatDate(text, code, date.year, date.month, date.day);
                ASSERT_EQ(Read(text, code, calendar_mode), date) << code << ' ' << calendar_mode;
            }
        }
    }
}

TEST(DeFormatDate, DoesNotLookAtSeparators) {
    EXPECT_EQ(Read("240050070", 0), (Date{2024, 5, 7}));
    EXPECT_EQ(Read("05A07T24", 5), (Date{2024, 5, 7}));
    EXPECT_EQ(Read("2024/05 07", 9), (Date{2024, 5, 7}));
}

TEST(DeFormatDate, IgnoresWhatFollowsTheDate) {
    EXPECT_EQ(Read("24-05-0789", 0), (Date{2024, 5, 7}));
    EXPECT_EQ(Read("2024-05-07T08:09", 9), (Date{2024, 5, 7}));
}

TEST(DeFormatDate, AFieldEndsAtItsFirstNonDigit) {
    EXPECT_EQ(Read("2a-5b-7c", 0), (Date{2002, 5, 7}));
    EXPECT_EQ(Read("a2-b5-c7", 0), (Date{2000, 0, 0}));
    EXPECT_EQ(Read("20x4-1.-0x", 9), (Date{20, 1, 0}));
    EXPECT_EQ(Read("", 8), (Date{2000, 0, 0}));
}

TEST(DeFormatDate, FieldsMayHaveBlanksAndASign) {
    EXPECT_EQ(Read(" 4- 5-\t7", 0), (Date{2004, 5, 7}));
    EXPECT_EQ(Read("+4--5-+7", 0), (Date{2004, -5, 7}));
    EXPECT_EQ(Read("-123--1--2", 9), (Date{-123, -1, -2}));
    EXPECT_EQ(Read("4 -5 -7 ", 0), (Date{2004, 5, 7}));
}

// What a short text does not reach is 0, and nothing behind its terminator is read.
TEST(DeFormatDate, ReadsEveryPrefix) {
    const std::string text = "98-76-54-32";
    for (size_t length = 0; length <= text.size(); ++length) {
        for (int code = -9; code <= 9; ++code) {
            const std::string prefix = text.substr(0, length);
            EXPECT_EQ(Read(prefix, code), naive::ReadDate(prefix, code, 0))
                << '"' << prefix << "\", code " << code;
        }
    }
    EXPECT_EQ(Read("98", 0), (Date{1998, 0, 0}));
    EXPECT_EQ(Read("98-7", 0), (Date{1998, 7, 0}));
    EXPECT_EQ(Read("98-76-5", 6), (Date{2005, 76, 98}));
    EXPECT_EQ(Read("2024-0", 9), (Date{2024, 0, 0}));
}

TEST(DeFormatDate, ReadsNothingBehindTheTerminator) {
    const char text[] = "24-0\0-07";
    Date date;
    DeFormatDate(text, 0, 0, &date.year, &date.month, &date.day);
    EXPECT_EQ(date, (Date{2024, 0, 0}));
}

TEST(DeFormatDate, WidensAYearThatTheTextDoesNotReach) {
    EXPECT_EQ(Read("05-07", 3, 0), (Date{2000, 5, 7}));
    EXPECT_EQ(Read("05-07", 3, 1), (Date{1400, 5, 7}));
    EXPECT_EQ(Read("05-07", 3, 2), (Date{1400, 5, 7}));
    EXPECT_EQ(Read("", 0), (Date{2000, 0, 0}));
    EXPECT_EQ(Read("", 9), (Date{0, 0, 0}));
}
