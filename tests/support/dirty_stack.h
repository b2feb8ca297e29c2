/* Bytes that nobody wrote are zero by luck: these make the luck run out. */
#ifndef TESTS_SUPPORT_DIRTY_STACK_H
#define TESTS_SUPPORT_DIRTY_STACK_H

#include <string.h>

#ifdef __cplusplus
#include <string_view>
#endif

/* Fills what the caller's next calls find on the stack. Changes nothing else, errno included. */
__attribute__((noinline, unused)) static void DirtyStack(void) {
    char dirt[256 * 1024]; /* the page buffer of the flash and more */
    memset(dirt, 0xA5, sizeof dirt);
    __asm__ volatile("" : : "r"(dirt) : "memory"); /* keeps it: nothing reads it here */
}

#ifdef __cplusplus
/* The same with a text, again and again, shift characters late. */
[[gnu::noinline]] inline void DirtyStackWith(std::string_view text, size_t shift = 0) {
    volatile char dirt[16 * 1024];
    for (size_t i = 0; i < sizeof dirt; ++i) {
        dirt[i] = text[(i + shift) % text.size()];
    }
}
#endif

#endif
