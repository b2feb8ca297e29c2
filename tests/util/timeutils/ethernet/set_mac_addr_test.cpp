// set_mac_addr.

#include <gtest/gtest.h>
#include <net/if_arp.h>

#include <cerrno>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "tests/support/exact_copy.h"
#include "tests/support/log_lines.h"
#include "tests/support/repeated.h"
#include "tests/util/timeutils/ethernet/fake_interface.h"
#include "util/timeutils.h"

namespace {

using Calls = std::vector<std::string>;
using Lines = std::vector<std::string>;

const std::string kMac("\x02\xA1\xB2\xC3\xD4\xE5", 6);
constexpr char kSocketCall[] = "socket 2 2 0";  // AF_INET, SOCK_DGRAM
constexpr char kSleepCall[] = "sleep 0.100000";
constexpr int kAttempts = 500;

// Calls set_mac_addr with errno 0 and the six bytes in a block of their size.
int SetAddress(const std::string& name, const std::string& mac = kMac) {
    const std::unique_ptr<unsigned char[]> bytes(new unsigned char[mac.size()]);
    memcpy(bytes.get(), mac.data(), mac.size());
    const auto exact_name = ExactCopy(name);
    errno = 0;
    return set_mac_addr(exact_name.get(), bytes.get());
}

// The messages of lines that must all have the right head.
Lines MessagesOf(const std::vector<LogLine>& lines) {
    Lines messages;
    for (const LogLine& line : lines) {
        EXPECT_EQ(line.level + line.file + line.function, "Warningtimeutilsset_mac_addr");
        messages.push_back(line.message);
    }
    return messages;
}

template <typename List>
List operator+(List left, const List& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Calls Attempts(unsigned int failing, const Calls& last = {"set", "get"}) {
    return Calls{kSocketCall} + Repeated(failing, Calls{"set", "get", kSleepCall}) + last +
           Calls{"close"};
}

struct ifreq RequestWith(const char* name, const std::string& mac) {
    struct ifreq request;
    memset(&request, 0, sizeof request);
    strcpy(request.ifr_name, name);
    request.ifr_hwaddr.sa_family = ARPHRD_ETHER;
    memcpy(request.ifr_hwaddr.sa_data, mac.data(), mac.size());
    return request;
}

void ExpectAllAre(const std::vector<struct ifreq>& requests, const struct ifreq& expected) {
    for (const struct ifreq& request : requests) {
        EXPECT_EQ(memcmp(&request, &expected, sizeof expected), 0) << request.ifr_name;
    }
}

}  // namespace

static_assert(ARPHRD_ETHER == 1);

TEST(set_mac_addr, LeavesAfterTheFirstAttemptThatShows) {
    CapturedLog log;
    FakeInterface interface;
    EXPECT_EQ(SetAddress("eth0"), 0);
    EXPECT_EQ(interface.address, kMac);
    EXPECT_EQ(interface.calls, Attempts(0));
    EXPECT_EQ(MessagesOf(log.Take()), (Lines{"Success", "Success"}));
}

TEST(set_mac_addr, LogsTheErrorThatTheCallerLeft) {
    CapturedLog log;
    FakeInterface interface;
    errno = ENOENT;
    const auto* mac = reinterpret_cast<const unsigned char*>(kMac.data());
    EXPECT_EQ(set_mac_addr("eth0", mac), 0);
    EXPECT_EQ(MessagesOf(log.Take()),
              (Lines{"No such file or directory", "No such file or directory"}));
}

TEST(set_mac_addr, TriesAgainUntilTheAddressShows) {
    CapturedLog log;
    FakeInterface interface;
    interface.tries_until_set = 3;
    EXPECT_EQ(SetAddress("eth0"), 0);
    EXPECT_EQ(interface.address, kMac);
    EXPECT_EQ(interface.calls, Attempts(2));
    EXPECT_EQ(MessagesOf(log.Take()), (Lines{"Success", "Success", "1 :c3-3c",  //
                                             "Success", "Success", "2 :c3-3c",  //
                                             "Success", "Success"}));
}

TEST(set_mac_addr, LogsRefusedRequestsTwice) {
    CapturedLog log;
    FakeInterface interface;
    interface.tries_until_set = INT_MAX;
    interface.set_error = EBUSY;
    interface.failing_gets = {2};
    interface.get_error = ENODEV;
    EXPECT_EQ(SetAddress("eth0"), 0);
    const std::string busy = strerror(EBUSY);
    const std::string no_device = strerror(ENODEV);
    Lines lines = MessagesOf(log.Take());
    lines.resize(12);
    EXPECT_EQ(lines, (Lines{busy, "SIOCSIFHWADDR:" + busy, busy, "1 :c3-3c",      //
                            busy, "SIOCSIFHWADDR:" + busy, no_device, "2 :c3-0",  //
                            busy, "SIOCSIFHWADDR:" + busy, busy, "3 :c3-3c"}));
}

TEST(set_mac_addr, LeavesAlsoAfterARefusalWhenTheAddressIsThereAlready) {
    CapturedLog log;
    FakeInterface interface;
    interface.address = kMac;
    interface.set_error = EBUSY;
    interface.tries_until_set = INT_MAX;
    EXPECT_EQ(SetAddress("eth0"), 0);
    EXPECT_EQ(interface.calls, Attempts(0));
    const std::string busy = strerror(EBUSY);
    EXPECT_EQ(MessagesOf(log.Take()), (Lines{busy, "SIOCSIFHWADDR:" + busy, busy}));
}

TEST(set_mac_addr, GivesUpAfter500AttemptsAndSleepsAfterTheLastToo) {
    CapturedLog log;
    FakeInterface interface;
    interface.tries_until_set = kAttempts + 1;
    EXPECT_EQ(SetAddress("eth0"), 0);
    EXPECT_EQ(interface.calls, Attempts(kAttempts, {}));
    EXPECT_EQ(interface.address, std::string("\x00\x1A\x2B\x3C\x4D\x5E", 6));
    Lines expected;
    for (int attempt = 1; attempt <= kAttempts; ++attempt) {
        expected = expected + Lines{"Success", "Success", std::to_string(attempt) + " :c3-3c"};
    }
    EXPECT_EQ(MessagesOf(log.Take()), expected);
}

TEST(set_mac_addr, AcceptsThe500thAttempt) {
    FakeInterface interface;
    interface.tries_until_set = kAttempts;
    EXPECT_EQ(SetAddress("eth0"), 0);
    EXPECT_EQ(interface.calls, Attempts(kAttempts - 1));
}

TEST(set_mac_addr, ComparesAllSixBytes) {
    for (size_t i = 0; i < kMac.size(); ++i) {
        FakeInterface interface;
        interface.tries_until_set = 2;
        interface.address = kMac;
        interface.address[i] ^= 0x40;
        EXPECT_EQ(SetAddress("eth0"), 0);
        EXPECT_EQ(interface.calls, Attempts(1)) << "byte " << i;
    }
}

TEST(set_mac_addr, LogsByteThreeOfBothAddressesInHex) {
    CapturedLog log;
    FakeInterface interface;
    interface.tries_until_set = 2;
    interface.address = std::string("\x01\x02\x03\xFE\x05\x06", 6);
    EXPECT_EQ(SetAddress("eth0", std::string("\x11\x12\x13\x04\x15\x16", 6)), 0);
    EXPECT_EQ(MessagesOf(log.Take())[2], "1 :4-fe");
}

TEST(set_mac_addr, ClearsEachRequestAndCutsTheNameTo15Characters) {
    for (const char* name : {"eth0", "", "interface-15-ch", "interface-15-characters"}) {
        FakeInterface interface;
        interface.tries_until_set = 3;
        interface.failing_gets = {2};
        EXPECT_EQ(SetAddress(name), 0);
        const std::string cut = std::string(name).substr(0, 15);
        EXPECT_EQ(interface.sets.size(), 3U);
        EXPECT_EQ(interface.gets.size(), 3U);
        ExpectAllAre(interface.sets, RequestWith(cut.c_str(), kMac));
        ExpectAllAre(interface.gets, RequestWith(cut.c_str(), ""));
    }
}

TEST(set_mac_addr, ReturnsTheResultOfTheLastReading) {
    FakeInterface never;
    never.all_gets_fail = true;
    never.get_error = ENODEV;
    EXPECT_EQ(SetAddress("eth0"), -1);
    EXPECT_EQ(never.calls, Attempts(kAttempts, {}));

    FakeInterface last_fails;
    last_fails.tries_until_set = INT_MAX;
    last_fails.failing_gets = {kAttempts};
    last_fails.get_error = ENODEV;
    EXPECT_EQ(SetAddress("eth0"), -1);

    FakeInterface first_fails;
    first_fails.failing_gets = {1};
    first_fails.get_error = ENODEV;
    EXPECT_EQ(SetAddress("eth0"), 0);
    EXPECT_EQ(first_fails.calls, Attempts(1));
}

TEST(set_mac_addr, TakesAFailedReadingForZeros) {
    FakeInterface interface;
    interface.all_gets_fail = true;
    interface.get_error = ENODEV;
    EXPECT_EQ(SetAddress("eth0", std::string(6, '\0')), -1);
    EXPECT_EQ(interface.calls, Attempts(0));
}

TEST(set_mac_addr, RefusesNull) {
    const auto* mac = reinterpret_cast<const unsigned char*>(kMac.data());
    CapturedLog log;
    FakeInterface interface;
    EXPECT_EQ(set_mac_addr(nullptr, mac), -1);
    EXPECT_EQ(set_mac_addr("eth0", nullptr), -1);
    EXPECT_EQ(set_mac_addr(nullptr, nullptr), -1);
    EXPECT_EQ(interface.calls, Calls{});
    EXPECT_EQ(MessagesOf(log.Take()), Repeated(3, Lines{"invalid address"}));
}

TEST(set_mac_addr, NeedsASocket) {
    CapturedLog log;
    FakeInterface interface;
    interface.socket_error = EMFILE;
    EXPECT_EQ(SetAddress("eth0"), -1);
    EXPECT_EQ(interface.calls, Calls{kSocketCall});
    EXPECT_EQ(MessagesOf(log.Take()), Lines{"socket:Too many open files"});
}

TEST(set_mac_addr, ReturnsTheReadingsResultAlsoWhenCloseFails) {
    FakeInterface interface;
    interface.close_error = EIO;
    EXPECT_EQ(SetAddress("eth0"), 0);
}
