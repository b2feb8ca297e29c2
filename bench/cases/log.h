// The log: lines that are written, with and without a TZ in the environment, and lines that are
// not. They go to /dev/null.
#ifndef BENCH_CASES_LOG_H
#define BENCH_CASES_LOG_H

#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "bench/case.h"
#include "log/log.h"

enum class Zone { kSet, kUnset };

// Every peer writes to the stream stdout, as the log does.
inline FILE* gSavedStdout;

struct LogCase {
    struct Input {
        int number;
        const char* text;
    };

    static std::vector<Input> Inputs() {
        return MakeInputs([](Numbers& numbers) -> Input {
            constexpr const char* kTexts[] = {"mounted", "no disk", "text", "/dev/sda1"};
            return {numbers.Between(0, 99999), kTexts[numbers.Between(0, 3)]};
        });
    }
    // A peer takes what changes from line to line; the log and what stands for it takes it all.
    template <auto kFunction>
    static int Call(const Input& input) {
        if constexpr (requires { kFunction(input.number, input.text); }) {
            kFunction(input.number, input.text);
        } else {
            kFunction(LOG_INFO, "file", "Function", 120, "%d %s", input.number, input.text);
        }
        return 0;
    }
    static void SetZone(Zone zone) {
        if (zone == Zone::kSet) {
            setenv("TZ", "CST-8", 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }
};

template <Zone kZone>
struct LogOn : LogCase {
    static std::string Name() { return kZone == Zone::kSet ? "log_on" : "log_on_no_tz"; }
    static void Begin() {
        SetZone(kZone);
        gSavedStdout = stdout;
        stdout = fopen("/dev/null", "w");
        SetLogProgName("bench");
        SetLogLevel(LOG_INFO, 1);
    }
    static void End() {
        SetLogLevel(0xFF, 0);
        fclose(stdout);
        stdout = gSavedStdout;
        SetZone(Zone::kUnset);
    }
};

struct LogOff : LogCase {
    static std::string Name() { return "log_off"; }
};

#endif
