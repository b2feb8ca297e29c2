// The current time as texts: GetCurDateTime, GetCurDate, GetCurTime, GetCurTimeNoSec.

#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <string>
#include <vector>

#include "tests/support/fake_clock.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/log_lines.h"
#include "tests/support/time_zone.h"
#include "tests/util/timeutils/clock/local_seconds.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

namespace {

constexpr size_t kSize = 32;
constexpr int kDateKind = 1;
constexpr int kTimeKind = 2;
constexpr int kNoSecondKind = 3;
constexpr int kDateTimeKind = 4;

// 2024-05-07 08:09:10, in summer time.
class ClockTexts : public testing::Test {
protected:
    const ScopedTimeZone zone_{kCentralEurope};
    FakeClock clock_{1715062150};
};

using GetCurDateTimeTest = ClockTexts;
using GetCurDateTest = ClockTexts;
using GetCurTimeTest = ClockTexts;
using GetCurTimeNoSecTest = ClockTexts;

// What GetCurDateTime writes into a buffer that is large enough.
std::string CurrentText(int kind, int code = 9) {
    GuardedBuffer buffer(kSize);
    EXPECT_EQ(GetCurDateTime(buffer.data(), buffer.size(), kind, code), 0);
    const std::string text = buffer.text();
    buffer.ExpectHolds(text + std::string(kSize - text.size(), '\0'));
    return text;
}

// What a call writes that clears size bytes and is bounded by size.
std::string CutAndCleared(const std::string& text, int size) {
    if (size <= 0) {
        return "";
    }
    std::string content = text.substr(0, static_cast<size_t>(size) - 1);
    content.resize(static_cast<size_t>(size), '\0');
    return content;
}

}  // namespace

TEST_F(GetCurDateTimeTest, HasOneTextForEachKind) {
    EXPECT_EQ(CurrentText(kDateKind), "2024-05-07");
    EXPECT_EQ(CurrentText(kTimeKind), "08:09:10");
    EXPECT_EQ(CurrentText(kNoSecondKind), "08:09");
    EXPECT_EQ(CurrentText(kDateTimeKind), "2024-05-07T08:09:10");
}

TEST_F(GetCurDateTimeTest, LaysTheDateOutByCode) {
    const struct {
        int code;
        const char* text;
    } kCases[] = {
        {0, "24-05-07"},   {1, "24/05/07"},   {2, "24.05.07"},       {3, "05-07-24"},
        {4, "05/07/24"},   {5, "05.07.24"},   {6, "07-05-24"},       {7, "07/05/24"},
        {8, "07.05.24"},   {9, "2024-05-07"}, {17, "07/05/24"},      {19, "2024-05-07"},
        {-1, "24.05.07"},  {-3, "24-05-07"},  {INT_MAX, "07/05/24"}, {INT_MIN, "24.05.07"},
        {120, "24-05-07"}, {-9, "24-05-07"},
    };
    for (const auto& [code, text] : kCases) {
        EXPECT_EQ(CurrentText(kDateKind, code), text) << "code " << code;
    }
}

TEST_F(GetCurDateTimeTest, UsesTheCodeInDatesOnly) {
    for (const int code : {0, 4, 7, 9, -1}) {
        EXPECT_EQ(CurrentText(kTimeKind, code), "08:09:10");
        EXPECT_EQ(CurrentText(kNoSecondKind, code), "08:09");
        EXPECT_EQ(CurrentText(kDateTimeKind, code), "2024-05-07T08:09:10");
    }
}

TEST_F(GetCurDateTimeTest, LeavesAnEmptyTextForAnyOtherKind) {
    for (const int kind : {0, 5, -1, 1 << 8 | 1, INT_MAX, INT_MIN}) {
        EXPECT_EQ(CurrentText(kind), "") << "kind " << kind;
    }
}

TEST_F(GetCurDateTimeTest, GivesMinusOneForNull) {
    for (const int kind : {1, 2, 3, 4, 5}) {
        EXPECT_EQ(GetCurDateTime(nullptr, kSize, kind, 9), -1);
        EXPECT_EQ(GetCurDateTime(nullptr, 0, kind, 9), -1);
    }
}

TEST_F(GetCurDateTimeTest, ClearsSizeBytesAndCutsTimesToThem) {
    const struct {
        int kind;
        const char* text;
    } kCases[] = {
        {kTimeKind, "08:09:10"},
        {kNoSecondKind, "08:09"},
        {kDateTimeKind, "2024-05-07T08:09:10"},
        {5, ""},
    };
    for (const auto& [kind, text] : kCases) {
        for (int size = -2; size <= static_cast<int>(kSize); ++size) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << " size " << size);
            GuardedBuffer buffer(kSize);
            EXPECT_EQ(GetCurDateTime(buffer.data(), size, kind, 9), 0);
            buffer.ExpectHolds(CutAndCleared(text, size));
        }
        GuardedBuffer buffer(kSize);
        EXPECT_EQ(GetCurDateTime(buffer.data(), INT_MIN, kind, 9), 0);
        buffer.ExpectUntouched();
    }
}

TEST_F(GetCurDateTimeTest, WritesDatesWholeWhateverTheSize) {
    for (const int size : {INT_MIN, -1, 0, 1, 5, 10, 11}) {
        GuardedBuffer standard(sizeof "2024-05-07");
        EXPECT_EQ(GetCurDateTime(standard.data(), size, kDateKind, 9), 0);
        standard.ExpectHolds(Terminated("2024-05-07"));
    }
    for (const int size : {-1, 0, 1, 9}) {
        GuardedBuffer brief(sizeof "07/05/24");
        EXPECT_EQ(GetCurDateTime(brief.data(), size, kDateKind, 7), 0);
        brief.ExpectHolds(Terminated("07/05/24"));
    }
}

TEST_F(GetCurDateTimeTest, ShowsTheYear2000ForYearsOutside2000To2037) {
    const struct {
        Date date;
        const char* standard;
        const char* brief;  // code 6, day first
    } kCases[] = {
        {{1902, 2, 3}, "2000-02-03", "03-02-00"},   {{1969, 12, 31}, "2000-12-31", "31-12-00"},
        {{1970, 1, 2}, "2000-01-02", "02-01-00"},   {{1996, 2, 29}, "2000-02-29", "29-02-00"},
        {{1999, 3, 1}, "2000-03-01", "01-03-00"},   {{1999, 12, 31}, "2000-12-31", "31-12-00"},
        {{2000, 1, 1}, "2000-01-01", "01-01-00"},   {{2000, 2, 29}, "2000-02-29", "29-02-00"},
        {{2001, 1, 1}, "2001-01-01", "01-01-01"},   {{2036, 12, 31}, "2036-12-31", "31-12-36"},
        {{2037, 12, 31}, "2037-12-31", "31-12-37"}, {{2038, 1, 1}, "2000-01-01", "01-01-00"},
        {{2038, 1, 18}, "2000-01-18", "18-01-00"},
    };
    for (const auto& [date, standard, brief] : kCases) {
        SCOPED_TRACE(testing::Message() << date);
        for (const Clock& edge : {Clock{0, 0, 0}, Clock{23, 59, 59}}) {
            clock_.Set(LocalSeconds(date, edge));
            const std::string time = edge.hour == 0 ? "00:00:00" : "23:59:59";
            EXPECT_EQ(CurrentText(kDateKind, 9), standard);
            EXPECT_EQ(CurrentText(kDateKind, 6), brief);
            EXPECT_EQ(CurrentText(kTimeKind), time);
            EXPECT_EQ(CurrentText(kNoSecondKind), time.substr(0, 5));
            EXPECT_EQ(CurrentText(kDateTimeKind), std::string(standard) + "T" + time);
        }
    }
}

TEST_F(GetCurDateTimeTest, ReadsTheClockAtItsFullWidth) {
    if constexpr (sizeof(time_t) == 8) {
        // The low 32 bits of these would show other days, some of them in years that are shown.
        for (const int year : {2040, 2100, 2160, 9999, 12345}) {
            clock_.Set(LocalSeconds({year, 7, 9}, {10, 11, 12}));
            EXPECT_EQ(CurrentText(kDateTimeKind), "2000-07-09T10:11:12") << year;
        }
        clock_.Set(LocalSeconds({1850, 7, 9}, {10, 11, 12}));
        EXPECT_EQ(CurrentText(kDateTimeKind), "2000-07-09T10:11:12");
    } else {
        clock_.Set(INT_MAX);
        EXPECT_EQ(CurrentText(kDateTimeKind), "2000-01-19T04:14:07");
        clock_.Set(INT_MIN);
        EXPECT_EQ(CurrentText(kDateTimeKind), "2000-12-13T21:45:52");
    }
}

TEST_F(GetCurDateTimeTest, HonoursTheZone) {
    const struct {
        const char* zone;
        const char* text;
    } kCases[] = {
        {"UTC0", "2024-05-07T06:09:10"},     {"EST5EDT,M3.2.0,M11.1.0", "2024-05-07T02:09:10"},
        {"IST-5:30", "2024-05-07T11:39:10"}, {"NZST-12NZDT,M9.5.0,M4.1.0/3", "2024-05-07T18:09:10"},
        {"HST10", "2024-05-06T20:09:10"},
    };
    for (const auto& [zone, text] : kCases) {
        const ScopedTimeZone scope(zone);
        EXPECT_EQ(CurrentText(kDateTimeKind), text) << zone;
        EXPECT_EQ(CurrentText(kDateKind), std::string(text).substr(0, 10)) << zone;
    }
}

TEST_F(GetCurDateTimeTest, TakesTheYearFromTheLocalDate) {
    clock_.Set(946684800 - 3600);  // 2000-01-01 00:00:00 here, 1999 in UTC
    EXPECT_EQ(CurrentText(kDateTimeKind), "2000-01-01T00:00:00");
    clock_.Set(2145916800 - 3600);  // 2038-01-01 00:00:00 here
    EXPECT_EQ(CurrentText(kDateTimeKind), "2000-01-01T00:00:00");
    clock_.Set(2145916800 - 3601);
    EXPECT_EQ(CurrentText(kDateTimeKind), "2037-12-31T23:59:59");
}

TEST_F(GetCurDateTimeTest, FollowsTheChangeToAndFromSummerTime) {
    clock_.Set(1711846799);
    EXPECT_EQ(CurrentText(kDateTimeKind), "2024-03-31T01:59:59");
    clock_.Set(1711846800);
    EXPECT_EQ(CurrentText(kDateTimeKind), "2024-03-31T03:00:00");
    clock_.Set(1729990799);
    EXPECT_EQ(CurrentText(kDateTimeKind), "2024-10-27T02:59:59");
    clock_.Set(1729990800);
    EXPECT_EQ(CurrentText(kDateTimeKind), "2024-10-27T02:00:00");
}

TEST_F(GetCurDateTimeTest, DoesNotLog) {
    CapturedLog log;
    CurrentText(kDateTimeKind);
    GetCurDateTime(nullptr, kSize, kDateKind, 9);
    EXPECT_EQ(log.TakeText(), "");
}

TEST_F(GetCurDateTest, IsTheDateInTheLayoutOfCode) {
    for (const auto& [code, text] :
         {std::pair(9, "2024-05-07"), std::pair(7, "07/05/24"), std::pair(14, "05/07/24")}) {
        GuardedBuffer buffer(kSize);
        EXPECT_EQ(GetCurDate(buffer.data(), 12, code), 0);
        buffer.ExpectHolds(CutAndCleared(text, 12));
    }
    EXPECT_EQ(GetCurDate(nullptr, kSize, 9), -1);
}

TEST_F(GetCurTimeTest, IsTheTimeWithSeconds) {
    for (const int size : {0, 1, 6, 8, 9, 20}) {
        GuardedBuffer buffer(kSize);
        EXPECT_EQ(GetCurTime(buffer.data(), size), 0);
        buffer.ExpectHolds(CutAndCleared("08:09:10", size));
    }
    EXPECT_EQ(GetCurTime(nullptr, kSize), -1);
}

TEST_F(GetCurTimeNoSecTest, IsTheTimeWithoutSeconds) {
    for (const int size : {0, 1, 5, 6, 20}) {
        GuardedBuffer buffer(kSize);
        EXPECT_EQ(GetCurTimeNoSec(buffer.data(), size), 0);
        buffer.ExpectHolds(CutAndCleared("08:09", size));
    }
    EXPECT_EQ(GetCurTimeNoSec(nullptr, kSize), -1);
}
