// Integers: cut to 32 bits, stopped at the limits, divided, taken as a size.
#ifndef UTIL_INTEGERS_H
#define UTIL_INTEGERS_H

#include <climits>
#include <cstddef>
#include <cstdint>

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

// A quotient that is rounded down, and what is left: [0, divisor).
struct Division {
    int64_t quotient;
    int remainder;
};

// Kept out of line: values beyond 32 bits are rare, and their division is long.
[[gnu::noinline]] constexpr Division DivideWideDown(int64_t value, int divisor) {
    const auto remainder = static_cast<int>(value % divisor);
    const int64_t quotient = value / divisor;
    return remainder < 0 ? Division{quotient - 1, remainder + divisor}
                         : Division{quotient, remainder};
}

// A processor without division divides 32 bits by a constant by multiplying.
template <int kDivisor>
constexpr Division DivideDown(int64_t value) {
    const auto low = static_cast<int32_t>(value);
    if (low != value) [[unlikely]] {
        return DivideWideDown(value, kDivisor);
    }
    const int remainder = low % kDivisor;
    return remainder < 0 ? Division{low / kDivisor - 1, remainder + kDivisor}
                         : Division{low / kDivisor, remainder};
}

template <int kDivisor>
constexpr int64_t DivideUp(int64_t value) {
    return DivideDown<kDivisor>(value + kDivisor - 1).quotient;
}

// The size of a caller's buffer. A size below 0 is none: nothing may be written.
constexpr size_t BufferSize(int size) {
    return size > 0 ? static_cast<size_t>(size) : 0;
}

#endif
