/* The text that the tool prints, read out of its buffer: the tool flushes nothing. */
#include <stdio.h>
#include <stdio_ext.h>
#include <string.h>

#include "tests/process/probe.h"

static size_t seen; /* bytes of stdout's buffer that are in the trace */

#ifdef __GLIBC__
void PrepareOutput(void) {}

static const char* OutputStart(void) {
    return stdout->_IO_write_base;
}
#else
/*
 * musl shows nobody where its buffer is, and would write line by line: the reopened stream still
 * takes itself for a console. So it gets a buffer of glibc's size, whose first bytes it keeps free.
 */
enum { kKeptFree = 8, kBufferSize = 4096 };
static char output[kKeptFree + kBufferSize];

void PrepareOutput(void) {
    setvbuf(stdout, output, _IOFBF, sizeof output);
}

static const char* OutputStart(void) {
    return output + kKeptFree;
}
#endif

void TraceOutput(void) {
    const char* start = OutputStart();
    const size_t size = __fpending(stdout);
    if (size < seen) {
        WriteTrace("flush\n", sizeof "flush\n" - 1);
        seen = 0;
    }
    while (seen < size) {
        const char* line = start + seen;
        const char* end = memchr(line, '\n', size - seen);
        const size_t length = end != NULL ? (size_t)(end - line) : size - seen;
        WriteTrace(end != NULL ? "out " : "out-", 4);
        WriteTrace(line, length);
        WriteTrace("\n", 1);
        seen += length + (end != NULL ? 1 : 0);
    }
}
