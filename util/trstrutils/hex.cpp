// Hexadecimal digits. The two functions differ in what passes as a digit; callers rely on both.

#include <cstdint>
#include <cstring>

#include "util/trstrutils.h"

namespace {

constexpr int kBase = 16;
constexpr int kLetterValue = 10;  // of A

// The digit's value. ':' to '?', which follow '9' in ASCII, are 10 to 15; other characters that
// are no digits give a value below 0 or above 15.
int LenientDigitValue(char character) {
    const auto code = static_cast<unsigned char>(character);
    if (code >= 'a') {
        return code - 'a' + kLetterValue;
    }
    if (code > '@') {
        return code - 'A' + kLetterValue;
    }
    return code - '0';
}

bool IsDigitValue(int value) {
    return value >= 0 && value < kBase;
}

// Whatever is no letter from A to F counts as a decimal digit. Unsigned: any int may come.
uint32_t UncheckedDigitValue(int character) {
    const auto code = static_cast<uint32_t>(character);
    if (character >= 'A' && character <= 'F') {
        return code - 'A' + kLetterValue;
    }
    if (character >= 'a' && character <= 'f') {
        return code - 'a' + kLetterValue;
    }
    return code - '0';
}

}  // namespace

int Decode16(const char* hex, unsigned char* out) {
    if (hex == nullptr) {
        return 0;
    }
    const auto pairs = static_cast<int>(strlen(hex) / 2);
    for (int i = 0; i < pairs; ++i) {
        const int high = LenientDigitValue(hex[2 * i]);
        const int low = LenientDigitValue(hex[2 * i + 1]);
        if (!IsDigitValue(high) || !IsDigitValue(low)) {
            return 0;
        }
        if (out != nullptr) {
            out[i] = static_cast<unsigned char>(high * kBase + low);
        }
    }
    return pairs;
}

int str2Hex(int high, int low) {
    return static_cast<uint8_t>(UncheckedDigitValue(high) * kBase + UncheckedDigitValue(low));
}
