// An Ethernet address typed as text.

#include <cstdint>
#include <cstring>

#include "util/timeutils.h"
#include "util/timeutils/mac_address.h"
#include "util/wrapping.h"

namespace {

constexpr int kBase = 16;
constexpr int kLetterValue = 10;  // of A
constexpr int kMaxByte = 255;

// The digit's value, or -1.
int HexDigitValue(char character) {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    if (character >= 'a' && character <= 'f') {
        return character - 'a' + kLetterValue;
    }
    if (character >= 'A' && character <= 'F') {
        return character - 'A' + kLetterValue;
    }
    return -1;
}

}  // namespace

int str2mac(const char* text, unsigned char* out) {
    unsigned char mac[kMacSize];
    int count = 0;
    int value = 0;  // wraps: a group may have any number of digits
    for (;; ++text) {
        if (*text != ':' && *text != '\0') {
            const int digit = HexDigitValue(*text);
            if (digit < 0) {
                return -1;
            }
            value = WrappingAdd(WrappingMul(value, kBase), digit);
            continue;
        }
        if (value > kMaxByte) {
            return -1;
        }
        mac[count++] = static_cast<unsigned char>(value);
        if (*text == '\0' || count == kMacSize) {
            break;
        }
        value = 0;
    }
    if (count != kMacSize) {
        return -1;
    }
    memcpy(out, mac, sizeof mac);
    return 0;
}
