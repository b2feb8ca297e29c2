// Standard output as a stream of our own, which shows every single write.
#ifndef TESTS_LOG_REPLACED_STDOUT_H
#define TESTS_LOG_REPLACED_STDOUT_H

#include <cstdio>
#include <string>
#include <vector>

// While it lives, what is printed arrives here, one write per stream call unless Buffer was called.
class ReplacedStdout {
public:
    ReplacedStdout();
    ~ReplacedStdout();
    ReplacedStdout(const ReplacedStdout&) = delete;
    ReplacedStdout& operator=(const ReplacedStdout&) = delete;

    // Makes the stream fully buffered, as it is on a file.
    void Buffer(size_t size);

    // From now on every write arrives but fails, with errno set to number.
    void FailWith(int number) { failure_ = number; }

    // What arrived since the start or the last call. Flushes nothing.
    std::vector<std::string> TakeWrites();
    std::string TakeText();

private:
    static ssize_t Write(void* self, const char* data, size_t size);

    FILE* saved_stdout_;
    std::vector<char> buffer_;
    std::vector<std::string> writes_;
    int failure_ = 0;
};

#endif
