// Opening and closing the devices, with a use count.

#include "splash/devices.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "splash/splash.h"

int gGpioFd = -1;
int gNandFd = -1;
uint8_t gGpioNandUseCount;

namespace {

constexpr char kGpioDevice[] = "/dev/gpio";
constexpr char kNandDevice[] = "/dev/nand";

}  // namespace

void PrintInvalidOperation() {
    puts("invalid operation!");
}

int OpenGpioNand(void) {
    if (gGpioNandUseCount != 0) {
        ++gGpioNandUseCount;
        return 1;
    }
    gGpioFd = open(kGpioDevice, O_RDWR);
    if (gGpioFd < 0) {
        puts("Error: open dev/gpio");
        return 0;
    }
    ++gGpioNandUseCount;
    gNandFd = open(kNandDevice, O_RDWR);
    if (gNandFd < 0) {
        puts("Error: open dev/nand");
        gNandFd = gGpioFd;
    }
    return 1;
}

int CloseGpioNand(void) {
    if (gGpioNandUseCount > 1) {
        --gGpioNandUseCount;
        return 1;
    }
    // Count and descriptors stay as they are, and the NAND device stays open.
    if (gGpioFd > 0) {
        (void)close(gGpioFd);  // nothing could be done about a failure
        return 1;
    }
    return 0;
}
