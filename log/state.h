// What the log remembers between calls. All of it is zero at program start.
#ifndef LOG_STATE_H
#define LOG_STATE_H

#include <pthread.h>

#include <cstdint>

// Named in capitals like the levels: they are the log's own terms.
constexpr int LOG_NAME_LEN = 24;  // bytes of a stored name, terminator included
constexpr int LOG_MAX_THREADS = 5;

struct LogThreadSlot {
    pthread_t id;
    char name[LOG_NAME_LEN];
};

// Hidden, so that no table of global addresses is read before the mask of a line that is off.
#pragma GCC visibility push(hidden)
extern uint8_t gLogMask;  // a bit set: that level is enabled
extern int32_t gRunMode;  // 0 plain lines, 1 lines with the thread's name
extern char gLogProgName[LOG_NAME_LEN];
extern int32_t gLogThreadCount;  // [0, LOG_MAX_THREADS]
extern LogThreadSlot gLogThreads[LOG_MAX_THREADS];
#pragma GCC visibility pop

// The slot of the calling thread, the first one if it has several, or nullptr.
const LogThreadSlot* FindLogThread();

#endif
