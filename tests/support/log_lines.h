// A log line in tests: what it holds, how it is read back and how it is shown.
#ifndef TESTS_SUPPORT_LOG_LINES_H
#define TESTS_SUPPORT_LOG_LINES_H

#include <cstdarg>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/captured_stream.h"

struct LogLine {
    std::string level;
    std::string file;
    std::string function;
    std::string message;  // without the newline that the log adds

    bool operator==(const LogLine&) const = default;
};

// What else stands in front of a message.
struct LogHead {
    std::string program;
    std::string stamp;                  // as in "2024-05-07T08:09:10"
    std::optional<std::string> thread;  // none in lines without thread names
    int number;                         // of the source's line
};

// The line that these arguments of PrintLog ask for. The number must be positive.
LogLine MakeLogLine(int level, const char* file, const char* function, int number,
                    const char* format, va_list values);

// As in "Info udiskdetection DoUmount: umounted", with line ends written as \n.
std::string ToText(const LogLine& line);

std::ostream& operator<<(std::ostream& out, const LogLine& line);

// Splits text at the heads of its lines; what stands before the first head is left out. Every
// number must be positive.
std::vector<LogLine> ParseLog(const std::string& text);

// The heads of the same lines.
std::vector<LogHead> ParseLogHeads(const std::string& text);

// Enables all levels and takes standard output while it lives.
class CapturedLog {
public:
    CapturedLog();
    ~CapturedLog();

    // The lines since the start or the last call.
    std::vector<LogLine> Take() { return ParseLog(output_.Take()); }

    // Their heads instead.
    std::vector<LogHead> TakeHeads() { return ParseLogHeads(output_.Take()); }

    // Everything since the start or the last call, as written.
    std::string TakeText() { return output_.Take(); }

private:
    CapturedStream output_;
    unsigned char saved_level_;
};

#endif
