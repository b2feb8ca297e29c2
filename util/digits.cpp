// Numbers as digits.

#include "util/digits.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "util/integers.h"

namespace {

constexpr unsigned int kPair = 100;
constexpr int kSafeDigits = 9;  // as many fit in every int
constexpr int kFieldSize = sizeof "2024";

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

// value in [0, 99]
char* WritePair(char* out, unsigned int value) {
    out[0] = static_cast<char>('0' + value / kDecimalBase);
    out[1] = static_cast<char>('0' + value % kDecimalBase);
    return out + 2;
}

// Negative numbers, and those that are wider than their field: rare, so kept out of the others.
[[gnu::noinline]] char* WriteOddNumber(char* out, int value, int width) {
    char digits[kIntSize];
    char* const end = digits + sizeof digits;
    char* begin = end;
    auto rest = static_cast<unsigned int>(value);
    if (value < 0) {
        *out++ = '-';
        --width;
        rest = 0 - rest;
    }
    for (; rest != 0 || end - begin < width; rest /= kDecimalBase) {
        *--begin = static_cast<char>('0' + rest % kDecimalBase);
    }
    return std::copy(begin, end, out);
}

}  // namespace

template <int width>
char* WriteNumber(char* out, int value) {
    static_assert(width == 2 || width == 4);
    const auto number = static_cast<unsigned int>(value);
    if constexpr (width == 2) {
        if (number < kPair) {
            return WritePair(out, number);
        }
    } else if (number < kPair * kPair) {
        return WritePair(WritePair(out, number / kPair), number % kPair);
    }
    return WriteOddNumber(out, value, width);
}
template char* WriteNumber<2>(char*, int);
template char* WriteNumber<4>(char*, int);

template <int width>
char* WriteThree(char* out, int first, char separator, int second, int third) {
    out = WriteNumber<width>(out, first);
    *out++ = separator;
    out = WriteNumber<2>(out, second);
    *out++ = separator;
    return WriteNumber<2>(out, third);
}
template char* WriteThree<2>(char*, int, char, int, int);
template char* WriteThree<4>(char*, int, char, int, int);

char* WriteHourAndMinute(char* out, int hour, int minute) {
    out = WriteNumber<2>(out, hour);
    *out++ = ':';
    return WriteNumber<2>(out, minute);
}

void PutText(char* buf, int size, const char* begin, const char* end) {
    if (size > 0) {
        const auto length = std::min<ptrdiff_t>(end - begin, size - 1);
        memcpy(buf, begin, static_cast<size_t>(length));
        buf[length] = '\0';
    }
}

int ReadInt(const char* text) {
    int number = 0;
    int count = 0;
    for (; count < kSafeDigits && IsDigit(text[count]); ++count) {
        number = number * kDecimalBase + (text[count] - '0');
    }
    if (count > 0 && !IsDigit(text[count])) {
        return number;
    }
    return SaturateToInt(strtol(text, nullptr, kDecimalBase));
}

int ReadOddField(const char* text, int width) {
    char field[kFieldSize] = {};
    strncpy(field, text, static_cast<size_t>(width));
    return ReadInt(field);
}
