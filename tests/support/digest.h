// One number for many, so that two targets can be compared without sharing a file.
#ifndef TESTS_SUPPORT_DIGEST_H
#define TESTS_SUPPORT_DIGEST_H

#include <array>
#include <bit>
#include <cstdint>

// FNV-1a, 64 bits.
class Digest {
public:
    template <typename Value>
    void Add(const Value& value) {
        for (const uint8_t byte : std::bit_cast<std::array<uint8_t, sizeof value>>(value)) {
            state_ = (state_ ^ byte) * 0x100000001B3;
        }
    }
    uint64_t value() const { return state_; }

private:
    uint64_t state_ = 0xCBF29CE484222325;
};

#endif
