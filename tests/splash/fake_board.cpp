// The devices' drivers, and the replaced calls.

#include "tests/splash/fake_board.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

namespace {

constexpr uint32_t kPagesPerBlock = 64;

int Fail(int number) {
    errno = number;
    return -1;
}

FlashPage PageOf(int number) {
    FlashPage page;
    for (size_t i = 0; i < page.size(); ++i) {
        page[i] = static_cast<uint8_t>(number * 7 + static_cast<int>(i * 13 + i / 256));
    }
    return page;
}

}  // namespace

FakeBoard::FakeBoard() {
    for (int number = 0; number < kPages; ++number) {
        flash.push_back(PageOf(number));
    }
    gGpioFd = -1;
    gNandFd = -1;
    gGpioNandUseCount = 0;
    active_ = this;
}

int FakeBoard::Open(const std::string& path, int flags) {
    calls.push_back("open " + path + ' ' + std::to_string(flags));
    const int fd = path == "/dev/gpio" ? gpio_fd : nand_fd;
    return fd >= 0 ? fd : Fail(ENOENT);
}

int FakeBoard::Request(int fd, unsigned long number, GpioNandArg* arg) {
    calls.push_back("ioctl " + std::to_string(fd) + ' ' + std::to_string(number));
    requests.push_back({fd, number, *arg});
    return IsDevice(fd) ? Answer(number, arg) : Fail(EBADF);
}

int FakeBoard::Answer(unsigned long number, GpioNandArg* arg) {
    switch (number) {
        case 4:
            if (pins.contains(arg->first)) {
                arg->second = pins[arg->first];
            }
            return result;
        case 11:
            if (unreadable.contains(arg->first)) {
                memset(arg->data, 0xEE, sizeof arg->data);  // a page with bad bits
                return Fail(EIO);
            }
            memcpy(arg->data, flash.at(arg->first).data(), sizeof arg->data);
            return 0;
        case 12:
            if (unwritable.contains(arg->first)) {
                return Fail(EIO);
            }
            std::transform(arg->data, std::end(arg->data), flash.at(arg->first).begin(),
                           flash.at(arg->first).begin(), std::bit_and<uint8_t>());
            return 0;
        case 15:
            if (erase_result != 0) {
                errno = EIO;
                return erase_result;
            }
            for (uint32_t i = 0; i < kPagesPerBlock; ++i) {
                flash.at(arg->first * kPagesPerBlock + i).fill(0xFF);
            }
            after_erase();
            return 0;
        default:
            return result;
    }
}

extern "C" {

int __real_open(const char* path, int flags, ...);
int __wrap_open(const char* path, int flags, ...) {
    if (FakeBoard::active() != nullptr && strncmp(path, "/dev/", 5) == 0) {
        return FakeBoard::active()->Open(path, flags);
    }
    va_list values;
    va_start(values, flags);
    const unsigned int mode = (flags & O_CREAT) != 0 ? va_arg(values, unsigned int) : 0;
    va_end(values);
    return __real_open(path, flags, mode);
}

int __real_close(int fd);
int __wrap_close(int fd) {
    if (FakeBoard::active() == nullptr || !FakeBoard::active()->IsDevice(fd)) {
        return __real_close(fd);
    }
    FakeBoard::active()->Close(fd);
    return Fail(EIO);  // nobody looks at it
}

// ioctl is never left to the system.
int __wrap_ioctl(int fd, unsigned long number, ...) {
    va_list values;
    va_start(values, number);
    auto* const arg = va_arg(values, GpioNandArg*);
    va_end(values);
    if (FakeBoard::active() == nullptr) {
        abort();
    }
    return FakeBoard::active()->Request(fd, number, arg);
}
}
