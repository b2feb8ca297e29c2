// A buffer between two fences, in which every byte that was not written shows.
#ifndef TESTS_SUPPORT_GUARDED_BUFFER_H
#define TESTS_SUPPORT_GUARDED_BUFFER_H

#include <cstddef>
#include <source_location>
#include <string>
#include <string_view>

class GuardedBuffer {
public:
    static constexpr char kFill = '\x5A';

    // size bytes, all kFill but for content at the start (give the terminator explicitly).
    explicit GuardedBuffer(size_t size, std::string_view content = {});

    char* data() { return &bytes_[kFence]; }
    int size() const { return static_cast<int>(size_); }

    // The text up to its terminator.
    std::string text() const { return bytes_.c_str() + kFence; }

    // The byte at an index that may lie in the fences.
    char& at(ptrdiff_t index) { return bytes_[static_cast<size_t>(kFence + index)]; }

    // Fails, naming the caller's line, unless the buffer starts with expected and all else, fences
    // included, is kFill.
    void ExpectHolds(std::string_view expected,
                     std::source_location caller = std::source_location::current()) const;
    void ExpectUntouched(std::source_location caller = std::source_location::current()) const {
        ExpectHolds({}, caller);
    }

private:
    static constexpr ptrdiff_t kFence = 64;
    size_t size_;
    std::string bytes_;
};

// text with its terminator, as it stands in a buffer.
inline std::string Terminated(std::string_view text) {
    return std::string(text) + '\0';
}

#endif
