// The naive text functions.

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "tests/util/trstrutils/naive.h"

namespace naive {

namespace {

constexpr size_t kNowhere = std::string::npos;
constexpr std::string_view kLower = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view kUpper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// Writes text and its terminator at an index of a buffer.
void PutText(std::string& buffer, size_t at, const std::string& text) {
    for (size_t i = 0; i < text.size(); ++i) {
        buffer.at(at + i) = text[i];
    }
    buffer.at(at + text.size()) = '\0';
}

bool IsByte(int separator) {
    return separator > 0 && separator < 256;
}

size_t Find(const std::string& text, int separator) {
    return IsByte(separator) ? text.find(static_cast<char>(separator)) : kNowhere;
}

std::string UpTo(const std::string& text, size_t length) {
    return text.substr(0, std::min(length, text.size()));
}

// Where the value of key begins. Only the low byte of the separator stands before a key.
size_t FindValue(const std::string& text, const std::string& key, int separator) {
    const std::string head = key + "=";
    const char before = static_cast<char>(separator);
    for (size_t i = 0; i < text.size(); ++i) {
        const bool is_item = i == 0 || (before != '\0' && text[i - 1] == before);
        if (is_item && text.compare(i, head.size(), head) == 0) {
            return i + head.size();
        }
    }
    return kNowhere;
}

int HexDigit(char digit) {
    for (const std::string_view digits :
         {"0123456789ABCDEF", "0123456789abcdef", "0123456789:;<=>?"}) {
        if (const size_t value = digits.find(digit); value != kNowhere) {
            return static_cast<int>(value);
        }
    }
    return -1;
}

}  // namespace

Outcome SplitByChar(const std::string& text, std::string first, std::string rest, int separator) {
    const size_t at = Find(text, separator);
    PutText(first, 0, UpTo(text, at));
    if (at == kNowhere) {
        rest.at(0) = '\0';
        return {0, first, rest};
    }
    const std::string tail = text.substr(at + 1);
    PutText(rest, 1, tail);
    return {static_cast<std::ptrdiff_t>(tail.size() + 1), first, rest};
}

Outcome SplitKeyValueByChar(const std::string& text, std::string key, int key_size,
                            std::string value, int value_size, char separator) {
    const size_t at = Find(text, static_cast<unsigned char>(separator));
    std::string head;
    if (key_size > 0) {
        head = UpTo(UpTo(text, at), static_cast<size_t>(key_size) - 1);
        PutText(key, 0, head);
    }
    const std::string tail = at == kNowhere ? "" : text.substr(at + 1);
    if (value_size > 0 && !tail.empty()) {
        PutText(value, 0, UpTo(tail, static_cast<size_t>(value_size) - 1));
    }
    if (value_size > 0 && key_size > 0 && tail.empty()) {
        value.at(head.size()) = '\0';
    }
    return {0, key, value};
}

Outcome ExtractValue(const std::string& text, const std::string& key, int separator,
                     std::string out, int out_max) {
    const size_t at = key.size() <= 197 ? FindValue(text, key, separator) : kNowhere;
    if (out_max > 0) {
        out.at(0) = '\0';
    }
    if (at == kNowhere) {
        return {-1, out, ""};
    }
    const std::string tail = text.substr(at);
    const std::string value = UpTo(tail, Find(tail, separator));
    if (static_cast<std::ptrdiff_t>(value.size()) < out_max) {
        PutText(out, 0, value);
        return {static_cast<std::ptrdiff_t>(value.size()), out, ""};
    }
    for (int i = 0; i < out_max; ++i) {
        out.at(static_cast<size_t>(i)) = value[static_cast<size_t>(i)];
    }
    return {0, out, ""};
}

int ExtractValueInt(const std::string& text, const std::string& key, int separator,
                    int default_value) {
    const Outcome found = ExtractValue(text, key, separator, std::string(40, '\0'), 40);
    if (found.result < 1) {
        return default_value;
    }
    const long long value = strtoll(found.first.c_str(), nullptr, 10);
    return static_cast<int>(std::clamp<long long>(value, INT32_MIN, INT32_MAX));
}

std::string TrimAroundSpace(const std::string& text) {
    std::string buffer = text + '\0';
    const size_t start = text.find_first_not_of(' ');
    if (start == kNowhere) {
        buffer[0] = '\0';
        return buffer;
    }
    const size_t last = text.find_last_not_of(' ');
    buffer[last + 1] = '\0';
    PutText(buffer, 0, text.substr(start, last - start + 1));
    return buffer;
}

std::string Str2Upcase(std::string bytes, int length) {
    for (int i = 0; i < length; ++i) {
        const size_t at = static_cast<size_t>(i);
        const size_t letter = kLower.find(bytes.at(at));
        if (letter != kNowhere) {
            bytes[at] = kUpper[letter];
        }
    }
    return bytes;
}

Outcome Decode16(const std::string& hex, std::string out) {
    std::ptrdiff_t count = 0;
    for (size_t i = 0; i + 1 < hex.size(); i += 2) {
        const int high = HexDigit(hex[i]);
        const int low = HexDigit(hex[i + 1]);
        if (high == -1 || low == -1) {
            return {0, out, ""};
        }
        out.at(i / 2) = static_cast<char>(16 * high + low);
        ++count;
    }
    return {count, out, ""};
}

}  // namespace naive
