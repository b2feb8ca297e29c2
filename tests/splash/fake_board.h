// The board's two devices behind open, close and ioctl. Link with WRAP close ioctl open.
#ifndef TESTS_SPLASH_FAKE_BOARD_H
#define TESTS_SPLASH_FAKE_BOARD_H

#include <array>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "splash/devices.h"

using FlashPage = std::array<uint8_t, 2048>;

// A request as it came.
struct BoardRequest {
    int fd;
    unsigned long number;
    GpioNandArg arg;
};

// While it lives, /dev/gpio and /dev/nand are answered from here and recorded in their order:
// "open /dev/gpio 2", "ioctl 70 4", "close 70". The flash has 1024 pages, each of other bytes;
// like the real one, writing only clears bits, and erasing a block of 64 pages sets all of them.
//
// A new board also brings the module back to the state at the start of the process.
class FakeBoard {
public:
    static constexpr int kGpioFd = 70;
    static constexpr int kNandFd = 71;
    static constexpr int kPages = 1024;

    FakeBoard();
    ~FakeBoard() { active_ = nullptr; }
    FakeBoard(const FakeBoard&) = delete;
    FakeBoard& operator=(const FakeBoard&) = delete;

    static FakeBoard* active() { return active_; }

    // The setting.
    int gpio_fd = kGpioFd;  // -1: cannot be opened
    int nand_fd = kNandFd;
    int result = 0;  // of the requests on pins
    std::map<uint32_t, uint32_t> pins;
    std::vector<FlashPage> flash;
    std::set<uint32_t> unreadable;  // page numbers
    std::set<uint32_t> unwritable;
    int erase_result = 0;
    std::function<void()> after_erase = [] {};

    // What happened.
    std::vector<std::string> calls;
    std::vector<BoardRequest> requests;

    // For the replaced calls.
    bool IsDevice(int fd) const { return fd >= 0 && (fd == gpio_fd || fd == nand_fd); }
    int Open(const std::string& path, int flags);
    void Close(int fd) { calls.push_back("close " + std::to_string(fd)); }
    int Request(int fd, unsigned long number, GpioNandArg* arg);

private:
    int Answer(unsigned long number, GpioNandArg* arg);

    inline static FakeBoard* active_ = nullptr;
};

#endif
