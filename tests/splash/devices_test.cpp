// OpenGpioNand and CloseGpioNand.

#include "splash/devices.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "splash/splash.h"
#include "tests/splash/fake_board.h"
#include "tests/support/captured_stream.h"

namespace {

using Calls = std::vector<std::string>;

const Calls kBothOpened = {"open /dev/gpio 2", "open /dev/nand 2"};
constexpr char kGpioClosed[] = "close 70";

// Before any test has run.
const int kGpioFdAtStart = gGpioFd;
const int kNandFdAtStart = gNandFd;
const int kUseCountAtStart = gGpioNandUseCount;

}  // namespace

static_assert(O_RDWR == 2);
static_assert(sizeof gGpioNandUseCount == 1);

TEST(OpenGpioNand, StartsWithoutDevices) {
    EXPECT_EQ(kGpioFdAtStart, -1);
    EXPECT_EQ(kNandFdAtStart, -1);
    EXPECT_EQ(kUseCountAtStart, 0);
}

TEST(OpenGpioNand, OpensBothForReadingAndWriting) {
    CapturedStream output(stdout);
    FakeBoard board;
    EXPECT_EQ(OpenGpioNand(), 1);
    EXPECT_EQ(board.calls, kBothOpened);
    EXPECT_EQ(gGpioFd, FakeBoard::kGpioFd);
    EXPECT_EQ(gNandFd, FakeBoard::kNandFd);
    EXPECT_EQ(gGpioNandUseCount, 1);
    EXPECT_EQ(output.Take(), "");
}

TEST(OpenGpioNand, OnlyCountsFurtherUses) {
    FakeBoard board;
    for (int use = 1; use <= 255; ++use) {
        EXPECT_EQ(OpenGpioNand(), 1);
        EXPECT_EQ(gGpioNandUseCount, use);
    }
    EXPECT_EQ(board.calls, kBothOpened);
}

TEST(OpenGpioNand, OpensAnewAfter256Uses) {
    FakeBoard board;
    for (int use = 1; use <= 256; ++use) {
        EXPECT_EQ(OpenGpioNand(), 1);
    }
    EXPECT_EQ(gGpioNandUseCount, 0);
    EXPECT_EQ(board.calls, kBothOpened);

    board.gpio_fd = 80;
    board.nand_fd = 81;
    EXPECT_EQ(OpenGpioNand(), 1);
    EXPECT_EQ(gGpioNandUseCount, 1);
    EXPECT_EQ(board.calls, (Calls{"open /dev/gpio 2", "open /dev/nand 2", "open /dev/gpio 2",
                                  "open /dev/nand 2"}));
    EXPECT_EQ(gGpioFd, 80);
    EXPECT_EQ(gNandFd, 81);
}

TEST(OpenGpioNand, FailsWithoutGpio) {
    CapturedStream output(stdout);
    FakeBoard board;
    board.gpio_fd = -1;
    EXPECT_EQ(OpenGpioNand(), 0);
    EXPECT_EQ(board.calls, Calls{"open /dev/gpio 2"});
    EXPECT_EQ(gGpioFd, -1);
    EXPECT_EQ(gNandFd, -1);
    EXPECT_EQ(gGpioNandUseCount, 0);
    EXPECT_EQ(output.Take(), "Error: open dev/gpio\n");

    board.gpio_fd = FakeBoard::kGpioFd;  // the next call tries again
    EXPECT_EQ(OpenGpioNand(), 1);
    EXPECT_EQ(gGpioNandUseCount, 1);
}

TEST(OpenGpioNand, UsesGpioForTheFlashWithoutNand) {
    CapturedStream output(stdout);
    FakeBoard board;
    board.nand_fd = -1;
    EXPECT_EQ(OpenGpioNand(), 1);
    EXPECT_EQ(board.calls, kBothOpened);
    EXPECT_EQ(gGpioFd, FakeBoard::kGpioFd);
    EXPECT_EQ(gNandFd, FakeBoard::kGpioFd);
    EXPECT_EQ(gGpioNandUseCount, 1);
    EXPECT_EQ(output.Take(), "Error: open dev/nand\n");
}

TEST(OpenGpioNand, TakesDescriptorZero) {
    CapturedStream output(stdout);
    FakeBoard board;
    board.gpio_fd = 0;
    EXPECT_EQ(OpenGpioNand(), 1);
    EXPECT_EQ(board.calls, kBothOpened);
    EXPECT_EQ(gGpioFd, 0);
    EXPECT_EQ(output.Take(), "");
}

TEST(OpenGpioNand, TakesDescriptorZeroForTheFlash) {
    CapturedStream output(stdout);
    FakeBoard board;
    board.nand_fd = 0;
    EXPECT_EQ(OpenGpioNand(), 1);
    EXPECT_EQ(gNandFd, 0);
    EXPECT_EQ(output.Take(), "");
}

TEST(CloseGpioNand, TakesOneUseOff) {
    CapturedStream output(stdout);
    FakeBoard board;
    OpenGpioNand();
    OpenGpioNand();
    EXPECT_EQ(CloseGpioNand(), 1);
    EXPECT_EQ(gGpioNandUseCount, 1);
    EXPECT_EQ(board.calls, kBothOpened);

    EXPECT_EQ(CloseGpioNand(), 1);
    EXPECT_EQ(board.calls, (Calls{"open /dev/gpio 2", "open /dev/nand 2", kGpioClosed}));
    EXPECT_EQ(output.Take(), "");
}

TEST(CloseGpioNand, LeavesCountAndDescriptorsAfterTheLastUse) {
    FakeBoard board;
    OpenGpioNand();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(CloseGpioNand(), 1);
        EXPECT_EQ(gGpioNandUseCount, 1);
        EXPECT_EQ(gGpioFd, FakeBoard::kGpioFd);
        EXPECT_EQ(gNandFd, FakeBoard::kNandFd);
    }
    // The number was closed twice: the second time it may already be somebody else's.
    EXPECT_EQ(board.calls,
              (Calls{"open /dev/gpio 2", "open /dev/nand 2", kGpioClosed, kGpioClosed}));
}

TEST(CloseGpioNand, LetsTheNextOpenOnlyCount) {
    FakeBoard board;
    OpenGpioNand();
    CloseGpioNand();
    EXPECT_EQ(OpenGpioNand(), 1);
    EXPECT_EQ(gGpioNandUseCount, 2);
    EXPECT_EQ(board.calls, (Calls{"open /dev/gpio 2", "open /dev/nand 2", kGpioClosed}));
}

TEST(CloseGpioNand, ClosesWhenTheCountHasWrappedToZero) {
    FakeBoard board;
    for (int use = 1; use <= 256; ++use) {
        OpenGpioNand();
    }
    EXPECT_EQ(CloseGpioNand(), 1);
    EXPECT_EQ(gGpioNandUseCount, 0);
    EXPECT_EQ(board.calls.back(), kGpioClosed);
}

TEST(CloseGpioNand, HasNothingToCloseWithoutDevices) {
    CapturedStream output(stdout);
    FakeBoard board;
    EXPECT_EQ(CloseGpioNand(), 0);
    EXPECT_EQ(gGpioNandUseCount, 0);
    EXPECT_EQ(board.calls, Calls{});
    EXPECT_EQ(output.Take(), "");
}

TEST(CloseGpioNand, NeverClosesDescriptorZero) {
    FakeBoard board;
    board.gpio_fd = 0;
    OpenGpioNand();
    EXPECT_EQ(CloseGpioNand(), 0);
    EXPECT_EQ(board.calls, kBothOpened);
    EXPECT_EQ(gGpioNandUseCount, 1);
}

TEST(CloseGpioNand, ClosesDescriptorOne) {
    FakeBoard board;
    board.gpio_fd = 1;
    OpenGpioNand();
    EXPECT_EQ(CloseGpioNand(), 1);
    EXPECT_EQ(board.calls.back(), "close 1");
}
