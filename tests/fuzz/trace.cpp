// Standard output and standard error in memory.

#include "tests/fuzz/trace.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "log/log.h"
#include "tests/fuzz/input.h"

namespace {

constexpr time_t kNow = 1709644029;
constexpr char kStamp[] = "2024-03-05T14:07:09";
constexpr char kLineNumber = '\0';  // in an expected text
constexpr unsigned int kAllLevels = 0xFF;

bool gIsTracing;

const int kZoneIsSet = setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);

bool Matches(const std::string& traced, const std::string& expected) {
    size_t at = 0;
    for (const char character : expected) {
        if (character == kLineNumber) {
            const size_t end = std::min(traced.find_first_not_of("0123456789", at), traced.size());
            if (end == at) {
                return false;
            }
            at = end;
        } else if (at == traced.size() || traced[at++] != character) {
            return false;
        }
    }
    return at == traced.size();
}

}  // namespace

extern "C" time_t __wrap_time(time_t*) {
    return kNow;
}

std::string Traced(const std::function<void()>& action) {
    FILE* const output = stdout;
    FILE* const errors = stderr;
    char* text = nullptr;
    size_t size = 0;
    stdout = stderr = open_memstream(&text, &size);
    SetLogProgName("orvatool");
    SetLogLevel(kAllLevels, 1);
    gIsTracing = true;
    action();
    gIsTracing = false;
    fclose(stdout);
    stdout = output;
    stderr = errors;
    std::string traced(text, size);
    free(text);
    return traced;
}

bool IsTracing() {
    return gIsTracing;
}

std::string LogText(const char* level, const char* tag, const char* function,
                    const std::string& message) {
    return std::string("[orvatool:") + kStamp + "] " + level + " [" + tag + " " + function + " " +
           kLineNumber + "]: " + message + "\n";
}

void RequireTrace(const std::string& traced, const std::string& expected) {
    if (!Matches(traced, expected)) {
        std::string shown = expected;
        std::replace(shown.begin(), shown.end(), kLineNumber, '#');
        fprintf(stderr, "--- expected\n%s\n--- traced\n%s\n", shown.c_str(), traced.c_str());
    }
    Require(Matches(traced, expected), "the calls and the log lines");
}
