// Reading the log back: the lines that the code under test wrote, without stamp and line number.
#ifndef TESTS_SUPPORT_LOG_LINES_H
#define TESTS_SUPPORT_LOG_LINES_H

#include <iosfwd>
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

std::ostream& operator<<(std::ostream& out, const LogLine& line);

// Splits text at the heads of its lines; what stands before the first head is left out.
std::vector<LogLine> ParseLog(const std::string& text);

// Enables all levels and takes standard output while it lives.
class CapturedLog {
public:
    CapturedLog();
    ~CapturedLog();

    // The lines since the start or the last call.
    std::vector<LogLine> Take() { return ParseLog(output_.Take()); }

    // Everything since the start or the last call, as written.
    std::string TakeText() { return output_.Take(); }

private:
    CapturedStream output_;
    unsigned char saved_level_;
};

#endif
