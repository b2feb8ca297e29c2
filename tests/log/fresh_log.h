// The log as at program start, before and after each test.
#ifndef TESTS_LOG_FRESH_LOG_H
#define TESTS_LOG_FRESH_LOG_H

#include <gtest/gtest.h>

#include <cstring>

#include "log/state.h"

class FreshLog : public testing::Test {
protected:
    FreshLog() { Clear(); }
    ~FreshLog() override { Clear(); }

private:
    static void Clear() {
        gLogMask = 0;
        gRunMode = 0;
        gLogThreadCount = 0;
        memset(gLogProgName, 0, sizeof gLogProgName);
        memset(gLogThreads, 0, sizeof gLogThreads);
    }
};

#endif
