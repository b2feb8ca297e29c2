// The fuzzer's bytes, taken as the arguments of a call: small numbers first, the text last.
#ifndef TESTS_FUZZ_INPUT_H
#define TESTS_FUZZ_INPUT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "tests/support/exact_copy.h"

class Input {
public:
    Input(const uint8_t* data, size_t size) : data_(data), size_(size) {}

    // The next byte, 0 at the end.
    int Byte() {
        if (size_ == 0) {
            return 0;
        }
        --size_;
        return *data_++;
    }

    // Takes one byte; the range must be below 256 wide.
    int Between(int low, int high) { return low + Byte() % (high - low + 1); }

    // Any int: small ones take one byte, the others five.
    int Int() {
        constexpr int kSmall = 100;
        const int byte = Byte();
        if (byte <= 2 * kSmall) {
            return byte - kSmall;
        }
        uint32_t value = 0;
        for (size_t i = 0; i < sizeof value; ++i) {
            value = value << 8 | static_cast<uint32_t>(Byte());
        }
        return static_cast<int>(value);
    }

    // What stands before the next 0, or all; the 0 is taken too.
    std::string Word() {
        const std::string rest(reinterpret_cast<const char*>(data_), size_);
        const std::string word = rest.substr(0, rest.find('\0'));
        const size_t taken = std::min(word.size() + 1, size_);
        data_ += taken;
        size_ -= taken;
        return word;
    }

    // What is left, with the bytes that are 0.
    std::string Bytes() { return {reinterpret_cast<const char*>(data_), size_}; }

    bool IsAtEnd() const { return size_ == 0; }

    // Of at most length bytes, none of them 0.
    std::string Text(size_t length) {
        length = std::min(length, size_);
        const std::string bytes(reinterpret_cast<const char*>(data_), length);
        data_ += length;
        size_ -= length;
        return bytes.substr(0, bytes.find('\0'));
    }

    // What is left.
    std::string Text() { return Text(size_); }

private:
    const uint8_t* data_;
    size_t size_;
};

// In a block of exactly their size.
inline std::unique_ptr<char[]> BlockOf(const std::string& bytes) {
    std::unique_ptr<char[]> block(new char[bytes.size()]);
    memcpy(block.get(), bytes.data(), bytes.size());
    return block;
}

inline std::string BytesOf(const std::unique_ptr<char[]>& block, size_t size) {
    return {block.get(), size};
}

// The bytes of an unwritten buffer; a size below 0 is none.
inline std::string BufferOf(int size) {
    return std::string(static_cast<size_t>(std::max(size, 0)), 'x');
}

// A buffer of size bytes, or more where text needs them, with text and its terminator at the start.
inline std::string BufferWith(const std::string& text, int size) {
    const std::string filler = BufferOf(size - static_cast<int>(text.size()) - 1);
    return text + '\0' + filler;
}

// Stops the fuzzer with a finding.
inline void Require(bool holds, const char* what) {
    if (!holds) {
        fprintf(stderr, "does not hold: %s\n", what);
        abort();
    }
}

#endif
