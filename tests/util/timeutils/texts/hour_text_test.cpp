// HourTimeFormatToCurMode and HourTimeFormatTo24Mode.

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <functional>
#include <string>

#include "tests/support/guarded_buffer.h"
#include "util/timeutils.h"

namespace {

constexpr int kBufferSize = 96;

using Convert = std::function<int(char* buf, int size)>;

int To12(char* buf, int size) {
    return HourTimeFormatToCurMode(buf, size, 0);
}

int To24(char* buf, int size) {
    return HourTimeFormatTo24Mode(buf, size);
}

std::string TextAfter(const Convert& convert, const std::string& before, int result) {
    GuardedBuffer buf(kBufferSize, Terminated(before));
    EXPECT_EQ(convert(buf.data(), buf.size()), result) << before;
    return buf.text();
}

// Both functions, the first with every sort of to24.
void ExpectTo24(const std::string& before, int result, const std::string& after) {
    EXPECT_EQ(TextAfter(To24, before, result), after) << before;
    for (const int to24 : {1, 2, -1, INT_MIN, INT_MAX}) {
        const auto convert = [&](char* buf, int size) {
            return HourTimeFormatToCurMode(buf, size, to24);
        };
        EXPECT_EQ(TextAfter(convert, before, result), after) << before << ' ' << to24;
    }
}

void ExpectTo12(const std::string& before, int result, const std::string& after) {
    EXPECT_EQ(TextAfter(To12, before, result), after) << before;
}

std::string ClockText(const char* pattern, int hour, int minute) {
    char text[16];
    snprintf(text, sizeof text, pattern, hour, minute);
    return text;
}

// Hands over every minute of a day as "19:45" and as "07:45 PM".
void ForEveryMinute(const std::function<void(const std::string&, const std::string&)>& check) {
    const int kShownHours[] = {12, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    for (int hour = 0; hour < 24; ++hour) {
        for (int minute = 0; minute < 60; ++minute) {
            check(ClockText("%02d:%02d", hour, minute),
                  ClockText(hour < 12 ? "%02d:%02d AM" : "%02d:%02d PM", kShownHours[hour % 12],
                            minute));
        }
    }
}

}  // namespace

TEST(HourTimeFormatToCurMode, ConvertsEveryMinuteOfTheDay) {
    ForEveryMinute([](const std::string& in24, const std::string& in12) {
        ExpectTo12(in24, 1, in12);
        ExpectTo12(in12, 0, in12);
    });
}

TEST(HourTimeFormatTo24Mode, ConvertsEveryMinuteOfTheDay) {
    ForEveryMinute([](const std::string& in24, const std::string& in12) {
        ExpectTo24(in12, 1, in24);
        ExpectTo24(in24, 0, in24);
    });
}

TEST(HourTimeFormatToCurMode, ConvertsTo24HoursInEveryModeBut0) {
    GuardedBuffer buf(kBufferSize, Terminated("07:45 PM"));
    EXPECT_EQ(HourTimeFormatToCurMode(buf.data(), buf.size(), 0), 0);
    EXPECT_EQ(buf.text(), "07:45 PM");
    EXPECT_EQ(HourTimeFormatToCurMode(buf.data(), buf.size(), -1), 1);
    EXPECT_EQ(buf.text(), "19:45");
}

TEST(HourTimeFormatToCurMode, KeepsSecondsAndWhateverElseFollowsTheHour) {
    ExpectTo12("19:45:10", 1, "07:45:10 PM");
    ExpectTo12("0915", 1, "0915 AM");
    ExpectTo12("07:45 pm", 1, "07:45 pm AM");
}

TEST(HourTimeFormatTo24Mode, KeepsSecondsAndWhateverElseFollowsTheHour) {
    ExpectTo24("07:45:10 PM", 1, "19:45:10");
    ExpectTo24("12-30, about PM", 1, "12-30, about");
}

TEST(HourTimeFormatToCurMode, MidnightAndNoonAreTwelve) {
    ExpectTo12("00:10", 1, "12:10 AM");
    ExpectTo12("12:00", 1, "12:00 PM");
}

TEST(HourTimeFormatTo24Mode, TwelveIsMidnightInTheMorningAndNoonOtherwise) {
    ExpectTo24("12:00 AM", 1, "00:00");
    ExpectTo24("12:30 PM", 1, "12:30");
    ExpectTo24("11:59 PM", 1, "23:59");
}

TEST(HourTimeFormatToCurMode, TakesHoursThatNoClockHas) {
    ExpectTo12("24:05", 1, "12:05 PM");
    ExpectTo12("25:05", 1, "01:05 PM");
    ExpectTo12("99:05", 1, "03:05 PM");
    ExpectTo12("-5:05", 1, "-5:05 AM");
    ExpectTo12("xy:05", 1, "12:05 AM");
    ExpectTo12("1:05", 1, "0105 AM");  // the colon counts as part of the hour
}

TEST(HourTimeFormatTo24Mode, TakesHoursThatNoClockHas) {
    ExpectTo24("13:05 AM", 1, "13:05");
    ExpectTo24("00:05 PM", 1, "12:05");
    ExpectTo24("99:05 PM", 1, "99:05");
    ExpectTo24("-5:05 PM", 1, "07:05");
    ExpectTo24("-5:05 AM", 1, "-5:05");
    ExpectTo24("1:05 PM", 1, "1305");  // the colon counts as part of the hour
}

TEST(HourTimeFormatTo24Mode, CutsAtTheCharacterBeforeTheLastMarker) {
    ExpectTo24("07:45PM", 1, "19:4");
    ExpectTo24("07:45 AM AM", 1, "07:45 AM");
    ExpectTo24("07:45 PM PM", 1, "19:45 PM");
    ExpectTo24("A7:45 AM", 1, "00:45");
}

TEST(HourTimeFormatTo24Mode, AnAGoesBeforeAP) {
    ExpectTo24("12:45 AM PM", 1, "00:45");
    ExpectTo24("12:45 PM AM", 1, "00:45 PM");
    ExpectTo24("07:45 PMA", 1, "07:45 P");
}

TEST(HourTimeFormatTo24Mode, TakesAMarkerNearTheStart) {
    ExpectTo24("A", 1, "00");
    ExpectTo24("P", 1, "12");
    ExpectTo24("AM", 1, "00");
    ExpectTo24("PM 07:45", 1, "12");
    ExpectTo24("5A", 1, "00");
    ExpectTo24(" PM", 1, "12");
    ExpectTo24("5 AM", 1, "05");
    ExpectTo24("15PM", 1, "13");
    ExpectTo24("12 AM", 1, "00");
    ExpectTo24("12 PM", 1, "12");
    ExpectTo24("123PM", 1, "12");
}

TEST(HourTimeFormatToCurMode, TakesShortTexts) {
    ExpectTo12("5", 1, "05 AM");
    ExpectTo12(" ", 1, "12 AM");
    ExpectTo12("12", 1, "12 PM");
    ExpectTo12("00", 1, "12 AM");
}

TEST(HourTimeFormatTo24Mode, WithoutAMarkerChangesNothing) {
    ExpectTo24("5", 0, "5");
    ExpectTo24("07:45 am", 0, "07:45 am");
}

TEST(HourTimeFormatToCurMode, OneMarkerAnywhereMakesATwelveHourText) {
    ExpectTo12("07:45 PM", 0, "07:45 PM");
    ExpectTo12("A", 0, "A");
    ExpectTo12("P19:45", 0, "P19:45");
    ExpectTo12("19:45 xA", 0, "19:45 xA");
}

TEST(HourTimeFormatTo24Mode, WithoutABlankADigitIsLost) {
    ExpectTo24("07:45PM", 1, "19:4");
    ExpectTo24("12:10AM", 1, "00:1");
}

TEST(HourTimeFormatTo24Mode, AnHourOfOneDigitTakesTheColonAlong) {
    ExpectTo24("7:45 PM", 1, "1945");
    ExpectTo24("9:05 AM", 1, "0905");
}
