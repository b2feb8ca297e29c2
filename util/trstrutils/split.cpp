// Splitting a text at the first separator.

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>

#include "util/trstrutils.h"

namespace {

// The index of the first separator, or the text's length.
size_t IndexOf(const char* text, int separator) {
    const bool is_byte = separator >= 0 && separator <= UCHAR_MAX;
    return static_cast<size_t>(strchrnul(text, is_byte ? separator : '\0') - text);
}

// How many of wanted bytes fit beside the terminator; -1 where nothing may be written.
ptrdiff_t FittingLength(size_t wanted, int size) {
    return size > 0 ? std::min<ptrdiff_t>(static_cast<ptrdiff_t>(wanted), size - 1) : -1;
}

// Copies length bytes and terminates them. A length of -1 and a NULL dest write nothing.
void CopyPart(char* dest, const char* source, ptrdiff_t length) {
    if (dest != nullptr && length >= 0) {
        memmove(dest, source, static_cast<size_t>(length));
        dest[length] = '\0';
    }
}

}  // namespace

char* SplitByChar(const char* text, char* first, char* rest, int separator) {
    if (text == nullptr) {
        return rest;
    }
    const size_t separator_at = IndexOf(text, separator);
    CopyPart(first, text, static_cast<ptrdiff_t>(separator_at));
    if (rest == nullptr) {
        return nullptr;
    }
    // -1 without a separator: the terminator then lands before rest, as callers rely on.
    const auto rest_length = static_cast<ptrdiff_t>(strlen(text) - separator_at) - 1;
    if (rest_length > 0) {
        memmove(rest, text + separator_at + 1, static_cast<size_t>(rest_length));
    }
    rest[rest_length] = '\0';
    return rest + rest_length + 1;
}

int SplitKeyValueByChar(const char* text, char* key, int key_size, char* value, int value_size,
                        char separator) {
    if (text == nullptr) {
        return 0;
    }
    const size_t separator_at = IndexOf(text, static_cast<unsigned char>(separator));
    const ptrdiff_t key_length = FittingLength(separator_at, key_size);
    CopyPart(key, text, key_length);
    const size_t text_length = strlen(text);
    if (text_length > separator_at + 1) {
        const size_t value_length = text_length - separator_at - 1;
        CopyPart(value, text + separator_at + 1, FittingLength(value_length, value_size));
    } else if (value != nullptr && value_size > 0 && key_length >= 0) {
        value[key_length] = '\0';  // the key's length, whatever the value's size
    }
    return 0;
}
