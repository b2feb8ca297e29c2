// Comparing a guarded buffer byte for byte.

#include "tests/support/guarded_buffer.h"

#include <gtest/gtest.h>

GuardedBuffer::GuardedBuffer(size_t size, std::string_view content)
    : size_(size), bytes_(size + 2 * kFence, kFill) {
    bytes_.replace(kFence, content.size(), content);
}

void GuardedBuffer::ExpectHolds(std::string_view expected, std::source_location caller) const {
    std::string all(size_ + 2 * kFence, kFill);
    all.replace(kFence, expected.size(), expected);
    EXPECT_EQ(bytes_, all) << "called at " << caller.file_name() << ':' << caller.line();
}
