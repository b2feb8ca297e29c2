// The naive number functions and the order of the merges.

#include <string_view>

#include "tests/util/trstrutils/naive.h"

namespace {

constexpr std::string_view kDigits = "0123456789";

}  // namespace

namespace naive {

int32_t str2int(const std::string& text, int32_t default_value) {
    const bool is_negative = !text.empty() && text[0] == '-';
    const std::string digits = is_negative ? text.substr(1) : text;
    if (digits.empty()) {
        return default_value;
    }
    int64_t value = 0;  // [0, 2^32)
    for (const char byte : digits) {
        if (byte == ' ' && value != 0) {
            break;
        }
        if (byte == ' ') {
            continue;
        }
        const size_t digit = kDigits.find(byte);
        if (digit == std::string::npos) {
            return default_value;
        }
        value = (value * 10 + static_cast<int64_t>(digit)) % 4294967296;
    }
    if (is_negative) {
        value = -value;
    }
    if (value > INT32_MAX) {
        value -= 4294967296;
    }
    if (value < INT32_MIN) {
        value += 4294967296;
    }
    return static_cast<int32_t>(value);
}

uint16_t in_chksum(const std::vector<uint8_t>& bytes) {
    uint32_t sum = 0;
    size_t i = 0;
    for (; i + 1 < bytes.size(); i += 2) {
        sum += bytes[i] + 256u * bytes[i + 1];  // little-endian, as all our targets are
        if ((sum & 0x80000000) != 0) {
            sum = (sum & 0xFFFF) + (sum >> 16);
        }
    }
    if (i < bytes.size()) {
        sum += bytes[i];
    }
    while (sum >= 0x10000) {
        sum = (sum & 0xFFFF) + (sum >> 16);
    }
    return static_cast<uint16_t>(0xFFFF - sum);
}

std::vector<Merge> MergesOf(int count) {
    std::vector<Merge> merges;
    for (int width = 1; width < count; width *= 2) {
        int lo = 0;
        while (lo + 2 * width - 1 <= count - 1) {
            merges.push_back({lo, lo + width - 1, lo + 2 * width - 1});
            lo += 2 * width;
        }
        if (lo + width - 1 < count - 1) {
            merges.push_back({lo, lo + width - 1, count - 1});
        }
    }
    return merges;
}

std::vector<int> MergeSort(std::vector<int> array, int skipped) {
    int number = 0;
    for (const Merge& merge : MergesOf(static_cast<int>(array.size()))) {
        if (number++ == skipped) {
            continue;
        }
        // The block as it comes out when always the smaller first element is taken, the left one
        // of equals. The runs need not be sorted: an earlier merge may have been skipped.
        const std::vector<int> before = array;
        int left = merge.lo;
        int right = merge.mid + 1;
        for (int i = merge.lo; i <= merge.hi; ++i) {
            const bool is_left_used_up = left > merge.mid;
            const bool is_right_used_up = right > merge.hi;
            const bool takes_left =
                !is_left_used_up && (is_right_used_up || before[static_cast<size_t>(left)] <=
                                                             before[static_cast<size_t>(right)]);
            array[static_cast<size_t>(i)] =
                before[static_cast<size_t>(takes_left ? left++ : right++)];
        }
    }
    return array;
}

}  // namespace naive
