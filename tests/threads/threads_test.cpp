// What the headers let several threads do at once gives each of them what it gives one alone. The
// thread sanitizer watches this test for memory that two threads share.

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include "log/log.h"
#include "log/state.h"
#include "tests/log/fresh_log.h"
#include "tests/support/captured_stream.h"
#include "tests/threads/at_once.h"
#include "util/fileutils.h"
#include "util/timeutils.h"
#include "util/trstrutils.h"

#include <gtest/gtest.h>

namespace {

std::string Line(int thread) {
    return "line of thread " + std::to_string(thread) + "\n";
}

int Occurrences(const std::string& text, const std::string& part) {
    int count = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

}  // namespace

// Time stamps go through libc's one record by contract, and those of lines that are written at the
// same moment may mix. Here each thread has its own, so that only our code is watched.
extern "C" struct tm* __wrap_localtime(const time_t* seconds) {
    thread_local struct tm local;
    return localtime_r(seconds, &local);
}

TEST(Threads, SplitTextsAtOnce) {
    AtOnce([](int thread) {
        const std::string text = "key=" + std::to_string(thread) + ";other=7";
        char first[32] = "";
        char rest[32] = "";
        EXPECT_EQ(SplitByChar(text.c_str(), first, rest, ';'), rest + sizeof "other=7");
        EXPECT_EQ(first, "key=" + std::to_string(thread));
        char value[32] = "";
        SplitKeyValueByChar(first, rest, sizeof rest, value, sizeof value, '=');
        EXPECT_EQ(value, std::to_string(thread));
        ExtractValue(text.c_str(), "key", ';', value, sizeof value);
        EXPECT_EQ(ExtractValueInt(text.c_str(), "other", ';', -1), 7);
    });
}

TEST(Threads, ChangeTextsOfTheirOwnAtOnce) {
    AtOnce([](int thread) {
        char text[32] = "";
        snprintf(text, sizeof text, "  text %d  ", thread);
        TrimAroundSpace(text);
        Str2Upcase(text, static_cast<int>(strlen(text)));
        EXPECT_EQ(text, "TEXT " + std::to_string(thread));
    });
}

TEST(Threads, ReadNumbersAtOnce) {
    AtOnce([](int thread) {
        EXPECT_EQ(str2int(std::to_string(1000 + thread).c_str(), -1), 1000 + thread);
        EXPECT_EQ(str2Hex('1', '0' + thread), 0x10 + thread);
        unsigned char bytes[2] = {};
        Decode16("a1b2", bytes);
        EXPECT_EQ(bytes[1], 0xb2);
    });
}

TEST(Threads, AddUpTheSameBufferAtOnce) {
    static constexpr unsigned short kBuffer[] = {0x4500, 0x0073, 0x0000, 0x4000, 0x4011};
    const int sum = in_chksum(kBuffer, sizeof kBuffer);
    AtOnce([&](int) { EXPECT_EQ(in_chksum(kBuffer, sizeof kBuffer), sum); });
}

TEST(Threads, SortArraysOfTheirOwnAtOnce) {
    AtOnce([](int thread) {
        std::vector<int> numbers;
        for (int i = 0; i < 100; ++i) {
            numbers.push_back((i * 37 + thread) % 101);
        }
        MergeSort(numbers.data(), static_cast<int>(numbers.size()));
        EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    });
}

TEST(Threads, WriteAndReadDatesAtOnce) {
    AtOnce([](int thread) {
        char date[16] = "";
        FormatDate(date, 9, 2024, 5, 7 + thread);
        EXPECT_EQ(date,
                  "2024-05-" + std::string(thread < 3 ? "0" : "") + std::to_string(7 + thread));
        char clock[32] = "09:10 PM";
        HourTimeFormatTo24Mode(clock, sizeof clock);
        EXPECT_STREQ(clock, "21:10");
    });
}

TEST(Threads, ConvertDatesAtOnce) {
    AtOnce([](int thread) {
        TTime rec = {};
        rec.tm_year = 124;
        rec.tm_mon = 4;
        rec.tm_mday = 7 + thread;
        TTime there = rec;
        ChrisTmToLocalTm(CALENDAR_PERSIAN, &there);
        LocalTmToChrisTm(CALENDAR_PERSIAN, &there);
        EXPECT_EQ(there.tm_mday, rec.tm_mday);
        EXPECT_EQ(EncodeTime(&rec), 1715040000 + 86400 * thread);
    });
}

TEST(Threads, SleepAtOnce) {
    AtOnce([](int thread) { Trmmsleep(static_cast<unsigned int>(thread)); }, 3);
}

TEST(Threads, RunCommandsAtOnce) {
    AtOnce(
        [](int thread) {
            const std::string command = "exit " + std::to_string(thread);
            EXPECT_EQ(systemEx(command.c_str()), thread * 256);
        },
        3);
}

using LogThreads = FreshLog;

TEST_F(LogThreads, WriteLinesWithTheirNamesAtOnce) {
    CapturedStream out(stdout);
    const int with_names = 1;
    SetLogOption(LOG_OPT_RUNMODE, &with_names);
    gLogMask = LOG_INFO;
    AtOnce([](int) { PrintLog(LOG_INFO, "file", "function", 1, "text"); }, kRounds,
           [](int thread) {
               EXPECT_EQ(RegisterLogThread(("name" + std::to_string(thread)).c_str()), 0);
           });
    const std::string text = out.Take();
    for (int thread = 0; thread < kThreads; ++thread) {
        EXPECT_EQ(Occurrences(text, "[name" + std::to_string(thread) + "] Info "), kRounds);
    }
    EXPECT_EQ(Occurrences(text, "[]"), 0);
}

TEST(Threads, WriteLinesAtOnceThatMayMixButAreAllThere) {
    CapturedStream out(stdout);
    gLogMask = LOG_INFO;
    AtOnce([](int thread) {
        PrintLog(LOG_INFO, "file", "function", 1, "%s", Line(thread).c_str());
        PrintLog(LOG_DEBUG, "file", "function", 1, "not shown");
    });
    gLogMask = 0;
    const std::string text = out.Take();
    for (int thread = 0; thread < kThreads; ++thread) {
        EXPECT_EQ(Occurrences(text, Line(thread)), kRounds);
    }
    EXPECT_EQ(Occurrences(text, " Info [file function 1]: "), kThreads * kRounds);
    EXPECT_EQ(Occurrences(text, "not shown"), 0);
}
