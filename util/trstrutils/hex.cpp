// Hexadecimal digits. The two functions differ in what passes as a digit; callers rely on both.

#include <array>
#include <climits>
#include <cstdint>
#include <cstring>

#include "util/trstrutils.h"

namespace {

constexpr int kBase = 16;
constexpr int kLetterValue = 10;  // of A

// The values of all characters as digits, kBase for those that are none. ':' to '?', which follow
// '9' in ASCII, are 10 to 15.
constexpr auto kLenientValues = [] {
    std::array<uint8_t, UCHAR_MAX + 1> values;
    values.fill(kBase);
    for (uint8_t value = 0; value < kBase; ++value) {
        values['0' + value] = value;
    }
    for (uint8_t value = kLetterValue; value < kBase; ++value) {
        values['A' + value - kLetterValue] = values['a' + value - kLetterValue] = value;
    }
    return values;
}();
static_assert(kLenientValues.size() == UCHAR_MAX + 1);

int LenientValue(char character) {
    return kLenientValues[static_cast<unsigned char>(character)];
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
        const int high = LenientValue(*hex++);
        const int low = LenientValue(*hex++);
        if ((high | low) >= kBase) {
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
