// Numbers made to fit: cut to 32 bits, stopped at the limits, read from a text, taken as a size.
#ifndef UTIL_INTEGERS_H
#define UTIL_INTEGERS_H

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// The low 32 bits of value as a signed number. Sums that wrap by intention are taken in 64 bits
// and cut here, because signed overflow is not defined.
template <typename Integer>
constexpr int32_t WrapToInt32(Integer value) {
    return static_cast<int32_t>(static_cast<uint32_t>(value));
}

// value, or the nearest limit of int where it does not fit. For longs that is what the terminal
// does, where they have 32 bits. Doubles are truncated, and stop as in its soft-float library; the
// instructions of other processors give other numbers.
template <typename Number>
constexpr int SaturateToInt(Number value) {
    if (value >= Number{INT_MAX}) {
        return INT_MAX;
    }
    return value <= Number{INT_MIN} ? INT_MIN : static_cast<int>(value);
}

// The decimal number at the start of text, as strtol reads it.
inline int ReadInt(const char* text) {
    constexpr int kDecimal = 10;
    return SaturateToInt(strtol(text, nullptr, kDecimal));
}

// The size of a caller's buffer. A size below 0 is none: nothing may be written.
constexpr size_t BufferSize(int size) {
    return size > 0 ? static_cast<size_t>(size) : 0;
}

#endif
