// ParseStrToTTime.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/exact_copy.h"
#include "tests/support/inputs.h"
#include "tests/util/timeutils/date_records.h"
#include "tests/util/timeutils/texts/layout_texts.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

namespace {

// A record none of whose fields is what a text gives.
TTime Stale() {
    return MarkedRecord({kMark, kMark, kMark});
}

// Checks that the parser changes date, hour and minute only.
TTime Parsed(const std::string& text, int text_type, int code = 9, int calendar_mode = 0) {
    TTime rec = Stale();
    EXPECT_EQ(ParseStrToTTime(ExactCopy(text).get(), &rec, text_type, code, calendar_mode), 0);
    TTime expected = RecordOf(DateIn(rec), {rec.tm_hour, rec.tm_min, kMark});
    EXPECT_TRUE(SameBytes(rec, expected)) << text;
    return rec;
}

void ExpectParsed(const std::string& text, const Date& date, int hour, int minute, int code = 9,
                  int calendar_mode = 0) {
    SCOPED_TRACE(text);
    const TTime rec = Parsed(text, 4, code, calendar_mode);
    EXPECT_EQ(DateIn(rec), date);
    EXPECT_EQ(rec.tm_hour, hour);
    EXPECT_EQ(rec.tm_min, minute);
}

void CompareWithNaive(const std::string& text, int text_type, int code, int calendar_mode) {
    const TTime rec = Parsed(text, text_type, code, calendar_mode);
    const TTime expected = naive::ParseStrToTTime(text, Stale(), text_type, code, calendar_mode);
    ASSERT_EQ(FieldsOf(rec), FieldsOf(expected))
        << "differs from naive::ParseStrToTTime, \"" << text << "\", type " << text_type
        << ", code " << code << ", calendar " << calendar_mode;
    ASSERT_FALSE(testing::Test::HasFailure());
}

}  // namespace

TEST(ParseStrToTTime, NullGivesMinus1) {
    TTime rec = Stale();
    EXPECT_EQ(ParseStrToTTime(nullptr, &rec, 1, 9, 0), -1);
    EXPECT_EQ(ParseStrToTTime("2024-05-07", nullptr, 1, 9, 0), -1);
    EXPECT_EQ(ParseStrToTTime(nullptr, nullptr, 0, 9, 0), -1);
    EXPECT_TRUE(SameBytes(rec, Stale()));
}

TEST(ParseStrToTTime, Type1ReadsTheDateInTheLayoutOfTheCode) {
    for (int code = 0; code <= 40; ++code) {
        const TTime rec = Parsed(kLayoutTexts[code % 10], 1, code);
        EXPECT_EQ(DateIn(rec), (Date{2024, 5, 7})) << code;
        EXPECT_EQ(rec.tm_year, 124);
        EXPECT_EQ(rec.tm_mon, 4);
        EXPECT_EQ(rec.tm_hour, 0);
        EXPECT_EQ(rec.tm_min, 0);
    }
    EXPECT_EQ(DateIn(Parsed("24-05-07", 1, -4)), (Date{2024, 5, 7}));
}

TEST(ParseStrToTTime, Type1TakesNoTime) {
    const TTime rec = Parsed("2024-05-07T08:09:10", 1);
    EXPECT_EQ(DateIn(rec), (Date{2024, 5, 7}));
    EXPECT_EQ(rec.tm_hour, 0);
    EXPECT_EQ(rec.tm_min, 0);
}

TEST(ParseStrToTTime, WidensByTheCalendarAndDoesNotConvert) {
    EXPECT_EQ(DateIn(Parsed("99-12-31", 1, 0, 0)), (Date{1999, 12, 31}));
    EXPECT_EQ(DateIn(Parsed("99-12-31", 1, 0, 1)), (Date{1399, 12, 31}));
    EXPECT_EQ(DateIn(Parsed("99-12-31", 1, 0, 2)), (Date{1499, 12, 31}));
    EXPECT_EQ(DateIn(Parsed("99-12-31", 1, 0, 7)), (Date{1999, 12, 31}));
    ExpectParsed("31.12.16 08:09", {1416, 12, 31}, 8, 9, 8, 1);
    ExpectParsed("31.12.16 08:09", {1416, 12, 31}, 8, 9, 8, 2);
}

TEST(ParseStrToTTime, OtherTypesReadNothing) {
    for (const int text_type : {2, 3, 0, 5, -1, INT_MIN, INT_MAX}) {
        for (const std::string text : {"08:09:10", "2024-05-07T08:09:10", ""}) {
            const TTime rec = Parsed(text, text_type);
            EXPECT_EQ(rec.tm_year, -1900);
            EXPECT_EQ(rec.tm_mon, -1);
            EXPECT_EQ(rec.tm_mday, 0);
            EXPECT_EQ(rec.tm_hour, 0);
            EXPECT_EQ(rec.tm_min, 0);
        }
    }
}

TEST(ParseStrToTTime, Type4ReadsDateAndTimeAroundATOrABlank) {
    ExpectParsed("2024-05-07T08:09:10", {2024, 5, 7}, 8, 9);
    ExpectParsed("2024-05-07 08:09:10", {2024, 5, 7}, 8, 9);
    ExpectParsed("2024-05-07T08:09", {2024, 5, 7}, 8, 9);
    ExpectParsed("07/05/24T23:59", {2024, 5, 7}, 23, 59, 7);
    ExpectParsed("24.05.07 23:59", {2024, 5, 7}, 23, 59, -1);
    ExpectParsed("24-5 T8:9", {2024, 5, 0}, 8, 9, 0);
}

TEST(ParseStrToTTime, ATAnywhereGoesBeforeABlank) {
    ExpectParsed("2024-05-07 08:09T10:11", {2024, 5, 7}, 10, 11);
    ExpectParsed("2024-05-07 08:09 T", {2024, 5, 7}, 0, 0);
    ExpectParsed("2024-05-07T 08:09", {2024, 5, 7}, 8, 9);
    ExpectParsed("2024-05-07T08:09T10:11", {2024, 5, 7}, 8, 9);
    ExpectParsed("2024-05-07t08:09", {2024, 5, 7}, 0, 0);
}

TEST(ParseStrToTTime, AMissingTimeIs0) {
    ExpectParsed("2024-05-07", {2024, 5, 7}, 0, 0);
    ExpectParsed("2024-05-07T", {2024, 5, 7}, 0, 0);
    ExpectParsed("2024-05-07 ", {2024, 5, 7}, 0, 0);
    ExpectParsed("2024-05-07T08", {2024, 5, 7}, 8, 0);
    ExpectParsed("2024-05-07T:09", {2024, 5, 7}, 0, 9);
    ExpectParsed("T08:09", {0, 0, 0}, 8, 9);
    ExpectParsed("", {0, 0, 0}, 0, 0);
    ExpectParsed("", {2000, 0, 0}, 0, 0, 8);
}

// Without a time the splitter puts its terminator at the date's length, up to 11.
TEST(ParseStrToTTime, TakesADateOfAnyLengthWithoutATime) {
    const std::string text = "2024-05-07890123456";
    for (size_t length = 0; length <= text.size(); ++length) {
        const std::string date_text = text.substr(0, length);
        const Date date = naive::ReadDate(date_text, 9, 0);
        ExpectParsed(date_text, date, 0, 0);
        ExpectParsed(date_text + "T", date, 0, 0);
        ExpectParsed(date_text + " ", date, 0, 0);
        ExpectParsed(date_text + "T21:43:05", date, 21, 43);
    }
}

TEST(ParseStrToTTime, CutsALongTimeAfter9Characters) {
    ExpectParsed("2024-05-07T12345678:9", {2024, 5, 7}, 12345678, 0);
    ExpectParsed("2024-05-07T1234567:89", {2024, 5, 7}, 1234567, 8);
    ExpectParsed("2024-05-07T1234567890", {2024, 5, 7}, 123456789, 0);
}

TEST(ParseStrToTTime, ReadsNothingBehindTheTerminator) {
    const std::string text = "2024-05-07T08:09:10";
    for (size_t length = 0; length <= text.size(); ++length) {
        for (int text_type = 0; text_type <= 5; ++text_type) {
            for (int code = -9; code <= 9; ++code) {
                CompareWithNaive(text.substr(0, length), text_type, code, 1);
            }
        }
    }
}

TEST(ParseStrToTTime, LeavesTheText) {
    const auto text = ExactCopy("2024-05-07T08:09:10");
    TTime rec;
    ParseStrToTTime(text.get(), &rec, 4, 9, 0);
    EXPECT_STREQ(text.get(), "2024-05-07T08:09:10");
}

TEST(ParseStrToTTime, AgreesWithTheNaiveParserOnAllShortTexts) {
    CheckAllTexts("4-T :", 6, [](const std::string& text) {
        CompareWithNaive(text, 4, 0, 0);
        CompareWithNaive(text, 4, 9, 0);
    });
    CheckAllTexts("7 T:", 5, [](const std::string& text) {
        CompareWithNaive("07.05.24" + text, 4, 8, 1);
        CompareWithNaive("2024-05-07" + text, 4, 9, 0);
        CompareWithNaive("2024-05-07T12" + text, 4, 9, 0);
    });
}

TEST(ParseStrToTTime, AgreesWithTheNaiveParserOnRandomTexts) {
    CheckRandom(1378, [](Random& random) {
        const std::string text = random.Text("0123456789", 4) + random.Text("0123456789--/", 8) +
                                 random.Text("T ", 1) + random.Text("0123456789:: T", 12);
        const int text_type = random.Between(0, 3) == 0 ? random.Between(0, 5) : 4;
        const int code = random.Between(-40, 40);
        CompareWithNaive(text, text_type, code, random.Between(-1, 3));
    });
}
