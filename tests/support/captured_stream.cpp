// Capturing a standard stream in a file in memory.

#include "tests/support/captured_stream.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

CapturedStream::CapturedStream(FILE* stream) : stream_(stream) {
    fflush(stream_);
    saved_fd_ = dup(fileno(stream_));
    file_fd_ = memfd_create("captured", MFD_CLOEXEC);
    if (saved_fd_ < 0 || file_fd_ < 0 || dup2(file_fd_, fileno(stream_)) < 0) {
        perror("capturing a stream");
        abort();
    }
}

CapturedStream::~CapturedStream() {
    const std::string rest = Take();
    dup2(saved_fd_, fileno(stream_));
    close(saved_fd_);
    close(file_fd_);
    if (testing::Test::HasFailure()) {
        fputs(rest.c_str(), stream_);  // GoogleTest's own message was taken, too
    }
}

std::string CapturedStream::Take() {
    fflush(stream_);
    std::string text;
    char block[4096];
    ssize_t got;
    while ((got = pread(file_fd_, block, sizeof block, taken_)) > 0) {
        text.append(block, static_cast<size_t>(got));
        taken_ += static_cast<off_t>(got);
    }
    return text;
}
