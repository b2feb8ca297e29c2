// Arithmetic on 32-bit values that wraps by intention: done unsigned, so that it is defined.
#ifndef UTIL_WRAPPING_H
#define UTIL_WRAPPING_H

#include <cstdint>

// The low 32 bits of value as a signed number.
template <typename Integer>
constexpr int32_t WrapToInt32(Integer value) {
    return static_cast<int32_t>(static_cast<uint32_t>(value));
}

constexpr int32_t WrappingAdd(int32_t a, int32_t b) {
    return WrapToInt32(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

constexpr int32_t WrappingSub(int32_t a, int32_t b) {
    return WrapToInt32(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

constexpr int32_t WrappingMul(int32_t a, int32_t b) {
    return WrapToInt32(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

#endif
