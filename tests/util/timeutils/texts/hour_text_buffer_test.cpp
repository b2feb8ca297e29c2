// What the hour functions do to the bytes of their buffer, and what they log.

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "tests/support/guarded_buffer.h"
#include "tests/support/log_lines.h"
#include "util/timeutils.h"

namespace {

constexpr int kBufferSize = 96;

using Convert = int (*)(char* buf, int size);

int To12(char* buf, int size) {
    return HourTimeFormatToCurMode(buf, size, 0);
}

int To24(char* buf, int size) {
    return HourTimeFormatTo24Mode(buf, size);
}

int ToCurrent24(char* buf, int size) {
    return HourTimeFormatToCurMode(buf, size, 1);
}

// Expects result and, at the start of the buffer, all the bytes of written.
void ExpectBytes(const Convert convert, const std::string& before, int size, int result,
                 const std::string& written) {
    SCOPED_TRACE(before);
    GuardedBuffer buf(kBufferSize, Terminated(before));
    EXPECT_EQ(convert(buf.data(), size), result);
    buf.ExpectHolds(written);
}

}  // namespace

TEST(HourTimeFormat, NullAndEmptyGiveMinus1) {
    for (const Convert convert : {To12, To24, ToCurrent24}) {
        EXPECT_EQ(convert(nullptr, 16), -1);
        ExpectBytes(convert, "", kBufferSize, -1, Terminated(""));
        ExpectBytes(convert, "", 0, -1, Terminated(""));
    }
}

TEST(HourTimeFormat, LeavesTheBytesBehindTheNewText) {
    for (const Convert convert : {To24, ToCurrent24}) {
        ExpectBytes(convert, "07:45 PM", 16, 1, Terminated("19:45") + Terminated("PM"));
        ExpectBytes(convert, "5 PM", 16, 1, Terminated("17") + Terminated("M"));
        ExpectBytes(convert, "PM 07", 16, 1, Terminated("12") + Terminated("07"));
        ExpectBytes(convert, "13:05", 16, 0, Terminated("13:05"));
    }
    ExpectBytes(To12, "19:45", 16, 1, Terminated("07:45 PM"));
}

// The cut at the blank is made in the text itself, whatever the size.
TEST(HourTimeFormat, IsBoundedBySize) {
    const std::string kCut = Terminated("07:45") + Terminated("PM");
    for (const Convert convert : {To24, ToCurrent24}) {
        const auto expect = [&](int size, const std::string& start) {
            SCOPED_TRACE(size);
            ExpectBytes(convert, "07:45 PM", size, 1, start + kCut.substr(start.size()));
        };
        expect(9, Terminated("19:45"));
        expect(6, Terminated("19:45"));
        expect(5, Terminated("19:4"));
        expect(4, Terminated("19:"));
        expect(2, Terminated("1"));
        expect(1, Terminated(""));
    }
    ExpectBytes(To12, "19:45", 9, 1, Terminated("07:45 PM"));
    ExpectBytes(To12, "19:45", 8, 1, Terminated("07:45 P"));
    ExpectBytes(To12, "19:45", 4, 1, Terminated("07:") + Terminated("5"));
    ExpectBytes(To12, "19:45", 1, 1, Terminated("") + Terminated("9:45"));
}

TEST(HourTimeFormat, WritesNothingWithoutASize) {
    for (const int size : {0, -1, INT_MIN}) {
        ExpectBytes(To24, "07:45 PM", size, 1, Terminated("07:45 PM"));
        ExpectBytes(ToCurrent24, "07:45 PM", size, 1, Terminated("07:45 PM"));
        ExpectBytes(To24, "13:05", size, 0, Terminated("13:05"));
        ExpectBytes(To12, "19:45", size, 1, Terminated("19:45"));
        ExpectBytes(To12, "07:45 PM", size, 0, Terminated("07:45 PM"));
    }
}

TEST(HourTimeFormat, CutsTheNewTextAfter63Characters) {
    const std::string tail(61, 'x');
    const std::string tail60 = tail.substr(1);
    const std::string tail58 = tail.substr(3);
    const auto expect = [](const Convert convert, const std::string& before,
                           const std::string& written) {
        ExpectBytes(convert, before, kBufferSize, 1, written);
    };
    expect(To12, "19" + tail58, Terminated("07" + tail58 + " PM"));  // 63 characters
    expect(To12, "19" + tail58 + "x", Terminated("07" + tail58 + "x P"));
    expect(To12, "19" + tail60, Terminated("07" + tail60 + " "));
    expect(To12, "19" + tail + "yz", Terminated("07" + tail) + Terminated("z"));
    for (const Convert convert : {To24, ToCurrent24}) {
        expect(convert, "07" + tail + " PM", Terminated("19" + tail) + Terminated("PM"));
        expect(convert, "07" + tail + "y PM",
               Terminated("19" + tail) + Terminated("") + Terminated("PM"));
        expect(convert, "07" + tail + "yz PM",
               Terminated("19" + tail) + Terminated("z") + Terminated("PM"));
    }
}

TEST(HourTimeFormat, LogsTheNewTextUnderTheNameOfTheFunction) {
    CapturedLog log;
    GuardedBuffer buf(16, Terminated("07:45 PM"));
    HourTimeFormatToCurMode(buf.data(), buf.size(), 1);
    HourTimeFormatToCurMode(buf.data(), buf.size(), 0);
    HourTimeFormatTo24Mode(buf.data(), buf.size());
    const std::vector<LogLine> expected = {
        {"Info", "timeutils", "HourTimeFormatToCurMode", "Hour time format to current mode: 19:45"},
        {"Info", "timeutils", "HourTimeFormatToCurMode",
         "Hour time format to current mode: 07:45 PM"},
        {"Info", "timeutils", "HourTimeFormatTo24Mode", "Hour time format to 24 mode: 19:45"},
    };
    EXPECT_EQ(log.Take(), expected);
}

TEST(HourTimeFormat, LogsTheTextWholeWhereTheBufferCutsIt) {
    CapturedLog log;
    GuardedBuffer buf(16, Terminated("07:45 PM"));
    HourTimeFormatTo24Mode(buf.data(), 3);
    GuardedBuffer other(16, Terminated("19:45"));
    HourTimeFormatToCurMode(other.data(), 0, 0);
    const std::vector<LogLine> expected = {
        {"Info", "timeutils", "HourTimeFormatTo24Mode", "Hour time format to 24 mode: 19:45"},
        {"Info", "timeutils", "HourTimeFormatToCurMode",
         "Hour time format to current mode: 07:45 PM"},
    };
    EXPECT_EQ(log.Take(), expected);
}

TEST(HourTimeFormat, LogsOnlyWhatItConverts) {
    CapturedLog log;
    GuardedBuffer in12(16, Terminated("07:45 PM"));
    HourTimeFormatToCurMode(in12.data(), in12.size(), 0);
    GuardedBuffer in24(16, Terminated("13:05"));
    HourTimeFormatToCurMode(in24.data(), in24.size(), 1);
    HourTimeFormatTo24Mode(in24.data(), in24.size());
    GuardedBuffer empty(16, Terminated(""));
    HourTimeFormatToCurMode(empty.data(), empty.size(), 1);
    HourTimeFormatTo24Mode(nullptr, 16);
    EXPECT_EQ(log.TakeText(), "");
}
