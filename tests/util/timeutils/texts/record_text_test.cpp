// TTimeToStr and TTimeToStrTime.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/support/log_lines.h"
#include "tests/util/timeutils/any_int.h"
#include "tests/util/timeutils/date_records.h"
#include "tests/util/timeutils/texts/layout_texts.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

namespace {

constexpr int kBufferSize = 80;

const TTime kRecord = RecordOf({2024, 5, 7}, {8, 9, 10});

// Checks the result and that nothing is written behind the terminator.
std::string TextOf(const TTime& rec, int text_type, int code = 9) {
    GuardedBuffer buf(kBufferSize);
    EXPECT_EQ(TTimeToStr(rec, buf.data(), buf.size(), text_type, code), 0);
    const std::string text = buf.text();
    buf.ExpectHolds(Terminated(text));
    return text;
}

std::string StampOf(const TTime& rec) {
    GuardedBuffer dst(kBufferSize);
    EXPECT_EQ(TTimeToStrTime(dst.data(), dst.size(), &rec), 1);
    return dst.text();
}

}  // namespace

TEST(TTimeToStr, Type1IsTheDateInTheLayoutOfTheCode) {
    for (int code = 0; code <= 40; ++code) {
        EXPECT_EQ(TextOf(kRecord, 1, code), kLayoutTexts[code % 10]) << code;
        EXPECT_EQ(TextOf(kRecord, 1, -10 * code), kLayoutTexts[0]) << code;
    }
    EXPECT_EQ(TextOf(kRecord, 1, -1), "24.05.07");
}

TEST(TTimeToStr, Type1DoesNotUseTheSize) {
    for (const int size : {12, 11, 3, 1, 0, -1, INT_MIN}) {
        SCOPED_TRACE(size);
        GuardedBuffer buf(12);
        EXPECT_EQ(TTimeToStr(kRecord, buf.data(), size, 1, 9), 0);
        buf.ExpectHolds(Terminated("2024-05-07"));
    }
}

TEST(TTimeToStr, TheOtherTypesDoNotUseTheCode) {
    for (int code = -40; code <= 40; ++code) {
        EXPECT_EQ(TextOf(kRecord, 2, code), "08:09:10");
        EXPECT_EQ(TextOf(kRecord, 3, code), "08:09");
        EXPECT_EQ(TextOf(kRecord, 4, code), "2024-05-07T08:09:10");
    }
}

TEST(TTimeToStr, AnUnknownTypeWritesNothing) {
    for (const int text_type : {0, 5, 6, -1, 11, INT_MIN, INT_MAX}) {
        GuardedBuffer buf(32);
        EXPECT_EQ(TTimeToStr(kRecord, buf.data(), buf.size(), text_type, 9), 0);
        buf.ExpectUntouched();
    }
}

TEST(TTimeToStr, IsBoundedBySize) {
    const struct {
        int text_type;
        int size;
        std::string written;
    } kCases[] = {
        {2, 9, Terminated("08:09:10")},
        {2, 8, Terminated("08:09:1")},
        {2, 1, Terminated("")},
        {2, 0, ""},
        {2, -1, ""},
        {3, 6, Terminated("08:09")},
        {3, 5, Terminated("08:0")},
        {3, 4, Terminated("08:")},
        {3, 1, Terminated("")},
        {3, 0, ""},
        {3, INT_MIN, ""},
        {4, 20, Terminated("2024-05-07T08:09:10")},
        {4, 19, Terminated("2024-05-07T08:09:1")},
        {4, 11, Terminated("2024-05-07")},
        {4, 1, Terminated("")},
        {4, 0, ""},
        {4, -1, ""},
    };
    for (const auto& [text_type, size, written] : kCases) {
        SCOPED_TRACE(testing::Message() << text_type << ' ' << size);
        GuardedBuffer buf(24);
        EXPECT_EQ(TTimeToStr(kRecord, buf.data(), size, text_type, 9), 0);
        buf.ExpectHolds(written);
    }
}

TEST(TTimeToStr, WritesFieldsOfAnyWidth) {
    EXPECT_EQ(TextOf(RecordOf({33, 123, -7}, {-1, 100, 0}), 4), "0033-123--7T-1:100:00");
    EXPECT_EQ(TextOf(RecordOf({1, 1, 1}, {INT_MIN, INT_MIN, INT_MIN}), 2),
              "-2147483648:-2147483648:-2147483648");
    TTime wrapping = kRecord;
    wrapping.tm_year = INT_MAX;
    wrapping.tm_mon = INT_MAX;
    EXPECT_EQ(TextOf(wrapping, 1, 9), "-2147481749--2147483648-07");
    EXPECT_EQ(TextOf(wrapping, 4), "-2147481749--2147483648-07T08:09:10");
}

TEST(TTimeToStr, AgreesWithTheNaiveWriterOnRandomRecords) {
    CheckRandom(1348, [](Random& random) {
        const Date date = {AnyInt(random), SmallInt(random, 8), SmallInt(random, 12)};
        const Clock clock = {SmallInt(random, 6), AnyInt(random), SmallInt(random, 7)};
        const TTime rec = RecordOf(date, clock);
        const int size = random.Between(-2, kBufferSize);
        const int text_type = random.Between(0, 5);
        const int code = random.Between(-40, 40);
        GuardedBuffer buf(kBufferSize);
        const std::string before(buf.data(), kBufferSize);
        TTimeToStr(rec, buf.data(), size, text_type, code);
        buf.ExpectHolds(naive::TTimeToStr(rec, before, size, text_type, code));
        ASSERT_FALSE(testing::Test::HasFailure())
            << "differs from naive::TTimeToStr, type " << text_type << ", size " << size
            << ", code " << code;

        GuardedBuffer dst(kBufferSize);
        TTimeToStrTime(dst.data(), size, &rec);
        dst.ExpectHolds(naive::Put(before, size, naive::TimeStamp(rec)));
        ASSERT_FALSE(testing::Test::HasFailure()) << "differs from naive::TimeStamp, size " << size;
    });
}

TEST(TTimeToStrTime, WritesDateAndTime) {
    EXPECT_EQ(StampOf(kRecord), "2024-05-07T08:09:10");
    EXPECT_EQ(StampOf(RecordOf({1970, 1, 1})), "1970-01-01T00:00:00");
    EXPECT_EQ(StampOf(RecordOf({33, 123, -7}, {-1, 100, 0})), "0033-123--7T-1:100:00");
}

TEST(TTimeToStrTime, IsBoundedBySize) {
    const struct {
        int size;
        std::string written;
    } kCases[] = {
        {24, Terminated("2024-05-07T08:09:10")},
        {20, Terminated("2024-05-07T08:09:10")},
        {19, Terminated("2024-05-07T08:09:1")},
        {11, Terminated("2024-05-07")},
        {1, Terminated("")},
        {0, ""},
        {-1, ""},
        {INT_MIN, ""},
    };
    for (const auto& [size, written] : kCases) {
        SCOPED_TRACE(size);
        GuardedBuffer dst(24);
        EXPECT_EQ(TTimeToStrTime(dst.data(), size, &kRecord), 1);
        dst.ExpectHolds(written);
    }
}

TEST(TTimeToStrTime, CutsAClockOfWideFieldsAfter15Characters) {
    EXPECT_EQ(StampOf(RecordOf({2024, 5, 7}, {12345, 12345, 123})), "2024-05-07T12345:12345:123");
    EXPECT_EQ(StampOf(RecordOf({2024, 5, 7}, {12345, 12345, 1234})), "2024-05-07T12345:12345:123");
    EXPECT_EQ(StampOf(RecordOf({2024, 5, 7}, {INT_MIN, INT_MIN, INT_MIN})),
              "2024-05-07T-2147483648:-21");
}

TEST(TTimeToStrTime, NullGives0AndIsLogged) {
    CapturedLog log;
    GuardedBuffer dst(24);
    EXPECT_EQ(TTimeToStrTime(nullptr, 24, &kRecord), 0);
    EXPECT_EQ(TTimeToStrTime(dst.data(), dst.size(), nullptr), 0);
    EXPECT_EQ(TTimeToStrTime(nullptr, 24, nullptr), 0);
    dst.ExpectUntouched();
    const LogLine line = {"Warning", "timeutils", "TTimeToStrTime", "pTimeBuf pTTime buf is NULL!"};
    EXPECT_EQ(log.Take(), (std::vector<LogLine>{line, line, line}));
}

TEST(TTimeToStrTime, DoesNotLogOtherwise) {
    CapturedLog log;
    GuardedBuffer dst(24);
    TTimeToStrTime(dst.data(), 0, &kRecord);
    TTimeToStrTime(dst.data(), dst.size(), &kRecord);
    TTimeToStr(kRecord, dst.data(), dst.size(), 4, 9);
    EXPECT_EQ(log.TakeText(), "");
}
