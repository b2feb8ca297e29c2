// The value of a key in a list of key=value items.

#include <cstring>

#include "util/digits.h"
#include "util/null.h"
#include "util/trstrutils.h"

namespace {

constexpr size_t kLongestKey = 197;
constexpr int kNumberSize = 40;

// Where the value of key begins, or nullptr when the list has no such key.
const char* FindValue(const char* text, const char* key, int separator) {
    const size_t key_length = strlen(key);
    if (key_length > kLongestKey) {
        return nullptr;
    }
    // No separator stands before the first item.
    if (strncmp(text, key, key_length) == 0 && text[key_length] == '=') {
        return text + key_length + 1;
    }
    char pattern[sizeof(char) + kLongestKey + sizeof "="];
    pattern[0] = static_cast<char>(separator);
    memcpy(pattern + 1, key, key_length);
    memcpy(pattern + 1 + key_length, "=", sizeof "=");
    // A separator of 0 makes the pattern empty, which strstr finds in every text.
    const char* match = pattern[0] != '\0' ? strstr(text, pattern) : nullptr;
    return match != nullptr ? match + key_length + 2 : nullptr;
}

}  // namespace

int ExtractValue(const char* text, const char* key, int separator, char* out, int out_max) {
    if (out != nullptr && out_max > 0) {
        out[0] = '\0';
    }
    const char* value = AnyNull(text, key) ? nullptr : FindValue(text, key, separator);
    if (value == nullptr) {
        return -1;
    }
    for (int i = 0; i < out_max; ++i) {
        const bool is_end = value[i] == '\0' || static_cast<unsigned char>(value[i]) == separator;
        if (out != nullptr) {
            out[i] = is_end ? '\0' : value[i];
        }
        if (is_end) {
            return i;
        }
    }
    return 0;
}

int ExtractValueInt(const char* text, const char* key, int separator, int default_value) {
    char value[kNumberSize];
    if (ExtractValue(text, key, separator, value, sizeof value) < 1) {
        return default_value;
    }
    return ReadInt(value);
}
