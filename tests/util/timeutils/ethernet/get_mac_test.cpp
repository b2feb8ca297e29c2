// GetMac.

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "tests/support/guarded_buffer.h"
#include "tests/support/log_lines.h"
#include "tests/util/timeutils/ethernet/fake_interface.h"
#include "util/timeutils.h"

namespace {

constexpr int kText = 1;
constexpr int kFullBytes = 2;
constexpr size_t kBufferSize = 40;

using Calls = std::vector<std::string>;
const Calls kOneReading = {"socket 2 2 0", "get", "close"};  // AF_INET, SOCK_DGRAM

LogLine Line(const std::string& message) {
    return {"Warning", "timeutils", "GetMac", message};
}

}  // namespace

TEST(GetMac, WritesTheTextInFormOne) {
    FakeInterface interface;
    for (const int size : {18, 19, 40, INT_MAX}) {
        GuardedBuffer buffer(kBufferSize);
        EXPECT_EQ(GetMac(buffer.data(), size, kText), 1);
        buffer.ExpectHolds(Terminated("00:1a:2b:3c:4d:5e"));
    }
}

TEST(GetMac, WritesLowerCaseDigitsTwoForEachByte) {
    FakeInterface interface;
    interface.address = std::string("\xFF\x80\x7F\x00\x0A\xEB", 6);
    GuardedBuffer buffer(kBufferSize);
    EXPECT_EQ(GetMac(buffer.data(), 18, kText), 1);
    EXPECT_EQ(buffer.text(), "ff:80:7f:00:0a:eb");
}

TEST(GetMac, WritesSixBytesInFormTwo) {
    FakeInterface interface;
    for (const int size : {6, 7, 40, INT_MAX}) {
        GuardedBuffer buffer(kBufferSize);
        EXPECT_EQ(GetMac(buffer.data(), size, kFullBytes), 1);
        buffer.ExpectHolds(interface.address);
    }
}

TEST(GetMac, WritesTheBytesThatFitInAnyOtherForm) {
    FakeInterface interface;
    for (const int form : {0, 3, -1, 257, INT_MAX, INT_MIN}) {
        for (int size = -1; size <= 8; ++size) {
            SCOPED_TRACE(testing::Message() << "form " << form << " size " << size);
            const auto fitting = static_cast<size_t>(std::clamp(size, 0, 6));
            GuardedBuffer buffer(kBufferSize);
            EXPECT_EQ(GetMac(buffer.data(), size, form), 1);
            buffer.ExpectHolds(interface.address.substr(0, fitting));
        }
    }
    GuardedBuffer buffer(kBufferSize);
    EXPECT_EQ(GetMac(buffer.data(), INT_MIN, 0), 1);
    buffer.ExpectUntouched();
}

TEST(GetMac, RefusesSmallBuffersBeforeAnyRequest) {
    const struct {
        int size;
        int form;
    } kCases[] = {{17, kText},     {6, kText},       {0, kText},
                  {-1, kText},     {INT_MIN, kText}, {5, kFullBytes},
                  {1, kFullBytes}, {0, kFullBytes},  {INT_MIN, kFullBytes}};
    for (const auto& [size, form] : kCases) {
        SCOPED_TRACE(testing::Message() << "form " << form << " size " << size);
        CapturedLog log;
        FakeInterface interface;
        GuardedBuffer buffer(kBufferSize);
        EXPECT_EQ(GetMac(buffer.data(), size, form), 0);
        buffer.ExpectUntouched();
        EXPECT_EQ(interface.calls, Calls{});
        EXPECT_EQ(log.Take(), std::vector{Line("Buffer Length too small")});
    }
}

TEST(GetMac, AsksForEth0InAClearedRequest) {
    CapturedLog log;
    FakeInterface interface;
    GuardedBuffer buffer(kBufferSize);
    EXPECT_EQ(GetMac(buffer.data(), 6, kFullBytes), 1);

    EXPECT_EQ(interface.calls, kOneReading);
    struct ifreq expected;
    memset(&expected, 0, sizeof expected);
    strcpy(expected.ifr_name, "eth0");
    ASSERT_EQ(interface.gets.size(), 1U);
    EXPECT_EQ(memcmp(&interface.gets[0], &expected, sizeof expected), 0);
    EXPECT_EQ(log.TakeText(), "");
}

TEST(GetMac, ReadsAnewEachTime) {
    FakeInterface interface;
    GuardedBuffer buffer(kBufferSize);
    GetMac(buffer.data(), 18, kText);
    interface.address = "abcdef";
    GetMac(buffer.data(), 18, kText);
    EXPECT_EQ(buffer.text(), "61:62:63:64:65:66");
}

TEST(GetMac, LogsAFailedRequestAndLeavesTheBuffer) {
    for (const int form : {kText, kFullBytes, 0}) {
        CapturedLog log;
        FakeInterface interface;
        interface.all_gets_fail = true;
        interface.get_error = ENODEV;
        GuardedBuffer buffer(kBufferSize);
        EXPECT_EQ(GetMac(buffer.data(), kBufferSize, form), 0);
        buffer.ExpectUntouched();
        EXPECT_EQ(interface.calls, kOneReading);
        EXPECT_EQ(log.Take(), std::vector{Line("get mac error:No such device")});
    }
}

TEST(GetMac, NamesTheRequestsErrorAlsoWhenCloseFails) {
    CapturedLog log;
    FakeInterface interface;
    interface.all_gets_fail = true;
    interface.get_error = EPERM;
    interface.close_error = EIO;
    GuardedBuffer buffer(kBufferSize);
    EXPECT_EQ(GetMac(buffer.data(), kBufferSize, kText), 0);
    EXPECT_EQ(log.Take(), std::vector{Line("get mac error:Operation not permitted")});
}

TEST(GetMac, SucceedsAlsoWhenCloseFails) {
    FakeInterface interface;
    interface.close_error = EIO;
    GuardedBuffer buffer(kBufferSize);
    EXPECT_EQ(GetMac(buffer.data(), 18, kText), 1);
    EXPECT_EQ(buffer.text(), "00:1a:2b:3c:4d:5e");
}

TEST(GetMac, IssuesTheRequestAlsoWithoutASocket) {
    CapturedLog log;
    FakeInterface interface;
    interface.socket_error = EMFILE;
    GuardedBuffer buffer(kBufferSize);
    EXPECT_EQ(GetMac(buffer.data(), kBufferSize, kText), 0);
    buffer.ExpectUntouched();
    EXPECT_EQ(interface.calls, (Calls{"socket 2 2 0", "get on -1"}));
    EXPECT_EQ(log.Take(), std::vector{Line("get mac error:Bad file descriptor")});
}

TEST(GetMac, WithoutABufferGives0AfterTheReading) {
    FakeInterface interface;
    CapturedLog log;
    EXPECT_EQ(GetMac(nullptr, 17, kText), 0);
    EXPECT_EQ(log.Take(), std::vector{Line("Buffer Length too small")});
    EXPECT_EQ(GetMac(nullptr, 18, kText), 0);
    EXPECT_EQ(GetMac(nullptr, 6, kFullBytes), 0);
    EXPECT_EQ(GetMac(nullptr, 1, 0), 0);
    EXPECT_EQ(log.TakeText(), "");
    EXPECT_EQ(interface.calls.size(), 3 * kOneReading.size());
    interface.all_gets_fail = true;
    interface.get_error = ENODEV;
    EXPECT_EQ(GetMac(nullptr, 18, kText), 0);
    EXPECT_EQ(log.Take(), std::vector{Line("get mac error:No such device")});
}

TEST(GetMac, OfNoBytesNeedsNoBuffer) {
    FakeInterface interface;
    for (const int size : {0, -1, INT_MIN}) {
        EXPECT_EQ(GetMac(nullptr, size, 0), 1) << size;
    }
}
