// The level mask.

#include "log/log.h"
#include "log/state.h"
#include "tests/log/fresh_log.h"

static_assert(LOG_ERROR == 1 && LOG_WARNING == 2 && LOG_INFO == 4 && LOG_DEBUG == 8);
static_assert(sizeof gLogMask == 1 && static_cast<decltype(gLogMask)>(-1) > 0);

class SetLogLevelTest : public FreshLog {};

TEST_F(SetLogLevelTest, AddsAndRemovesBits) {
    EXPECT_EQ(SetLogLevel(LOG_INFO | LOG_ERROR, 1), 0);
    EXPECT_EQ(GetLogLevel(), 5);
    EXPECT_EQ(SetLogLevel(LOG_INFO, 0), 0);
    EXPECT_EQ(GetLogLevel(), 1);
}

TEST_F(SetLogLevelTest, KeepsTheOtherBits) {
    SetLogLevel(0xA5, 1);
    SetLogLevel(0x0A, 1);
    EXPECT_EQ(GetLogLevel(), 0xAF);
    SetLogLevel(0x81, 0);
    EXPECT_EQ(GetLogLevel(), 0x2E);
}

TEST_F(SetLogLevelTest, ClearingABitThatIsOffLeavesItOff) {
    SetLogLevel(LOG_ERROR, 1);
    EXPECT_EQ(SetLogLevel(LOG_INFO, 0), 0);
    EXPECT_EQ(GetLogLevel(), LOG_ERROR);
}

TEST_F(SetLogLevelTest, RefusesAnyOtherSwitchValue) {
    SetLogLevel(LOG_ERROR | LOG_INFO, 1);
    for (const int on : {2, -1, 3, 256, -2147483647 - 1, 2147483647}) {
        EXPECT_EQ(SetLogLevel(LOG_INFO, on), -1) << on;
        EXPECT_EQ(SetLogLevel(LOG_DEBUG, on), -1) << on;
        EXPECT_EQ(GetLogLevel(), LOG_ERROR | LOG_INFO) << on;
    }
}

TEST_F(SetLogLevelTest, HasEightBits) {
    EXPECT_EQ(SetLogLevel(0xFFFFFF00, 1), 0);
    EXPECT_EQ(GetLogLevel(), 0);
    EXPECT_EQ(SetLogLevel(0xFFFFFFFF, 1), 0);
    EXPECT_EQ(GetLogLevel(), 0xFF);
    EXPECT_EQ(SetLogLevel(0xFFFFFF00, 0), 0);
    EXPECT_EQ(GetLogLevel(), 0xFF);
    EXPECT_EQ(SetLogLevel(0xFFFFFFFF, 0), 0);
    EXPECT_EQ(GetLogLevel(), 0);
}

class SetLogLevelByStrTest : public FreshLog {};

TEST_F(SetLogLevelByStrTest, EnablesTheLevelOfEachLetter) {
    const struct {
        const char* letters;
        int mask;
    } kCases[] = {
        {"E", 1},     {"W", 2},         {"I", 4},    {"D", 8},     {"EIWD", 15},
        {"DWIE", 15}, {"xW9E-", 3},     {"EEEE", 1}, {"", 0},      {"eiwd", 0},
        {"1248", 0},  {"Debug off", 8}, {" I\n", 4}, {"ABCFX", 0}, {"\xC5\xC9", 0},
    };
    for (const auto& [letters, mask] : kCases) {
        gLogMask = 0;
        SetLogLevelByStr(letters);
        EXPECT_EQ(GetLogLevel(), mask) << letters;
    }
}

TEST_F(SetLogLevelByStrTest, OnlyAddsLevels) {
    SetLogLevelByStr("D");
    EXPECT_EQ(GetLogLevel(), LOG_DEBUG);
    SetLogLevelByStr("E");
    EXPECT_EQ(GetLogLevel(), LOG_DEBUG | LOG_ERROR);
    SetLogLevelByStr("");
    EXPECT_EQ(GetLogLevel(), LOG_DEBUG | LOG_ERROR);
}

TEST_F(SetLogLevelByStrTest, KeepsBitsThatHaveNoLetter) {
    SetLogLevel(0xF0, 1);
    SetLogLevelByStr("W");
    EXPECT_EQ(GetLogLevel(), 0xF2);
}

TEST_F(SetLogLevelByStrTest, EnablesNothingForNull) {
    SetLogLevel(LOG_INFO, 1);
    SetLogLevelByStr(nullptr);
    EXPECT_EQ(GetLogLevel(), LOG_INFO);
}
