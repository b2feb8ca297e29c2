// The names that a log line shows: the program's and, in run mode 1, the calling thread's.

#include <cstdio>
#include <cstring>

#include "log/log.h"
#include "log/state.h"

int32_t gRunMode;
char gLogProgName[LOG_NAME_LEN];
int32_t gLogThreadCount;
LogThreadSlot gLogThreads[LOG_MAX_THREADS];

namespace {

void CopyName(char (&dest)[LOG_NAME_LEN], const char* name) {
    snprintf(dest, sizeof dest, "%s", name);
}

}  // namespace

const LogThreadSlot* FindLogThread() {
    const pthread_t caller = pthread_self();
    for (int32_t i = 0; i < gLogThreadCount; ++i) {
        if (pthread_equal(gLogThreads[i].id, caller)) {
            return &gLogThreads[i];
        }
    }
    return nullptr;
}

int SetLogProgName(const char* name) {
    if (name != nullptr) {
        CopyName(gLogProgName, name);
    }
    return 0;
}

int RegisterLogThread(const char* name) {
    // A full table answers first: a thread that holds a slot gets 0 then, too.
    if (gLogThreadCount >= LOG_MAX_THREADS) {
        return 0;
    }
    if (FindLogThread() != nullptr) {
        return 1;
    }
    if (name == nullptr) {
        return 0;
    }
    LogThreadSlot& slot = gLogThreads[gLogThreadCount];
    slot.id = pthread_self();
    CopyName(slot.name, name);
    ++gLogThreadCount;
    return 0;
}

int SetLogOption(int key, const int* value) {
    if (key != LOG_OPT_RUNMODE || value == nullptr || (*value != 0 && *value != 1)) {
        return 0;
    }
    gRunMode = *value;
    // The count stays: slots that were in use before remain counted.
    memset(gLogThreads, 0, sizeof gLogThreads);
    printf("gRunMode:%d\n", gRunMode);
    return 0;
}
