// A second implementation of the text functions, as naive as possible: each takes the bytes of the
// buffers before a call and gives the bytes afterwards. Texts hold no terminator.
#ifndef TESTS_UTIL_TRSTRUTILS_NAIVE_H
#define TESTS_UTIL_TRSTRUTILS_NAIVE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace naive {

// A result and the buffers; second is empty for functions with one buffer.
struct Outcome {
    std::ptrdiff_t result;
    std::string first;
    std::string second;

    bool operator==(const Outcome&) const = default;
};

// rest has one byte more in front, the one before the buffer. The result counts from the buffer.
Outcome SplitByChar(const std::string& text, std::string first, std::string rest, int separator);

Outcome SplitKeyValueByChar(const std::string& text, std::string key, int key_size,
                            std::string value, int value_size, char separator);

Outcome ExtractValue(const std::string& text, const std::string& key, int separator,
                     std::string out, int out_max);
int ExtractValueInt(const std::string& text, const std::string& key, int separator,
                    int default_value);

std::string TrimAroundSpace(const std::string& text);  // with all bytes of the buffer
std::string Str2Upcase(std::string bytes, int length);

Outcome Decode16(const std::string& hex, std::string out);

int32_t str2int(const std::string& text, int32_t default_value);
uint16_t in_chksum(const std::vector<uint8_t>& bytes);

struct Merge {
    int lo, mid, hi;
};

// The merges of a sort in their order.
std::vector<Merge> MergesOf(int count);

// The sort without the merge number skipped (-1: none).
std::vector<int> MergeSort(std::vector<int> array, int skipped = -1);

}  // namespace naive

#endif
