// The log: a line that is not enabled, and one that is.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <ctime>

#include "log/log.h"

namespace {

void DisabledLine(benchmark::State& state) {
    SetLogLevel(0xFF, 0);
    for (auto _ : state) {
        PrintLog(LOG_DEBUG, "bench", __func__, __LINE__, "%d %s", 1, "text");
    }
}
BENCHMARK(DisabledLine)->Name("PrintLog, disabled/orvatool");

[[gnu::noinline]] void DoNothing(int level, const char* format, ...) {
    benchmark::DoNotOptimize(level);
    benchmark::DoNotOptimize(format);
}

void EmptyVariadic(benchmark::State& state) {
    for (auto _ : state) {
        DoNothing(LOG_DEBUG, "%d %s", 1, "text");
    }
}
BENCHMARK(EmptyVariadic)->Name("PrintLog, disabled/empty call");

// Both write to standard output while it leads to /dev/null; the report waits for its return.
void EnabledLine(benchmark::State& state) {
    FILE* const saved = stdout;
    stdout = fopen("/dev/null", "w");
    SetLogLevel(LOG_DEBUG, 1);
    for (auto _ : state) {
        PrintLog(LOG_DEBUG, "bench", __func__, __LINE__, "%d %s", 1, "text");
    }
    SetLogLevel(0xFF, 0);
    fclose(stdout);
    stdout = saved;
}
BENCHMARK(EnabledLine)->Name("PrintLog, enabled/orvatool");

void StrftimeAndFprintf(benchmark::State& state) {
    FILE* const file = fopen("/dev/null", "w");
    for (auto _ : state) {
        const time_t now = time(nullptr);
        char stamp[32];
        strftime(stamp, sizeof stamp, "%FT%T", localtime(&now));
        fprintf(file, "[%s:%s] %s [%s %s %d]: %d %s\n", "", stamp, "Debug", "bench", __func__,
                __LINE__, 1, "text");
    }
    fclose(file);
}
BENCHMARK(StrftimeAndFprintf)->Name("PrintLog, enabled/strftime+fprintf");

}  // namespace
