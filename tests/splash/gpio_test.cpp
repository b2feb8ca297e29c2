// GpioReadPin, GpioPinCmd1, GpioPinCmd3, GpioPutBytes.

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "splash/splash.h"
#include "tests/splash/fake_board.h"
#include "tests/support/captured_stream.h"

namespace {

// The devices are open, and nothing is printed unless the test takes it.
class PinTest : public testing::Test {
protected:
    PinTest() {
        OpenGpioNand();
        board_.calls.clear();
    }
    ~PinTest() override { EXPECT_EQ(output_.Take(), ""); }

    CapturedStream output_{stdout};
    FakeBoard board_;
};

using GpioReadPinTest = PinTest;
using GpioPinCmdTest = PinTest;
using GpioPutBytesTest = PinTest;

// A record that is zero but for its words and the start of its data.
std::string Record(uint32_t first, uint32_t second, const std::string& data = {}) {
    std::string bytes(2056, '\0');
    for (size_t i = 0; i < 4; ++i) {
        bytes[i] = static_cast<char>(first >> (8 * i));
        bytes[4 + i] = static_cast<char>(second >> (8 * i));
    }
    return bytes.replace(8, data.size(), data);
}

// Fails unless there was just this request, on gpio.
void ExpectOnly(const FakeBoard& board, unsigned long number, const std::string& record) {
    EXPECT_EQ(board.calls, std::vector{"ioctl 70 " + std::to_string(number)});
    ASSERT_EQ(board.requests.size(), 1U);
    const std::string bytes(reinterpret_cast<const char*>(&board.requests[0].arg),
                            sizeof board.requests[0].arg);
    EXPECT_EQ(bytes, record);
}

}  // namespace

TEST_F(GpioReadPinTest, ReturnsTheWordThatTheDriverFills) {
    const struct {
        uint32_t word;
        int value;
    } kCases[] = {
        {0, 0}, {1, 1}, {2, 2}, {0x12345678, 0x12345678}, {0xFFFFFFFF, -1}, {0x80000000, INT_MIN}};
    for (const auto& [word, value] : kCases) {
        board_.pins[17] = word;
        EXPECT_EQ(GpioReadPin(17), value);
    }
}

TEST_F(GpioReadPinTest, AsksWithThePinAlone) {
    EXPECT_EQ(GpioReadPin(17), 0);
    ExpectOnly(board_, 4, Record(17, 0));
}

TEST_F(GpioReadPinTest, TakesAnyPin) {
    for (const int pin : {0, -1, INT_MAX, INT_MIN}) {
        board_.calls.clear();
        board_.requests.clear();
        GpioReadPin(pin);
        ExpectOnly(board_, 4, Record(static_cast<uint32_t>(pin), 0));
    }
}

TEST_F(GpioReadPinTest, DoesNotLookAtTheRequestsResult) {
    board_.result = -1;
    EXPECT_EQ(GpioReadPin(17), 0);
    board_.pins[17] = 5;
    EXPECT_EQ(GpioReadPin(17), 5);
}

TEST_F(GpioPinCmdTest, IssuesItsRequestWithPinAndValue) {
    for (const int value : {0, 1}) {
        for (const int pin : {0, 17, -1}) {
            const auto record = Record(static_cast<uint32_t>(pin), static_cast<uint32_t>(value));
            board_.calls.clear();
            board_.requests.clear();
            EXPECT_EQ(GpioPinCmd1(pin, value), 0);
            ExpectOnly(board_, 1, record);

            board_.calls.clear();
            board_.requests.clear();
            EXPECT_EQ(GpioPinCmd3(pin, value), 0);
            ExpectOnly(board_, 3, record);
        }
    }
}

TEST_F(GpioPinCmdTest, DoesNothingForOtherValues) {
    for (const int value : {2, 3, -1, 256, INT_MAX, INT_MIN}) {
        EXPECT_EQ(GpioPinCmd1(17, value), 0);
        EXPECT_EQ(GpioPinCmd3(17, value), 0);
    }
    EXPECT_TRUE(board_.calls.empty());
}

TEST_F(GpioPinCmdTest, DoesNotLookAtTheRequestsResult) {
    board_.result = -1;
    EXPECT_EQ(GpioPinCmd1(17, 1), 0);
    EXPECT_EQ(GpioPinCmd3(17, 1), 0);
    board_.result = 7;
    EXPECT_EQ(GpioPinCmd1(17, 1), 0);
    EXPECT_EQ(GpioPinCmd3(17, 1), 0);
}

TEST_F(GpioPutBytesTest, HandsOverTheFirstSix) {
    const char bytes[] = "\x01\xFF\x80\x00\x7F\xAB\xCD\xEF";
    for (const unsigned int count : {6U, 7U, 8U, 2048U, static_cast<unsigned int>(-1)}) {
        board_.calls.clear();
        board_.requests.clear();
        EXPECT_EQ(GpioPutBytes(bytes, count), 0);
        ExpectOnly(board_, 16, Record(0, 0, std::string(bytes, 6)));
    }
}

TEST_F(GpioPutBytesTest, ReadsNoMoreThanSix) {
    const std::unique_ptr<char[]> bytes(new char[6]{1, 2, 3, 4, 5, 6});
    EXPECT_EQ(GpioPutBytes(bytes.get(), 100), 0);
}

TEST_F(GpioPutBytesTest, ReturnsTheRequestsResult) {
    for (const int result : {0, -1, 1, 5, INT_MAX, INT_MIN}) {
        board_.result = result;
        EXPECT_EQ(GpioPutBytes("abcdef", 6), result);
    }
}

TEST_F(GpioPutBytesTest, RefusesNullAndFewerThanSix) {
    EXPECT_EQ(GpioPutBytes(nullptr, 6), -1);
    EXPECT_EQ(GpioPutBytes(nullptr, 0), -1);
    for (unsigned int count = 0; count <= 5; ++count) {
        EXPECT_EQ(GpioPutBytes("abcdef", count), -1);
    }
    EXPECT_TRUE(board_.calls.empty());
}

TEST_F(GpioPutBytesTest, GoesToGpioAlsoAfterTheLastClose) {
    CloseGpioNand();
    board_.calls.clear();
    EXPECT_EQ(GpioPutBytes("abcdef", 6), 0);
    EXPECT_EQ(board_.calls, std::vector<std::string>{"ioctl 70 16"});
}

TEST(GpioWithoutDevices, SaysSo) {
    CapturedStream output(stdout);
    FakeBoard board;
    EXPECT_EQ(GpioReadPin(17), -1);
    EXPECT_EQ(output.Take(), "invalid operation!\n");
    EXPECT_EQ(GpioPinCmd1(17, 0), 0);
    EXPECT_EQ(output.Take(), "invalid operation!\n");
    EXPECT_EQ(GpioPinCmd3(17, 1), 0);
    EXPECT_EQ(output.Take(), "invalid operation!\n");
    EXPECT_EQ(GpioPutBytes("abcdef", 6), -1);
    EXPECT_EQ(output.Take(), "invalid operation!\n");
    EXPECT_TRUE(board.calls.empty());
}

TEST(GpioWithoutDevices, LooksAtTheArgumentsFirst) {
    CapturedStream output(stdout);
    FakeBoard board;
    EXPECT_EQ(GpioPinCmd1(17, 2), 0);
    EXPECT_EQ(GpioPinCmd3(17, -1), 0);
    EXPECT_EQ(GpioPutBytes(nullptr, 6), -1);
    EXPECT_EQ(GpioPutBytes("abcdef", 5), -1);
    EXPECT_EQ(output.Take(), "");
}

TEST(GpioOnDescriptorZero, Works) {
    CapturedStream output(stdout);
    FakeBoard board;
    board.gpio_fd = 0;
    board.pins[17] = 1;
    board.result = 9;
    OpenGpioNand();
    EXPECT_EQ(GpioReadPin(17), 1);
    EXPECT_EQ(GpioPinCmd1(17, 1), 0);
    EXPECT_EQ(GpioPinCmd3(17, 1), 0);
    EXPECT_EQ(GpioPutBytes("abcdef", 6), 9);
    EXPECT_EQ(output.Take(), "");
    EXPECT_EQ(board.calls,
              (std::vector<std::string>{"open /dev/gpio 2", "open /dev/nand 2", "ioctl 0 4",
                                        "ioctl 0 1", "ioctl 0 3", "ioctl 0 16"}));
}
