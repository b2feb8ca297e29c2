// Peers for the log. All write to the stream stdout, which leads to /dev/null while time is taken.

#define SPDLOG_LEVEL_NAMES \
    { "Trace", "Debug", "Info", "Warning", "Error", "Critical", "Off" }
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/base_sink.h>
#include <spdlog/spdlog.h>

#include <cstdarg>
#include <cstring>

#include "bench/cases/log.h"
#include "bench/peers/row.h"
#include "bench/peers/rows.h"

namespace {

// spdlog's own sink flushes after each line; the log does not.
class StreamSink : public spdlog::sinks::base_sink<spdlog::details::null_mutex> {
protected:
    void sink_it_(const spdlog::details::log_msg& message) override {
        spdlog::memory_buf_t line;
        formatter_->format(message, line);
        fwrite(line.data(), 1, line.size(), stdout);
    }
    void flush_() override {}
};

spdlog::logger MakeLogger() {
    spdlog::logger logger("bench", std::make_shared<StreamSink>());
    logger.set_pattern("[bench:%Y-%m-%dT%H:%M:%S] %l [%s %! %#]: %v");
    return logger;
}

// A logger for each zone: it keeps the broken-down time of the last second.
template <class Case>
PEER void Spdlog(int number, const char* text) {
    static spdlog::logger logger = MakeLogger();
    logger.log(spdlog::source_loc{"file", 120, "Function"}, spdlog::level::info, "{} {}", number,
               text);
}

PEER void StrftimeFprintf(int number, const char* text) {
    const time_t now = time(nullptr);
    char stamp[32];
    strftime(stamp, sizeof stamp, "%FT%T", localtime(&now));
    fprintf(stdout, "[%s:%s] %s [%s %s %d]: %d %s\n", "bench", stamp, "Info", "file", "Function",
            120, number, text);
}

// The calls that every line makes: clock, local time, one printf for the head, here of a text that
// is ready, one vfprintf for the message, one newline.
PEER void FixedCalls(int /*level*/, const char* /*file*/, const char* /*function*/, int /*line*/,
                     const char* format, ...) {
    static const char* const head = "[bench:2024-05-07T08:09:10] Info [file Function 120]: ";
    const time_t now = time(nullptr);
    benchmark::DoNotOptimize(localtime(&now));
    const char* text = head;
    benchmark::DoNotOptimize(text);  // or the compiler makes fputs of it
    printf("%s", text);
    va_list values;
    va_start(values, format);
    vfprintf(stdout, format, values);
    va_end(values);
    putchar('\n');
}

// Everything that the row's lines come to, in one text.
template <class Case, auto kFunction>
std::string LinesOf() {
    Case::Begin();
    FILE* const dev_null = stdout;
    char* lines = nullptr;
    size_t size = 0;
    stdout = open_memstream(&lines, &size);
    for (const auto& input : Case::Inputs()) {
        Case::template Call<kFunction>(input);
    }
    fclose(stdout);
    stdout = dev_null;
    Case::End();
    const std::string result(lines, size);
    free(lines);
    return result;
}

template <class Case, auto kPeer>
void CheckLines(const char* name) {
    constexpr int kAttempts = 5;  // the second may change between the two
    for (int i = 0; i < kAttempts; ++i) {
        if (LinesOf<Case, kPeer>() == LinesOf<Case, PrintLog>()) {
            return;
        }
    }
    FailUnequal(Case::Name(), name);
}

template <class Case>
void AddRow() {
    if (IsWanted(Case::Name())) {
        CheckLines<Case, Spdlog<Case>>("spdlog");
        CheckLines<Case, StrftimeFprintf>("strftime, fprintf");
    }
    Row<Case, PrintLog>()
        .template Peer<Spdlog<Case>>("spdlog")
        .template Peer<StrftimeFprintf>("strftime, fprintf")
        .template Floor<FixedCalls>("time, localtime, printf, vfprintf");
}

}  // namespace

void AddLogRows() {
    AddRow<LogOn<Zone::kSet>>();
    AddRow<LogOn<Zone::kUnset>>();
    // An empty variadic call stands beside every row as its limit; here it is the peer.
    Row<LogOff, PrintLog>().Peer<Empty<decltype(&PrintLog)>::Call>("an empty variadic call");
}
