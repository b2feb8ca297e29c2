// A decimal number in a text, and the checksum of a packet.

#include <cstdint>

#include "util/digits.h"
#include "util/integers.h"
#include "util/trstrutils.h"

namespace {

constexpr int kHalfBits = 16;
constexpr uint32_t kHalfMask = 0xFFFF;

// Two words of a packet. Added up as one number they give the same checksum, in either byte order:
// a carry out of the lower word is worth as much as one out of the upper word.
using WordPair [[gnu::may_alias]] = uint32_t;

constexpr int kPairBytes = sizeof(WordPair);
constexpr int kBlockPairs = 8;
constexpr int kBlockBytes = kBlockPairs * kPairBytes;

bool StartsPair(const unsigned short* word) {
    return reinterpret_cast<uintptr_t>(word) % kPairBytes == 0;
}

uint64_t SumOfBlock(const WordPair* pair) {
    return uint64_t{pair[0]} + pair[1] + pair[2] + pair[3] + pair[4] + pair[5] + pair[6] + pair[7];
}

}  // namespace

int str2int(const char* text, int default_value) {
    if (text == nullptr) {
        return default_value;
    }
    const bool is_negative = *text == '-';
    if (is_negative) {
        ++text;
    }
    if (*text == '\0') {
        return default_value;
    }
    uint32_t value = 0;  // wraps
    for (; *text != '\0'; ++text) {
        // Also after zeros, and after digits whose value wrapped round to 0.
        if (*text == ' ' && value == 0) {
            continue;
        }
        if (*text == ' ') {
            break;
        }
        if (*text < '0' || *text > '9') {
            return default_value;
        }
        value = value * kDecimalBase + static_cast<uint32_t>(*text - '0');
    }
    return WrapToInt32(is_negative ? 0 - value : value);
}

int in_chksum(const unsigned short* buffer, int length) {
    uint64_t sum = 0;  // below 2^61 for any length, so that the carries can wait
    if (buffer == nullptr) {
        length = 0;
    }
    if (length > 1 && !StartsPair(buffer)) {
        sum = *buffer++;
        length -= 2;
    }
    const auto* pair = reinterpret_cast<const WordPair*>(buffer);
    for (; length >= kBlockBytes; length -= kBlockBytes) {
        sum += SumOfBlock(pair);
        pair += kBlockPairs;
    }
    for (; length >= kPairBytes; length -= kPairBytes) {
        sum += *pair++;
    }
    buffer = reinterpret_cast<const unsigned short*>(pair);
    if (length > 1) {
        sum += *buffer++;
        length -= 2;
    }
    if (length > 0) {
        sum += *reinterpret_cast<const unsigned char*>(buffer);
    }
    // As often as the longest sum needs: a test for more would be guessed wrong half of the time.
    const auto low = static_cast<uint32_t>(sum);
    uint32_t folded = static_cast<uint32_t>(sum >> 32) + (low >> kHalfBits) + (low & kHalfMask);
    folded = (folded >> kHalfBits) + (folded & kHalfMask);
    folded = (folded >> kHalfBits) + (folded & kHalfMask);
    return static_cast<uint16_t>(~folded);
}
