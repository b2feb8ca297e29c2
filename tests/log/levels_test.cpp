// The level mask.

#include <gtest/gtest.h>

#include "log/log.h"
#include "log/state.h"

class SetLogLevelTest : public testing::Test {
protected:
    SetLogLevelTest() { gLogMask = 0; }
    ~SetLogLevelTest() override { gLogMask = 0; }
};

TEST_F(SetLogLevelTest, AddsAndRemovesBits) {
    EXPECT_EQ(SetLogLevel(LOG_INFO | LOG_ERROR, 1), 0);
    EXPECT_EQ(GetLogLevel(), 5);
    EXPECT_EQ(SetLogLevel(LOG_INFO, 0), 0);
    EXPECT_EQ(GetLogLevel(), 1);
}
