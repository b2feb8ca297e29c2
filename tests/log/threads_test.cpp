// Thread names and the run mode.

#include <functional>
#include <semaphore>
#include <string>
#include <thread>
#include <vector>

#include "log/log.h"
#include "tests/log/fresh_log.h"
#include "tests/support/fake_clock.h"
#include "tests/support/log_lines.h"
#include "tests/support/time_zone.h"

namespace {

constexpr int kThreadNames = 1;  // the run mode in which lines carry the thread's name

// Runs the steps one after the other, each on a thread of its own. All the threads live to the end,
// so that no identifier is used twice.
void OnDistinctThreads(const std::vector<std::function<void()>>& steps) {
    std::counting_semaphore done(0);
    std::counting_semaphore end(0);
    std::vector<std::thread> threads;
    for (const auto& step : steps) {
        threads.emplace_back([&] {
            step();
            done.release();
            end.acquire();
        });
        done.acquire();
    }
    end.release(static_cast<ptrdiff_t>(threads.size()));
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void SetRunMode(int mode) {
    const CapturedStream out(stdout);
    SetLogOption(LOG_OPT_RUNMODE, &mode);
}

std::string TakeThreadName(CapturedLog& log) {
    const std::vector<LogHead> heads = log.TakeHeads();
    return heads.size() == 1 ? heads[0].thread.value_or("no thread name") : "not one line";
}

}  // namespace

static_assert(LOG_OPT_RUNMODE == 1);
static_assert(LOG_NAME_LEN == 24 && LOG_MAX_THREADS == 5);
static_assert(sizeof gLogThreads == 5 * sizeof(LogThreadSlot));
static_assert(sizeof gRunMode == 4 && sizeof gLogThreadCount == 4);
static_assert(offsetof(LogThreadSlot, id) == 0);
static_assert(offsetof(LogThreadSlot, name) == sizeof(pthread_t));
static_assert(sizeof(LogThreadSlot) == sizeof(pthread_t) + 24);

class LogThreads : public FreshLog {
protected:
    const ScopedTimeZone zone_{"UTC0"};
    const FakeClock clock_{0};
};

TEST_F(LogThreads, AreNamedInRunMode1) {
    SetRunMode(kThreadNames);
    EXPECT_EQ(RegisterLogThread("main thread"), 0);
    CapturedLog log;
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(log.TakeText(), "[:1970-01-01T00:00:00][main thread] Info [f g 1]: m\n");
}

TEST_F(LogThreads, AreNotNamedInRunMode0) {
    RegisterLogThread("main thread");
    CapturedLog log;
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(log.TakeText(), "[:1970-01-01T00:00:00] Info [f g 1]: m\n");
}

TEST_F(LogThreads, LeaveTheBracketsEmptyWithoutAName) {
    SetRunMode(kThreadNames);
    CapturedLog log;
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeThreadName(log), "");
    OnDistinctThreads({[] { RegisterLogThread("another"); }});
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeThreadName(log), "");
}

TEST_F(LogThreads, KeepTwentyThreeCharactersOfTheName) {
    SetRunMode(kThreadNames);
    RegisterLogThread("123456789012345678901234567890");
    CapturedLog log;
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeThreadName(log), "12345678901234567890123");
    EXPECT_EQ(gLogThreads[0].name[23], '\0');
}

TEST_F(LogThreads, KeepTheirFirstName) {
    EXPECT_EQ(RegisterLogThread("first"), 0);
    EXPECT_EQ(RegisterLogThread("second"), 1);
    EXPECT_STREQ(gLogThreads[0].name, "first");
    EXPECT_EQ(gLogThreadCount, 1);
}

TEST_F(LogThreads, TakeTheSlotsFromTheFirstUpward) {
    OnDistinctThreads({[] { EXPECT_EQ(RegisterLogThread("a"), 0); },
                       [] { EXPECT_EQ(RegisterLogThread("b"), 0); },
                       [] { EXPECT_EQ(RegisterLogThread("c"), 0); }});
    EXPECT_EQ(gLogThreadCount, 3);
    EXPECT_STREQ(gLogThreads[0].name, "a");
    EXPECT_STREQ(gLogThreads[1].name, "b");
    EXPECT_STREQ(gLogThreads[2].name, "c");
    EXPECT_STREQ(gLogThreads[3].name, "");
}

TEST_F(LogThreads, FindTheirOwnNames) {
    SetRunMode(kThreadNames);
    CapturedLog log;
    const auto check = [&](const char* name) {
        return [&log, name] {
            RegisterLogThread(name);
            PrintLog(LOG_INFO, "f", "g", 1, "m");
            EXPECT_EQ(TakeThreadName(log), name);
        };
    };
    OnDistinctThreads({check("a"), check("b"), check("c"), check("d"), check("e")});
}

TEST_F(LogThreads, TheSixthGetsNoSlot) {
    SetRunMode(kThreadNames);
    CapturedLog log;
    const auto take_a_slot = [] { EXPECT_EQ(RegisterLogThread("taken"), 0); };
    OnDistinctThreads({take_a_slot, take_a_slot, take_a_slot, take_a_slot, take_a_slot, [&] {
                           EXPECT_EQ(RegisterLogThread("sixth"), 0);
                           PrintLog(LOG_INFO, "f", "g", 1, "m");
                           EXPECT_EQ(TakeThreadName(log), "");
                       }});
    EXPECT_EQ(gLogThreadCount, 5);
    for (const LogThreadSlot& slot : gLogThreads) {
        EXPECT_STREQ(slot.name, "taken");
    }
}

TEST_F(LogThreads, WithASlotGetZeroFromAFullTable) {
    RegisterLogThread("main thread");
    gLogThreadCount = 4;
    EXPECT_EQ(RegisterLogThread("again"), 1);
    gLogThreadCount = 5;
    EXPECT_EQ(RegisterLogThread("again"), 0);
    EXPECT_STREQ(gLogThreads[0].name, "main thread");
    EXPECT_EQ(gLogThreadCount, 5);
}

TEST_F(LogThreads, LeaveTheirNameToTheNextOneOfTheirNumber) {
    SetRunMode(kThreadNames);
    std::thread([] { RegisterLogThread("ended"); }).join();
    EXPECT_EQ(gLogThreadCount, 1);
    EXPECT_STREQ(gLogThreads[0].name, "ended");
    gLogThreads[0].id = pthread_self();  // as the C library gives it to a new thread
    EXPECT_EQ(RegisterLogThread("new"), 1);
    CapturedLog log;
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeThreadName(log), "ended");
}

TEST_F(LogThreads, ShowTheFirstOfTwoSlots) {
    gRunMode = kThreadNames;
    gLogThreadCount = 3;
    gLogThreads[1] = {pthread_self(), "first"};
    gLogThreads[2] = {pthread_self(), "second"};
    CapturedLog log;
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeThreadName(log), "first");
}

TEST_F(LogThreads, BehindTheCountAreNotLookedAt) {
    gRunMode = kThreadNames;
    gLogThreadCount = 1;
    gLogThreads[1] = {pthread_self(), "stale"};
    CapturedLog log;
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeThreadName(log), "");
}

TEST(RegisterLogThread, TakesNoPlaceForNull) {
    gLogThreadCount = 0;
    EXPECT_EQ(RegisterLogThread(nullptr), 0);
    EXPECT_EQ(gLogThreadCount, 0);
    EXPECT_EQ(RegisterLogThread("named"), 0);
    EXPECT_EQ(RegisterLogThread(nullptr), 1);
    EXPECT_STREQ(gLogThreads[0].name, "named");
    gLogThreadCount = 0;
}
