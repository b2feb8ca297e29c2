// SetLogOption.

#include <climits>

#include "log/log.h"
#include "tests/log/fresh_log.h"
#include "tests/log/replaced_stdout.h"

class SetLogOptionTest : public FreshLog {
protected:
    // What the call prints.
    std::string Set(int key, int value) {
        EXPECT_EQ(SetLogOption(key, &value), 0);
        return out_.TakeText();
    }

    ReplacedStdout out_;
};

TEST_F(SetLogOptionTest, SetsTheRunModeAndPrintsIt) {
    EXPECT_EQ(Set(LOG_OPT_RUNMODE, 1), "gRunMode:1\n");
    EXPECT_EQ(gRunMode, 1);
    EXPECT_EQ(Set(LOG_OPT_RUNMODE, 0), "gRunMode:0\n");
    EXPECT_EQ(gRunMode, 0);
}

TEST_F(SetLogOptionTest, PrintsWhateverTheMask) {
    for (const unsigned int mask : {0U, 15U, 255U}) {
        SetLogLevel(mask, 1);
        EXPECT_EQ(Set(LOG_OPT_RUNMODE, 1), "gRunMode:1\n");
    }
}

TEST_F(SetLogOptionTest, IsNotFlushed) {
    out_.Buffer(4096);
    EXPECT_EQ(Set(LOG_OPT_RUNMODE, 1), "");
}

TEST_F(SetLogOptionTest, RefusesOtherValues) {
    RegisterLogThread("kept");
    for (const int mode : {0, 1}) {
        gRunMode = mode;
        for (const int value : {2, 3, -1, INT_MIN, INT_MAX, 256, 257}) {
            EXPECT_EQ(Set(LOG_OPT_RUNMODE, value), "") << value;
            EXPECT_EQ(gRunMode, mode) << value;
        }
    }
    EXPECT_STREQ(gLogThreads[0].name, "kept");
}

TEST_F(SetLogOptionTest, IgnoresOtherKeys) {
    RegisterLogThread("kept");
    for (const int key : {0, 2, 3, -1, 257, INT_MIN, INT_MAX}) {
        EXPECT_EQ(Set(key, 1), "") << key;
        EXPECT_EQ(gRunMode, 0) << key;
    }
    EXPECT_STREQ(gLogThreads[0].name, "kept");
}

TEST_F(SetLogOptionTest, ClearsTheSlotsAndKeepsTheCount) {
    for (LogThreadSlot& slot : gLogThreads) {
        memset(&slot, 'x', sizeof slot);
    }
    gLogThreadCount = 3;
    Set(LOG_OPT_RUNMODE, 1);
    EXPECT_EQ(gLogThreadCount, 3);
    const LogThreadSlot kCleared[LOG_MAX_THREADS] = {};
    EXPECT_EQ(memcmp(gLogThreads, kCleared, sizeof kCleared), 0);
}

TEST_F(SetLogOptionTest, ClearsTheSlotsAlsoWhenTheModeStays) {
    RegisterLogThread("forgotten");
    Set(LOG_OPT_RUNMODE, 0);
    EXPECT_STREQ(gLogThreads[0].name, "");
    EXPECT_EQ(gLogThreadCount, 1);
}

TEST_F(SetLogOptionTest, GivesAThreadThatRegistersAgainTheNextSlot) {
    RegisterLogThread("first");
    Set(LOG_OPT_RUNMODE, 1);
    EXPECT_EQ(RegisterLogThread("second"), 0);
    EXPECT_EQ(gLogThreadCount, 2);
    EXPECT_STREQ(gLogThreads[0].name, "");
    EXPECT_STREQ(gLogThreads[1].name, "second");
}

TEST_F(SetLogOptionTest, LeavesNoSlotOnceFiveWereUsed) {
    gLogThreadCount = 4;
    EXPECT_EQ(RegisterLogThread("fifth"), 0);
    Set(LOG_OPT_RUNMODE, 1);
    EXPECT_EQ(gLogThreadCount, 5);
    EXPECT_EQ(RegisterLogThread("again"), 0);
    for (const LogThreadSlot& slot : gLogThreads) {
        EXPECT_STREQ(slot.name, "");
    }
}

TEST_F(SetLogOptionTest, ChangesNothingForNull) {
    RegisterLogThread("kept");
    gRunMode = 1;
    for (const int key : {1, 0}) {
        EXPECT_EQ(SetLogOption(key, nullptr), 0);
    }
    EXPECT_EQ(out_.TakeText(), "");
    EXPECT_EQ(gRunMode, 1);
    EXPECT_STREQ(gLogThreads[0].name, "kept");
}
