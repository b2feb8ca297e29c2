// Rewriting one region of the raw NAND flash with a number in it.

#include <sys/ioctl.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "splash/devices.h"
#include "splash/splash.h"

namespace {

constexpr unsigned long kReadPage = 11;
constexpr unsigned long kWritePage = 12;
constexpr unsigned long kEraseBlock = 15;

constexpr uint32_t kBlock = 8;
constexpr uint32_t kPagesPerBlock = 64;
constexpr uint32_t kFirstPage = kBlock * kPagesPerBlock;
constexpr uint32_t kPageCount = kPagesPerBlock + 1;  // the last one belongs to the next block
constexpr int kNumberOffset = 4;                     // in the first page
constexpr uint8_t kErasedByte = 0xFF;

// In the message that the pins' device is not open. Fixed texts: no function here has this name.
constexpr char kShownFunction[] = "Nand_Block_isBad";
constexpr int kShownLine = 390;

using Page = uint8_t[kPageSize];

GpioNandArg gNandArg;  // shared by all requests

// False when the page could not be read; nothing is then written to page.
bool ReadPage(uint32_t number, Page& page) {
    if (gNandFd < 0) {
        PrintInvalidOperation();
        return false;
    }
    gNandArg.first = number;
    memset(gNandArg.data, 0, sizeof gNandArg.data);
    if (ioctl(gNandFd, kReadPage, &gNandArg) != 0) {
        return false;
    }
    memcpy(page, gNandArg.data, sizeof page);
    return true;
}

bool EraseBlock() {
    gNandArg.first = kBlock;
    return ioctl(gNandFd, kEraseBlock, &gNandArg) == 0;
}

void WritePage(uint32_t number, const Page& page) {
    if (gNandFd < 0) {
        PrintInvalidOperation();
        return;
    }
    gNandArg.first = number;
    memcpy(gNandArg.data, page, sizeof page);
    (void)ioctl(gNandFd, kWritePage, &gNandArg);  // after the erase all pages must be tried
}

// Little-endian, on every machine.
void StoreNumber(Page& page, uint32_t number) {
    for (size_t i = 0; i < sizeof number; ++i) {
        page[kNumberOffset + i] = static_cast<uint8_t>(number >> (CHAR_BIT * i));
    }
}

}  // namespace

int NandSetRote(const char* text) {
    if (text == nullptr) {
        return 0;
    }
    const auto number = static_cast<uint32_t>(strtoul(text, nullptr, 0));
    printf("Rote=%s, %d\n", text, static_cast<int>(number));
    if (gGpioFd < 0) {
        printf(":%s:%d invalid operation!\n", kShownFunction, kShownLine);
    }
    Page pages[kPageCount];
    memset(pages, kErasedByte, sizeof pages);
    for (uint32_t i = 0; i < kPageCount; ++i) {
        (void)ReadPage(kFirstPage + i, pages[i]);  // a page that cannot be read stays 0xFF
    }
    if (gNandFd < 0) {
        PrintInvalidOperation();
        return 0;
    }
    if (!EraseBlock()) {
        return 0;
    }
    StoreNumber(pages[0], number);
    for (uint32_t i = 0; i < kPageCount; ++i) {
        WritePage(kFirstPage + i, pages[i]);
    }
    printf("write %d pages to nand\n", static_cast<int>(kPageCount));
    return 1;
}
