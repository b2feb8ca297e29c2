// Peers whose instructions are counted on ARM too: they need nothing but the compiler's libraries.
#ifndef BENCH_PEERS_PORTABLE_H
#define BENCH_PEERS_PORTABLE_H

#include <algorithm>
#include <cstring>

#include "bench/case.h"

PEER inline void StableSort(int* array, int count) {
    std::stable_sort(array, array + count);
}

constexpr size_t kPatternSize = 200;

// Finds ",key=" and copies what follows, the first item of the list by itself.
template <auto kFind>
PEER int ValueBy(const char* text, const char* key, int separator, char* out, int out_max) {
    char pattern[kPatternSize];
    const size_t key_length = strlen(key);
    pattern[0] = static_cast<char>(separator);
    memcpy(pattern + 1, key, key_length);
    memcpy(pattern + 1 + key_length, "=", 2);
    const char* value = text + key_length + 1;
    if (strncmp(text, pattern + 1, key_length + 1) != 0) {
        const char* const match = kFind(text, pattern, key_length + 2);
        if (match == nullptr) {
            return -1;
        }
        value = match + key_length + 2;
    }
    const auto length = static_cast<size_t>(strchrnul(value, separator) - value);
    if (length >= static_cast<size_t>(out_max)) {
        return 0;
    }
    memcpy(out, value, length);
    out[length] = '\0';
    return static_cast<int>(length);
}

inline const char* FindByStrstr(const char* text, const char* pattern, size_t /*length*/) {
    return strstr(text, pattern);
}

inline const char* FindByMemmem(const char* text, const char* pattern, size_t length) {
    return static_cast<const char*>(memmem(text, strlen(text), pattern, length));
}

#endif
