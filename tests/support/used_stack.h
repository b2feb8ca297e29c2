// A stack that is not clean, so that what a function does not set holds something else than zeros.
#ifndef TESTS_SUPPORT_USED_STACK_H
#define TESTS_SUPPORT_USED_STACK_H

#include <cstddef>
#include <string_view>

// Fills the stack that the next calls of the caller will use with the text, again and again, shift
// characters late.
[[gnu::noinline]] inline void UseStack(std::string_view text, size_t shift = 0) {
    volatile char used[16384];
    for (size_t i = 0; i < sizeof used; ++i) {
        used[i] = text[(i + shift) % text.size()];
    }
}

#endif
