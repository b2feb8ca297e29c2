/* What the files of the probe share. */
#ifndef TESTS_PROCESS_PROBE_H
#define TESTS_PROCESS_PROBE_H

#include <stddef.h>

/* Writes a text into the trace. */
void WriteTrace(const char* text, size_t size);

/* From here on allocations count. */
void CountAllocations(void);

#endif
