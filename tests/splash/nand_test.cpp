// NandSetRote.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "splash/splash.h"
#include "tests/splash/fake_board.h"
#include "tests/support/captured_stream.h"
#include "tests/support/repeated.h"

namespace {

using Calls = std::vector<std::string>;
using Flash = std::vector<FlashPage>;

constexpr uint32_t kFirstPage = 512;
constexpr uint32_t kLastPage = 576;
constexpr uint32_t kPages = 65;
constexpr char kInvalid[] = "invalid operation!\n";
constexpr char kInvalidBlock[] = ":Nand_Block_isBad:390 invalid operation!\n";

// The devices are open.
class NandSetRoteTest : public testing::Test {
protected:
    NandSetRoteTest() {
        OpenGpioNand();
        board_.calls.clear();
    }

    CapturedStream output_{stdout};
    FakeBoard board_;
};

Calls Reads(int fd = FakeBoard::kNandFd) {
    return Repeated(kPages, Calls{"ioctl " + std::to_string(fd) + " 11"});
}

// All the requests of a run that writes.
Calls WholeRun(int fd = FakeBoard::kNandFd) {
    const std::string ioctl = "ioctl " + std::to_string(fd);
    Calls calls = Reads(fd);
    calls.push_back(ioctl + " 15");
    const Calls writes = Repeated(kPages, Calls{ioctl + " 12"});
    calls.insert(calls.end(), writes.begin(), writes.end());
    return calls;
}

FlashPage WithNumber(FlashPage page, uint32_t number) {
    for (size_t i = 0; i < 4; ++i) {
        page[4 + i] = static_cast<uint8_t>(number >> (8 * i));
    }
    return page;
}

FlashPage Erased() {
    FlashPage page;
    page.fill(0xFF);
    return page;
}

// The numbers of the pages that differ.
std::vector<size_t> Differences(const Flash& a, const Flash& b) {
    std::vector<size_t> numbers;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i]) {
            numbers.push_back(i);
        }
    }
    return numbers;
}

// The data of the write requests, in their order.
Flash Written(const FakeBoard& board) {
    Flash pages;
    for (const BoardRequest& request : board.requests) {
        if (request.number == 12) {
            std::copy(request.arg.data, std::end(request.arg.data), pages.emplace_back().begin());
        }
    }
    return pages;
}

}  // namespace

TEST_F(NandSetRoteTest, ChangesTheNumberAlone) {
    Flash expected = board_.flash;
    expected[kFirstPage] = WithNumber(expected[kFirstPage], 16);
    EXPECT_EQ(NandSetRote("0x10"), 1);
    EXPECT_EQ(Differences(board_.flash, expected), std::vector<size_t>{});
    EXPECT_EQ(output_.Take(), "Rote=0x10, 16\nwrite 65 pages to nand\n");
}

TEST_F(NandSetRoteTest, ReadsErasesAndWritesBack) {
    const Flash before = board_.flash;
    NandSetRote("1");
    ASSERT_EQ(board_.calls, WholeRun());
    for (uint32_t i = 0; i < kPages; ++i) {
        const GpioNandArg& read = board_.requests[i].arg;
        EXPECT_EQ(read.first, kFirstPage + i);
        EXPECT_TRUE(std::all_of(read.data, std::end(read.data), [](int b) { return b == 0; }));
        EXPECT_EQ(board_.requests[kPages + 1 + i].arg.first, kFirstPage + i);
    }
    EXPECT_EQ(board_.requests[kPages].arg.first, 8U);

    Flash region(before.begin() + kFirstPage, before.begin() + kLastPage + 1);
    region[0] = WithNumber(region[0], 1);
    EXPECT_EQ(Written(board_), region);
}

TEST_F(NandSetRoteTest, ReadsTheNumberInThreeBases) {
    const struct {
        const char* text;
        uint32_t number;
        const char* shown;
    } kCases[] = {
        {"0", 0, "0"},
        {"10", 10, "10"},
        {"010", 8, "8"},
        {"0x10", 16, "16"},
        {"0XfF", 255, "255"},
        {"08", 0, "0"},
        {"0x", 0, "0"},
        {"  42", 42, "42"},
        {"+7", 7, "7"},
        {"12ab", 12, "12"},
        {"0x12xy", 18, "18"},
        {"", 0, "0"},
        {"garbage", 0, "0"},
        {"2147483647", 0x7FFFFFFF, "2147483647"},
        {"2147483648", 0x80000000, "-2147483648"},
        {"0x12345678", 0x12345678, "305419896"},
        {"4294967295", 0xFFFFFFFF, "-1"},
        {"-1", 0xFFFFFFFF, "-1"},
        {"-0x10", 0xFFFFFFF0, "-16"},
    };
    for (const auto& [text, number, shown] : kCases) {
        const FlashPage before = board_.flash[kFirstPage];
        ASSERT_EQ(NandSetRote(text), 1);
        ASSERT_EQ(board_.flash[kFirstPage], WithNumber(before, number)) << text;
        ASSERT_EQ(output_.Take(),
                  std::string("Rote=") + text + ", " + shown + "\nwrite 65 pages to nand\n");
    }
}

TEST_F(NandSetRoteTest, TakesTheLargestNumberForLargerOnes) {
    std::vector<const char*> texts = {"99999999999999999999", "-99999999999999999999"};
    if constexpr (sizeof(long) == 4) {  // as on the terminal
        texts.insert(texts.end(), {"4294967296", "0x100000000", "-4294967296"});
    }
    for (const char* text : texts) {
        const FlashPage before = board_.flash[kFirstPage];
        ASSERT_EQ(NandSetRote(text), 1);
        ASSERT_EQ(board_.flash[kFirstPage], WithNumber(before, 0xFFFFFFFF)) << text;
        ASSERT_EQ(output_.Take(), std::string("Rote=") + text + ", -1\nwrite 65 pages to nand\n");
    }
}

TEST_F(NandSetRoteTest, RewritesUnreadablePagesAsErased) {
    board_.unreadable = {kFirstPage + 1, kFirstPage + 40, kLastPage};
    Flash expected = board_.flash;
    expected[kFirstPage] = WithNumber(expected[kFirstPage], 3);
    expected[kFirstPage + 1] = Erased();
    expected[kFirstPage + 40] = Erased();
    EXPECT_EQ(NandSetRote("3"), 1);
    EXPECT_EQ(board_.calls, WholeRun());
    const Flash written = Written(board_);
    EXPECT_EQ(written[1], Erased());
    EXPECT_EQ(written[40], Erased());
    EXPECT_EQ(written[64], Erased());
    // The last page was never erased: writing only ones leaves it.
    EXPECT_EQ(Differences(board_.flash, expected), std::vector<size_t>{});
    EXPECT_EQ(output_.Take(), "Rote=3, 3\nwrite 65 pages to nand\n");
}

TEST_F(NandSetRoteTest, StoresTheNumberAlsoInAnUnreadableFirstPage) {
    board_.unreadable = {kFirstPage};
    EXPECT_EQ(NandSetRote("0x12345678"), 1);
    EXPECT_EQ(Written(board_)[0], WithNumber(Erased(), 0x12345678));
    EXPECT_EQ(board_.flash[kFirstPage], WithNumber(Erased(), 0x12345678));
}

TEST_F(NandSetRoteTest, RewritesAllPagesWhenNoneCanBeRead) {
    for (uint32_t page = kFirstPage; page <= kLastPage; ++page) {
        board_.unreadable.insert(page);
    }
    EXPECT_EQ(NandSetRote("5"), 1);
    Flash erased(kPages, Erased());
    erased[0] = WithNumber(erased[0], 5);
    EXPECT_EQ(Written(board_), erased);
    EXPECT_EQ(output_.Take(), "Rote=5, 5\nwrite 65 pages to nand\n");
}

TEST_F(NandSetRoteTest, WritesNothingWhenTheBlockCannotBeErased) {
    const Flash before = board_.flash;
    for (const int result : {-1, 1}) {
        board_.erase_result = result;
        board_.calls.clear();
        ASSERT_EQ(NandSetRote("16"), 0);
        Calls expected = Reads();
        expected.push_back("ioctl 71 15");
        ASSERT_EQ(board_.calls, expected);
        ASSERT_EQ(output_.Take(), "Rote=16, 16\n");
    }
    EXPECT_EQ(Differences(board_.flash, before), std::vector<size_t>{});
}

TEST_F(NandSetRoteTest, GoesOnAfterFailedWrites) {
    board_.unwritable = {kFirstPage, kFirstPage + 7, kLastPage};
    Flash expected = board_.flash;
    expected[kFirstPage] = Erased();
    expected[kFirstPage + 7] = Erased();
    EXPECT_EQ(NandSetRote("16"), 1);
    EXPECT_EQ(board_.calls, WholeRun());
    EXPECT_EQ(Differences(board_.flash, expected), std::vector<size_t>{});
    EXPECT_EQ(output_.Take(), "Rote=16, 16\nwrite 65 pages to nand\n");
}

TEST_F(NandSetRoteTest, SaysForEachPageWhenTheDeviceGoesAwayAfterTheErase) {
    board_.after_erase = [] { gNandFd = -1; };
    EXPECT_EQ(NandSetRote("16"), 1);
    EXPECT_EQ(Written(board_).size(), 0U);
    EXPECT_EQ(output_.Take(), "Rote=16, 16\n" + Repeated(kPages, std::string(kInvalid)) +
                                  "write 65 pages to nand\n");
}

TEST(NandSetRote, SaysForEachPageThatTheDevicesAreNotOpen) {
    CapturedStream output(stdout);
    FakeBoard board;
    EXPECT_EQ(NandSetRote("16"), 0);
    // One for each page of the read and one before the erase.
    EXPECT_EQ(output.Take(), "Rote=16, 16\n" + std::string(kInvalidBlock) +
                                 Repeated(kPages + 1, std::string(kInvalid)));
    EXPECT_EQ(board.calls, Calls{});
}

TEST(NandSetRote, GoesToGpioWithoutNand) {
    CapturedStream output(stdout);
    FakeBoard board;
    board.nand_fd = -1;
    OpenGpioNand();
    board.calls.clear();
    output.Take();
    Flash expected = board.flash;
    expected[kFirstPage] = WithNumber(expected[kFirstPage], 16);
    EXPECT_EQ(NandSetRote("16"), 1);
    EXPECT_EQ(board.calls, WholeRun(FakeBoard::kGpioFd));
    EXPECT_EQ(Differences(board.flash, expected), std::vector<size_t>{});
    EXPECT_EQ(output.Take(), "Rote=16, 16\nwrite 65 pages to nand\n");
}

TEST(NandSetRote, WritesAlsoWhenGpioAloneIsNotOpen) {
    CapturedStream output(stdout);
    FakeBoard board;
    for (int use = 1; use <= 256; ++use) {
        OpenGpioNand();
    }
    board.gpio_fd = -1;
    EXPECT_EQ(OpenGpioNand(), 0);  // the count has wrapped; the flash stays open
    board.calls.clear();
    output.Take();
    EXPECT_EQ(NandSetRote("16"), 1);
    EXPECT_EQ(board.calls, WholeRun());
    EXPECT_EQ(output.Take(),
              "Rote=16, 16\n" + std::string(kInvalidBlock) + "write 65 pages to nand\n");
}

TEST(NandSetRote, WorksOnDescriptorZero) {
    CapturedStream output(stdout);
    FakeBoard board;
    board.gpio_fd = 0;
    board.nand_fd = 0;
    OpenGpioNand();
    board.calls.clear();
    EXPECT_EQ(NandSetRote("16"), 1);
    EXPECT_EQ(board.calls, WholeRun(0));
    EXPECT_EQ(output.Take(), "Rote=16, 16\nwrite 65 pages to nand\n");
}

TEST_F(NandSetRoteTest, DoesNothingForNull) {
    EXPECT_EQ(NandSetRote(nullptr), 0);
    EXPECT_EQ(board_.calls, Calls{});
    EXPECT_EQ(output_.Take(), "");
}
