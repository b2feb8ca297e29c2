// A text in a heap block of exactly its size: AddressSanitizer stops a read past its terminator.
#ifndef TESTS_SUPPORT_EXACT_COPY_H
#define TESTS_SUPPORT_EXACT_COPY_H

#include <cstring>
#include <memory>
#include <string_view>

inline std::unique_ptr<char[]> ExactCopy(std::string_view text) {
    std::unique_ptr<char[]> copy(new char[text.size() + 1]);
    memcpy(copy.get(), text.data(), text.size());
    copy[text.size()] = '\0';
    return copy;
}

#endif
