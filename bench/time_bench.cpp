// Time: counting seconds, calendars, date texts.

#include <benchmark/benchmark.h>

#include <ctime>

#include "util/timeutils.h"

namespace {

TTime Record(int day_of_month) {
    TTime rec = {};
    rec.tm_year = 124;
    rec.tm_mon = 4;
    rec.tm_mday = day_of_month;
    rec.tm_hour = 8;
    return rec;
}

template <int kDayOfMonth>
void Mktime(benchmark::State& state) {
    for (auto _ : state) {
        TTime rec = Record(kDayOfMonth);
        benchmark::DoNotOptimize(rec);
        benchmark::DoNotOptimize(mktime_1(&rec));
    }
}

template <int kDayOfMonth>
void Timegm(benchmark::State& state) {
    for (auto _ : state) {
        TTime rec = Record(kDayOfMonth);
        benchmark::DoNotOptimize(rec);
        benchmark::DoNotOptimize(timegm(&rec));
    }
}

BENCHMARK(Mktime<7>)->Name("mktime_1, in range/orvatool");
BENCHMARK(Timegm<7>)->Name("mktime_1, in range/timegm");
BENCHMARK(Mktime<-700000>)->Name("mktime_1, day -700,000/orvatool");
BENCHMARK(Timegm<-700000>)->Name("mktime_1, day -700,000/timegm");
BENCHMARK(Mktime<2000000000>)->Name("mktime_1, day 2e9/orvatool");
BENCHMARK(Timegm<2000000000>)->Name("mktime_1, day 2e9/timegm");

template <int kCalendarMode>
void ToCalendar(benchmark::State& state) {
    for (auto _ : state) {
        TTime rec = Record(7);
        benchmark::DoNotOptimize(rec);
        benchmark::DoNotOptimize(ChrisTmToLocalTm(kCalendarMode, &rec));
    }
}

// The Gregorian calendar by the C library, from a seconds count.
void GmtimeR(benchmark::State& state) {
    time_t seconds = 1715068800;
    for (auto _ : state) {
        TTime rec;
        benchmark::DoNotOptimize(seconds);
        benchmark::DoNotOptimize(gmtime_r(&seconds, &rec));
    }
}

BENCHMARK(ToCalendar<CALENDAR_PERSIAN>)->Name("to Persian/orvatool");
BENCHMARK(GmtimeR)->Name("to Persian/gmtime_r");
BENCHMARK(ToCalendar<CALENDAR_ISLAMIC>)->Name("to Islamic/orvatool");
BENCHMARK(GmtimeR)->Name("to Islamic/gmtime_r");

void WriteDate(benchmark::State& state) {
    for (auto _ : state) {
        char text[11];
        FormatDate(text, 9, 2024, 5, 7);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(WriteDate)->Name("FormatDate/orvatool");

void Strftime(benchmark::State& state) {
    const TTime rec = Record(7);
    for (auto _ : state) {
        char text[11];
        strftime(text, sizeof text, "%Y-%m-%d", &rec);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(Strftime)->Name("FormatDate/strftime");

}  // namespace
