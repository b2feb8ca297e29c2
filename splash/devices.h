// The two devices, and the record that every request to them carries.
#ifndef SPLASH_DEVICES_H
#define SPLASH_DEVICES_H

#include <cstddef>
#include <cstdint>

constexpr int kPageSize = 2048;

// As the drivers lay it out, in the board's byte order.
struct GpioNandArg {
    uint32_t first;           // a pin, a page or a block
    uint32_t second;          // a pin's value
    uint8_t data[kPageSize];  // a page, or bytes for the pins
};
static_assert(offsetof(GpioNandArg, second) == 4);
static_assert(offsetof(GpioNandArg, data) == 8);
static_assert(sizeof(GpioNandArg) == 2056);

extern int gGpioFd;  // -1 until the first open
extern int gNandFd;  // -1 until the first open
extern uint8_t gGpioNandUseCount;

// Says that a device is not open.
void PrintInvalidOperation();

#endif
