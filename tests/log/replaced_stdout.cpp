// Putting a stream of our own in place of stdout.

#include "tests/log/replaced_stdout.h"

#include <cerrno>
#include <utility>

ReplacedStdout::ReplacedStdout() : saved_stdout_(stdout) {
    fflush(stdout);
    cookie_io_functions_t functions = {};
    functions.write = Write;
    stdout = fopencookie(this, "w", functions);
    setvbuf(stdout, nullptr, _IONBF, 0);
}

ReplacedStdout::~ReplacedStdout() {
    failure_ = 0;
    fclose(std::exchange(stdout, saved_stdout_));
}

void ReplacedStdout::Buffer(size_t size) {
    buffer_.resize(size);
    setvbuf(stdout, buffer_.data(), _IOFBF, buffer_.size());
}

std::vector<std::string> ReplacedStdout::TakeWrites() {
    return std::exchange(writes_, {});
}

std::string ReplacedStdout::TakeText() {
    std::string text;
    for (const std::string& write : TakeWrites()) {
        text += write;
    }
    return text;
}

ssize_t ReplacedStdout::Write(void* cookie, const char* data, size_t size) {
    auto* self = static_cast<ReplacedStdout*>(cookie);
    self->writes_.emplace_back(data, size);
    if (self->failure_ == 0) {
        return static_cast<ssize_t>(size);
    }
    errno = self->failure_;
    return 0;
}
