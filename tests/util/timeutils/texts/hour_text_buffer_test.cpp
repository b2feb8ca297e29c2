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

using Lines = std::vector<LogLine>;
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

void ExpectNoText(const Convert convert) {
    EXPECT_EQ(convert(nullptr, 16), -1);
    ExpectBytes(convert, "", kBufferSize, -1, Terminated(""));
    ExpectBytes(convert, "", 0, -1, Terminated(""));
}

LogLine ToCurModeLine(const std::string& text) {
    return {"Info", "timeutils", "HourTimeFormatToCurMode",
            "Hour time format to current mode: " + text};
}

LogLine To24ModeLine(const std::string& text) {
    return {"Info", "timeutils", "HourTimeFormatTo24Mode", "Hour time format to 24 mode: " + text};
}

}  // namespace

TEST(HourTimeFormatToCurMode, NullAndEmptyGiveMinus1) {
    for (const Convert convert : {To12, ToCurrent24}) {
        ExpectNoText(convert);
    }
}

TEST(HourTimeFormatTo24Mode, NullAndEmptyGiveMinus1) {
    ExpectNoText(To24);
}

TEST(HourTimeFormatToCurMode, LeavesTheBytesBehindTheNewText) {
    ExpectBytes(To12, "19:45", 16, 1, Terminated("07:45 PM"));
    ExpectBytes(To12, "19:45", 4, 1, Terminated("07:") + Terminated("5"));
}

TEST(HourTimeFormatTo24Mode, LeavesTheBytesBehindTheNewText) {
    for (const Convert convert : {To24, ToCurrent24}) {
        ExpectBytes(convert, "07:45 PM", 16, 1, Terminated("19:45") + Terminated("PM"));
        ExpectBytes(convert, "5 PM", 16, 1, Terminated("17") + Terminated("M"));
        ExpectBytes(convert, "PM 07", 16, 1, Terminated("12") + Terminated("07"));
        ExpectBytes(convert, "13:05", 16, 0, Terminated("13:05"));
    }
}

TEST(HourTimeFormatToCurMode, IsBoundedBySize) {
    ExpectBytes(To12, "19:45", 9, 1, Terminated("07:45 PM"));
    ExpectBytes(To12, "19:45", 8, 1, Terminated("07:45 P"));
    ExpectBytes(To12, "19:45", 1, 1, Terminated("") + Terminated("9:45"));
}

// The cut at the blank is made in the text itself, whatever the size.
TEST(HourTimeFormatTo24Mode, IsBoundedBySize) {
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
}

TEST(HourTimeFormatToCurMode, WritesNothingWithoutASize) {
    for (const int size : {0, -1, INT_MIN}) {
        ExpectBytes(ToCurrent24, "07:45 PM", size, 1, Terminated("07:45 PM"));
        ExpectBytes(To12, "19:45", size, 1, Terminated("19:45"));
        ExpectBytes(To12, "07:45 PM", size, 0, Terminated("07:45 PM"));
    }
}

TEST(HourTimeFormatTo24Mode, WritesNothingWithoutASize) {
    for (const int size : {0, -1, INT_MIN}) {
        ExpectBytes(To24, "07:45 PM", size, 1, Terminated("07:45 PM"));
        ExpectBytes(To24, "13:05", size, 0, Terminated("13:05"));
    }
}

TEST(HourTimeFormatToCurMode, CutsTheNewTextAfter63Characters) {
    const auto expect = [](const std::string& before, const std::string& written) {
        ExpectBytes(To12, before, kBufferSize, 1, written);
    };
    const std::string tail(58, 'x');
    expect("19" + tail, Terminated("07" + tail + " PM"));  // 63 characters
    expect("19" + tail + "x", Terminated("07" + tail + "x P"));
    expect("19" + tail + "xx", Terminated("07" + tail + "xx "));
    expect("19" + tail + "xxxyz", Terminated("07" + tail + "xxx") + Terminated("z"));
}

TEST(HourTimeFormatTo24Mode, CutsTheNewTextAfter63Characters) {
    const std::string tail(61, 'x');
    for (const Convert convert : {To24, ToCurrent24}) {
        const auto expect = [convert](const std::string& before, const std::string& written) {
            ExpectBytes(convert, before, kBufferSize, 1, written);
        };
        expect("07" + tail + " PM", Terminated("19" + tail) + Terminated("PM"));
        expect("07" + tail + "y PM", Terminated("19" + tail) + Terminated("") + Terminated("PM"));
        expect("07" + tail + "yz PM", Terminated("19" + tail) + Terminated("z") + Terminated("PM"));
    }
}

TEST(HourTimeFormatToCurMode, LogsTheNewText) {
    CapturedLog log;
    GuardedBuffer buf(16, Terminated("07:45 PM"));
    HourTimeFormatToCurMode(buf.data(), buf.size(), 1);
    HourTimeFormatToCurMode(buf.data(), buf.size(), 0);
    EXPECT_EQ(log.Take(), (Lines{ToCurModeLine("19:45"), ToCurModeLine("07:45 PM")}));
}

TEST(HourTimeFormatTo24Mode, LogsTheNewText) {
    CapturedLog log;
    GuardedBuffer buf(16, Terminated("07:45 PM"));
    HourTimeFormatTo24Mode(buf.data(), buf.size());
    EXPECT_EQ(log.Take(), Lines{To24ModeLine("19:45")});
}

TEST(HourTimeFormatToCurMode, LogsTheTextWholeWhereTheBufferCutsIt) {
    CapturedLog log;
    GuardedBuffer buf(16, Terminated("19:45"));
    HourTimeFormatToCurMode(buf.data(), 0, 0);
    EXPECT_EQ(log.Take(), Lines{ToCurModeLine("07:45 PM")});
}

TEST(HourTimeFormatTo24Mode, LogsTheTextWholeWhereTheBufferCutsIt) {
    CapturedLog log;
    GuardedBuffer buf(16, Terminated("07:45 PM"));
    HourTimeFormatTo24Mode(buf.data(), 3);
    EXPECT_EQ(log.Take(), Lines{To24ModeLine("19:45")});
}

TEST(HourTimeFormatToCurMode, LogsOnlyWhatItConverts) {
    CapturedLog log;
    GuardedBuffer in12(16, Terminated("07:45 PM"));
    HourTimeFormatToCurMode(in12.data(), in12.size(), 0);
    GuardedBuffer in24(16, Terminated("13:05"));
    HourTimeFormatToCurMode(in24.data(), in24.size(), 1);
    GuardedBuffer empty(16, Terminated(""));
    HourTimeFormatToCurMode(empty.data(), empty.size(), 1);
    EXPECT_EQ(log.TakeText(), "");
}

TEST(HourTimeFormatTo24Mode, LogsOnlyWhatItConverts) {
    CapturedLog log;
    GuardedBuffer in24(16, Terminated("13:05"));
    HourTimeFormatTo24Mode(in24.data(), in24.size());
    HourTimeFormatTo24Mode(nullptr, 16);
    EXPECT_EQ(log.TakeText(), "");
}
