// A hardware address by cutting the text into groups first.
#ifndef TESTS_UTIL_TIMEUTILS_ETHERNET_NAIVE_MAC_H
#define TESTS_UTIL_TIMEUTILS_ETHERNET_NAIVE_MAC_H

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace naive {

constexpr size_t kMacSize = 6;

// The six bytes, or nothing. What a group counts is its last eight digits, read as a signed number.
inline std::optional<std::string> str2mac(const std::string& text) {
    std::vector<std::string> groups = {""};
    for (const char c : text) {
        if (c != ':') {
            groups.back() += c;
        } else if (groups.size() == kMacSize) {
            break;
        } else {
            groups.emplace_back();
        }
    }
    if (groups.size() != kMacSize) {
        return std::nullopt;
    }
    std::string bytes;
    for (const std::string& group : groups) {
        if (group.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) {
            return std::nullopt;
        }
        const std::string end = group.substr(group.size() - std::min<size_t>(group.size(), 8));
        const auto value = static_cast<int32_t>(strtoull(end.c_str(), nullptr, 16));
        if (value > 255) {
            return std::nullopt;
        }
        bytes += static_cast<char>(value);
    }
    return bytes;
}

}  // namespace naive

#endif
