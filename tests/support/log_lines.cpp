// Parsing and formatting log lines.

#include "tests/support/log_lines.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <ostream>
#include <regex>

#include "log/log.h"

namespace {

constexpr unsigned int kAllLevels = 0xFF;

const char* LevelName(int level) {
    switch (level) {
        case LOG_ERROR:
            return "Error";
        case LOG_WARNING:
            return "Warning";
        case LOG_INFO:
            return "Info";
        case LOG_DEBUG:
            return "Debug";
        default:
            return "no level";
    }
}

void ExpectLineNumber(int number, const std::string& function) {
    EXPECT_GT(number, 0) << "the number of a line that " << function << " logs";
}

struct Parsed {
    LogHead head;
    LogLine line;
};

std::vector<Parsed> Parse(const std::string& text) {
    static const std::regex head(
        R"(\[([^\]\n]*):([-\d]\d{3}-\d\d-\d\dT\d\d:\d\d:\d\d)\](?:\[([^\]\n]*)\])?)"
        R"( (\w+) \[(\S+) (\S+) (-?\d+)\]: )");
    std::vector<Parsed> lines;
    auto match = std::sregex_iterator(text.begin(), text.end(), head);
    for (const auto end = std::sregex_iterator(); match != end;) {
        const std::smatch current = *match++;
        const auto from = current.position() + current.length();
        const auto to = match != end ? match->position() : static_cast<ptrdiff_t>(text.size());
        std::string message(text.begin() + from, text.begin() + to);
        if (message.ends_with('\n')) {
            message.pop_back();
        }
        const auto thread = current[3].matched ? std::optional(current[3].str()) : std::nullopt;
        lines.push_back({{current[1], current[2], thread, std::stoi(current[7])},
                         {current[4], current[5], current[6], message}});
    }
    return lines;
}

}  // namespace

LogLine MakeLogLine(int level, const char* file, const char* function, int number,
                    const char* format, va_list values) {
    char message[4096];
    vsnprintf(message, sizeof message, format, values);
    ExpectLineNumber(number, function);
    return {LevelName(level), file, function, message};
}

std::string ToText(const LogLine& line) {
    std::string text = line.level + ' ' + line.file + ' ' + line.function + ": ";
    for (const char c : line.message) {
        text += c == '\n' ? "\\n" : std::string(1, c);
    }
    return text;
}

std::ostream& operator<<(std::ostream& out, const LogLine& line) {
    return out << ToText(line);
}

std::vector<LogLine> ParseLog(const std::string& text) {
    std::vector<LogLine> lines;
    for (const Parsed& parsed : Parse(text)) {
        ExpectLineNumber(parsed.head.number, parsed.line.function);
        lines.push_back(parsed.line);
    }
    return lines;
}

std::vector<LogHead> ParseLogHeads(const std::string& text) {
    std::vector<LogHead> heads;
    for (const Parsed& parsed : Parse(text)) {
        heads.push_back(parsed.head);
    }
    return heads;
}

CapturedLog::CapturedLog() : output_(stdout), saved_level_(GetLogLevel()) {
    SetLogLevel(kAllLevels, 1);
}

CapturedLog::~CapturedLog() {
    SetLogLevel(kAllLevels, 0);
    SetLogLevel(saved_level_, 1);
}
