/* What the files of the probe share. */
#ifndef TESTS_PROCESS_PROBE_H
#define TESTS_PROCESS_PROBE_H

#include <stddef.h>

/* Writes a text into the trace. */
void WriteTrace(const char* text, size_t size);

/* Before the tool prints: makes sure that its buffer can be found. */
void PrepareOutput(void);

/* Writes the text in stdout's buffer that was not there the last time. A flush shows as such. */
void TraceOutput(void);

/* From here on allocations count. */
void CountAllocations(void);

#endif
