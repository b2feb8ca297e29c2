// A decimal number in a text, and the checksum of a packet.

#include <cstdint>

#include "util/integers.h"
#include "util/trstrutils.h"

namespace {

constexpr uint32_t kDecimalBase = 10;
constexpr int kHalfBits = 16;
constexpr uint64_t kHalfMask = 0xFFFF;

}  // namespace

int str2int(const char* text, int default_value) {
    if (text == nullptr) {
        return default_value;
    }
    const bool is_negative = *text == '-';
    if (is_negative) {
        ++text;
    }
    if (*text == '\0') {
        return default_value;
    }
    uint32_t value = 0;  // wraps
    for (; *text != '\0'; ++text) {
        // Also after zeros, and after digits whose value wrapped round to 0.
        if (*text == ' ' && value == 0) {
            continue;
        }
        if (*text == ' ') {
            break;
        }
        if (*text < '0' || *text > '9') {
            return default_value;
        }
        value = value * kDecimalBase + static_cast<uint32_t>(*text - '0');
    }
    return WrapToInt32(is_negative ? 0 - value : value);
}

int in_chksum(const unsigned short* buffer, int length) {
    uint64_t sum = 0;  // wide enough for any length, so that the carries can wait
    if (buffer == nullptr) {
        length = 0;
    }
    for (; length > 1; length -= 2) {
        sum += *buffer++;
    }
    if (length == 1) {
        sum += *reinterpret_cast<const unsigned char*>(buffer);
    }
    while (sum > kHalfMask) {
        sum = (sum & kHalfMask) + (sum >> kHalfBits);
    }
    return static_cast<uint16_t>(~sum);
}
