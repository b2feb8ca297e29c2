// Takes what the process writes to standard output or standard error.
#ifndef TESTS_SUPPORT_CAPTURED_STREAM_H
#define TESTS_SUPPORT_CAPTURED_STREAM_H

#include <sys/types.h>

#include <cstdio>
#include <string>

// While it lives, the stream's descriptor leads into a file in memory: raw writes and the output
// of child processes are taken too.
class CapturedStream {
public:
    explicit CapturedStream(FILE* stream);
    ~CapturedStream();
    CapturedStream(const CapturedStream&) = delete;
    CapturedStream& operator=(const CapturedStream&) = delete;

    // What was written since the start or the last call; flushes the stream.
    std::string Take();

private:
    FILE* stream_;
    int saved_fd_;
    int file_fd_;
    off_t taken_ = 0;
};

#endif
