// The line that PrintLog writes: which levels pass, their names, the head, the message.

#include <string>
#include <vector>

#include "log/log.h"
#include "tests/log/fresh_log.h"
#include "tests/support/fake_clock.h"
#include "tests/support/log_lines.h"
#include "tests/support/time_zone.h"

class PrintLogTest : public FreshLog {};

TEST_F(PrintLogTest, WritesHeadMessageAndNewline) {
    const ScopedTimeZone zone(kCentralEurope);
    const FakeClock clock(1709644029);  // 2024-03-05 13:07:09 UTC
    CapturedLog log;
    SetLogProgName("orvatool");
    PrintLog(LOG_INFO, "udiskdetection", "DoUmount", 180, "umounted %s\n", "/mnt/removable");
    EXPECT_EQ(log.TakeText(),
              "[orvatool:2024-03-05T14:07:09] Info [udiskdetection DoUmount 180]: umounted "
              "/mnt/removable\n\n");
}

TEST_F(PrintLogTest, WritesNothingAtProgramStart) {
    CapturedStream out(stdout);
    CapturedStream err(stderr);
    for (const int level : {1, 2, 4, 8, 3, 15, 255, 256, -1}) {
        PrintLog(level, "file", "function", 1, "text");
    }
    EXPECT_EQ(out.Take(), "");
    EXPECT_EQ(err.Take(), "");
}

TEST_F(PrintLogTest, WritesALineWhenAnyOfItsBitsIsEnabled) {
    CapturedStream out(stdout);
    for (int mask = 0; mask < 256; ++mask) {
        gLogMask = static_cast<uint8_t>(mask);
        for (const int level : {0, 1, 2, 3, 4, 8, 12, 16, 128, 255, 256, 512, 0x7FFFFF00, -256}) {
            PrintLog(level, "file", "function", 1, "text");
            EXPECT_EQ(!out.Take().empty(), (level & mask) != 0) << level << " by " << mask;
        }
    }
}

TEST_F(PrintLogTest, NamesTheFourLevels) {
    const struct {
        int level;
        const char* name;
    } kCases[] = {
        {1, "Error"},     {2, "Warning"},     {4, "Info"},     {8, "Debug"},     {3, "Unknown"},
        {5, "Unknown"},   {16, "Unknown"},    {15, "Unknown"}, {255, "Unknown"}, {257, "Unknown"},
        {260, "Unknown"}, {65537, "Unknown"}, {-1, "Unknown"},
    };
    CapturedLog log;
    for (const auto& [level, name] : kCases) {
        PrintLog(level, "file", "function", 1, "text");
        EXPECT_EQ(log.Take(), (std::vector<LogLine>{{name, "file", "function", "text"}})) << level;
    }
}

TEST_F(PrintLogTest, NamesALineOfSeveralLevelsUnknownWhenOneIsEnabled) {
    CapturedLog log;
    gLogMask = LOG_ERROR;
    PrintLog(3, "file", "function", 1, "text");
    EXPECT_EQ(log.Take(), (std::vector<LogLine>{{"Unknown", "file", "function", "text"}}));
}

TEST_F(PrintLogTest, NeverWritesLevel256) {
    CapturedLog log;
    SetLogLevel(0xFFFFFFFF, 1);
    PrintLog(256, "file", "function", 1, "text");
    PrintLog(0, "file", "function", 1, "text");
    EXPECT_EQ(log.TakeText(), "");
}

TEST_F(PrintLogTest, AddsItsNewlineToEveryMessage) {
    const FakeClock clock(0);
    const ScopedTimeZone zone("UTC0");
    CapturedLog log;
    const std::string head = "[:1970-01-01T00:00:00] Debug [f g 7]: ";
    const struct {
        const char* message;
        const char* written;
    } kCases[] = {{"text", "text\n"}, {"text\n", "text\n\n"}, {"", "\n"}, {"\n\n", "\n\n\n"}};
    for (const auto& [message, written] : kCases) {
        PrintLog(LOG_DEBUG, "f", "g", 7, "%s", message);
        EXPECT_EQ(log.TakeText(), head + written);
    }
}

TEST_F(PrintLogTest, TakesEveryConversionOfPrintf) {
    CapturedLog log;
    PrintLog(LOG_ERROR, "f", "g", 1, "%5.2f|%-4d|%#x|%c|%lld|%.*s|%%", 1.005, 7, 255U, 'c',
             123456789012LL, 3, "abcdef");
    EXPECT_EQ(log.Take()[0].message, " 1.00|7   |0xff|c|123456789012|abc|%");
}

TEST_F(PrintLogTest, WritesFileFunctionAndLineAsGiven) {
    const FakeClock clock(0);
    const ScopedTimeZone zone("UTC0");
    CapturedLog log;
    PrintLog(LOG_INFO, "%s.cpp", "", -2147483647 - 1, "m");
    EXPECT_EQ(log.TakeText(), "[:1970-01-01T00:00:00] Info [%s.cpp  -2147483648]: m\n");
}

TEST_F(PrintLogTest, WritesAMessageOfAnyLength) {
    CapturedLog log;
    for (const size_t length : {255U, 256U, 1023U, 1024U, 4096U, 8192U, 300000U}) {
        const std::string message(length, 'm');
        PrintLog(LOG_INFO, "f", "g", 1, "%s", message.c_str());
        EXPECT_EQ(log.Take(), (std::vector<LogLine>{{"Info", "f", "g", message}})) << length;
    }
}

TEST_F(PrintLogTest, WritesLongFileAndFunctionNamesWhole) {
    CapturedLog log;
    const std::string file(2000, 'f');
    const std::string function(3000, 'g');
    PrintLog(LOG_INFO, file.c_str(), function.c_str(), 1, "m");
    EXPECT_EQ(log.Take(), (std::vector<LogLine>{{"Info", file, function, "m"}}));
}

class SetLogProgNameTest : public FreshLog {};

TEST_F(SetLogProgNameTest, KeepsTwentyThreeCharacters) {
    const FakeClock clock(0);
    const ScopedTimeZone zone("UTC0");
    CapturedLog log;
    const struct {
        const char* name;
        const char* shown;
    } kCases[] = {
        {"", ""},
        {"a", "a"},
        {"1234567890123456789012", "1234567890123456789012"},
        {"12345678901234567890123", "12345678901234567890123"},
        {"123456789012345678901234", "12345678901234567890123"},
        {"123456789012345678901234567890", "12345678901234567890123"},
        {"%s%n", "%s%n"},
    };
    for (const auto& [name, shown] : kCases) {
        EXPECT_EQ(SetLogProgName(name), 0);
        PrintLog(LOG_INFO, "f", "g", 1, "m");
        EXPECT_EQ(log.TakeText(),
                  "[" + std::string(shown) + ":1970-01-01T00:00:00] Info [f g 1]: m\n");
    }
}

TEST_F(SetLogProgNameTest, ReplacesTheNameBefore) {
    static_assert(sizeof gLogProgName == 24);
    SetLogProgName("a longer name");
    SetLogProgName("short");
    EXPECT_STREQ(gLogProgName, "short");
}

TEST_F(PrintLogTest, WritesNoMessageForAFormatOfNull) {
    const ScopedTimeZone zone("UTC0");
    const FakeClock clock(0);
    const char* const none = nullptr;
    CapturedLog log;
    PrintLog(LOG_INFO, "f", "g", 1, none);
    EXPECT_EQ(log.TakeText(), "[:1970-01-01T00:00:00] Info [f g 1]: \n");
    gLogMask = 0;
    PrintLog(LOG_INFO, none, none, 1, none);
    EXPECT_EQ(log.TakeText(), "");
}

TEST_F(PrintLogTest, ShowsWhichTextsAreNull) {
    const ScopedTimeZone zone("UTC0");
    const FakeClock clock(0);
    const char* const none = nullptr;
    CapturedLog log;
    PrintLog(LOG_INFO, none, "g", 1, "m");
    EXPECT_EQ(log.TakeText(), "[:1970-01-01T00:00:00] Info [(null) g 1]: m\n");
    PrintLog(LOG_INFO, "f", none, 1, "m");
    EXPECT_EQ(log.TakeText(), "[:1970-01-01T00:00:00] Info [f (null) 1]: m\n");
}

TEST_F(SetLogProgNameTest, KeepsTheNameForNull) {
    SetLogProgName("kept");
    EXPECT_EQ(SetLogProgName(nullptr), 0);
    EXPECT_STREQ(gLogProgName, "kept");
}
