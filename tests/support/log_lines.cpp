// Parsing log lines.

#include "tests/support/log_lines.h"

#include <ostream>
#include <regex>

#include "log/log.h"

namespace {

constexpr unsigned int kAllLevels = 0xFF;

}  // namespace

std::ostream& operator<<(std::ostream& out, const LogLine& line) {
    return out << line.level << " [" << line.file << ' ' << line.function << "]: " << line.message;
}

std::vector<LogLine> ParseLog(const std::string& text) {
    static const std::regex head(
        R"(\[[^\]\n]*:\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\](?:\[[^\]\n]*\])? (\w+) \[(\S+) (\S+) \d+\]: )");
    std::vector<LogLine> lines;
    auto match = std::sregex_iterator(text.begin(), text.end(), head);
    for (const auto end = std::sregex_iterator(); match != end;) {
        const std::smatch current = *match++;
        const auto from = current.position() + current.length();
        const auto to = match != end ? match->position() : static_cast<ptrdiff_t>(text.size());
        std::string message(text.begin() + from, text.begin() + to);
        if (message.ends_with('\n')) {
            message.pop_back();
        }
        lines.push_back({current[1], current[2], current[3], message});
    }
    return lines;
}

CapturedLog::CapturedLog() : output_(stdout), saved_level_(GetLogLevel()) {
    SetLogLevel(kAllLevels, 1);
}

CapturedLog::~CapturedLog() {
    SetLogLevel(kAllLevels, 0);
    SetLogLevel(saved_level_, 1);
}
