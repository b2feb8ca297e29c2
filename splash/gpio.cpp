// Requests on the pins.

#include <sys/ioctl.h>

#include <cstring>

#include "splash/devices.h"
#include "splash/splash.h"

namespace {

constexpr unsigned long kPinCommand1 = 1;
constexpr unsigned long kPinCommand3 = 3;
constexpr unsigned long kReadPin = 4;
constexpr unsigned long kPutBytes = 16;
constexpr unsigned int kPutSize = 6;

void CommandPin(unsigned long request, int pin, int value) {
    if (value != 0 && value != 1) {
        return;
    }
    if (gGpioFd < 0) {
        PrintInvalidOperation();
        return;
    }
    GpioNandArg arg = {};
    arg.first = static_cast<uint32_t>(pin);
    arg.second = static_cast<uint32_t>(value);
    (void)ioctl(gGpioFd, request, &arg);  // callers get 0 whatever happens
}

}  // namespace

int GpioReadPin(int pin) {
    if (gGpioFd < 0) {
        PrintInvalidOperation();
        return -1;
    }
    GpioNandArg arg = {};
    arg.first = static_cast<uint32_t>(pin);
    (void)ioctl(gGpioFd, kReadPin, &arg);  // the word in the record is the answer
    return static_cast<int>(arg.second);
}

int GpioPinCmd3(int pin, int value) {
    CommandPin(kPinCommand3, pin, value);
    return 0;
}

int GpioPinCmd1(int pin, int value) {
    CommandPin(kPinCommand1, pin, value);
    return 0;
}

int GpioPutBytes(const void* bytes, unsigned int count) {
    if (bytes == nullptr || count < kPutSize) {
        return -1;
    }
    if (gGpioFd < 0) {
        PrintInvalidOperation();
        return -1;
    }
    GpioNandArg arg = {};
    memcpy(arg.data, bytes, kPutSize);
    return ioctl(gGpioFd, kPutBytes, &arg);
}
