/*
 * The part of the probe that refuses memory once.
 *
 * PROBE_REFUSED    the allocation that fails, counted from the entry of main; unset: none
 *
 * The trace has the line "refused" there. The C library's own calls are counted too: a stream or a
 * folder is opened for the tool. What the loader takes before is not.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stddef.h>
#include <stdlib.h>

#include "tests/process/probe.h"

#ifdef __GLIBC__
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
#else
/* Found by name: musl's dlsym takes no memory. */
#define REAL(function) ((__typeof__(&(function)))dlsym(RTLD_NEXT, #function))
#define __libc_malloc REAL(malloc)
#define __libc_calloc REAL(calloc)
#define __libc_realloc REAL(realloc)
#endif

static int left = -1; /* allocations until the one that is refused, or none is when negative */

void CountAllocations(void) {
    const char* number = getenv("PROBE_REFUSED");
    left = number != NULL ? atoi(number) : -1;
}

static int IsRefused(void) {
    if (left < 0 || --left != 0) {
        return 0;
    }
    left = -1;
    WriteTrace("refused\n", sizeof "refused\n" - 1);
    errno = ENOMEM;
    return 1;
}

void* malloc(size_t size) {
    return IsRefused() ? NULL : __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
    return IsRefused() ? NULL : __libc_calloc(count, size);
}

void* realloc(void* block, size_t size) {
    return IsRefused() ? NULL : __libc_realloc(block, size);
}
