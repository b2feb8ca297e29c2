// Sizes and numbers that come from callers as 32-bit values, made safe for the C library.
#ifndef UTIL_BOUNDS_H
#define UTIL_BOUNDS_H

#include <climits>
#include <cstddef>
#include <cstdlib>

// The size of a caller's buffer. A size below 0 is none: nothing may be written.
constexpr size_t BufferSize(int size) {
    return size > 0 ? static_cast<size_t>(size) : 0;
}

// Numbers beyond 32 bits stop at the limits, as on the terminal, also where long is wider.
constexpr int SaturateToInt(long value) {
    if (value > INT_MAX) {
        return INT_MAX;
    }
    return value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

inline int ReadInt(const char* text) {
    constexpr int kDecimal = 10;
    return SaturateToInt(strtol(text, nullptr, kDecimal));
}

#endif
