// Integers of every magnitude, the limits included.
#ifndef TESTS_UTIL_TIMEUTILS_ANY_INT_H
#define TESTS_UTIL_TIMEUTILS_ANY_INT_H

#include <climits>
#include <cstdint>

#include "tests/support/random.h"

// Near 0 or near a limit, on either side, at a distance of any number of bits up to max_bits.
inline int AnyInt(Random& random, int max_bits = 31) {
    const int bits = random.Between(0, max_bits);
    const auto distance = static_cast<uint32_t>(random.Next() & ((uint64_t{1} << bits) - 1));
    switch (random.Between(0, 3)) {
        case 0:
            return static_cast<int>(distance);
        case 1:
            return static_cast<int>(~distance);
        case 2:
            return static_cast<int>(INT_MAX - distance);
        default:
            return static_cast<int>(uint32_t{1} << 31 | distance);
    }
}

// Of at most max_bits bits, and either sign.
inline int SmallInt(Random& random, int max_bits) {
    const int bits = random.Between(0, max_bits);
    const auto value = static_cast<int>(random.Next() & ((uint64_t{1} << bits) - 1));
    return random.Between(0, 1) == 0 ? value : -1 - value;
}

#endif
