/* Bytes that nobody wrote are zero by luck: these make the luck run out. */
#ifndef TESTS_SUPPORT_DIRTY_STACK_H
#define TESTS_SUPPORT_DIRTY_STACK_H

#include <string.h>

/* Fills what the caller's next calls find on the stack. Changes nothing else, errno included. */
__attribute__((noinline, unused)) static void DirtyStack(void) {
    char dirt[256 * 1024]; /* the page buffer of the flash and more */
    memset(dirt, 0xA5, sizeof dirt);
    __asm__ volatile("" : : "r"(dirt) : "memory"); /* keeps it: nothing reads it here */
}

#endif
