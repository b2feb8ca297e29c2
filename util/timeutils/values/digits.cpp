// Digits, clock times as numbers, and numbers in texts.

#include <cstdint>

#include "util/digits.h"
#include "util/integers.h"
#include "util/timeutils.h"
#include "util/trstrutils.h"

namespace {

constexpr int kClockTextSize = sizeof "09:30";
constexpr int kHourUnit = 100;  // an hour in a clock time written as HHMM

}  // namespace

int digitvalue(int c) {
    const auto value = static_cast<uint8_t>(static_cast<uint32_t>(c) - '0');
    return value < kDecimalBase ? value : -1;
}

int TimeTimeToInt(const char* text, int* out, int count) {
    if (count == 0 || text == nullptr || out == nullptr) {
        return -1;
    }
    int value = 0;
    bool in_separator = false;
    for (int i = 0; *text != '\0' && i < count; ++text) {
        const int digit = digitvalue(*text);
        if (digit >= 0) {
            value = WrapToInt32(int64_t{value} * kDecimalBase + digit);
            out[i] = value;  // at each digit: a group without digits leaves its number alone
            in_separator = false;
            continue;
        }
        value = 0;
        if (!in_separator) {
            ++i;
            in_separator = true;
        }
    }
    return 0;
}

int IntTimeToStrTime(char* dst, int size, int hhmm) {
    if (dst == nullptr || size < kClockTextSize) {
        return -1;
    }
    char text[2 * kIntSize + sizeof ":"];
    PutText(dst, size, text, WriteHourAndMinute(text, hhmm / kHourUnit, hhmm % kHourUnit));
    return 0;
}

int ConvertStrToInt(const char* text, int default_value) {
    return str2int(text, default_value);
}
