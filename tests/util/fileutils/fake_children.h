// The calls that make, start and await a child. Link with WRAP execl vfork waitpid.
#ifndef TESTS_UTIL_FILEUTILS_FAKE_CHILDREN_H
#define TESTS_UTIL_FILEUTILS_FAKE_CHILDREN_H

#include <sys/types.h>

#include <csignal>

#include "tests/util/fileutils/shared_record.h"

// What the child handed to execl, which fails.
struct ExecRecord {
    static constexpr int kMost = 8;
    static constexpr int kDescriptors = 1024;

    int calls;
    char path[64];
    char arguments[kMost][64];
    int argument_count;  // up to the ending null pointer
    bool is_open[kDescriptors];
    sigset_t mask;
    struct sigaction interrupt;
};

// While it lives, vfork fails or forks, and execl does not start anything.
class FakeChildren {
public:
    FakeChildren() { active_ = this; }
    ~FakeChildren() { active_ = nullptr; }
    FakeChildren(const FakeChildren&) = delete;
    FakeChildren& operator=(const FakeChildren&) = delete;

    static FakeChildren* active() { return active_; }

    // The setting.
    int vfork_errno = 0;       // vfork fails with it unless 0
    bool interrupted = false;  // waitpid gives EINTR

    // What happened.
    int vfork_calls = 0;
    int wait_calls = 0;
    pid_t child = 0;
    pid_t awaited = 0;
    int wait_options = -1;
    int status_before = -1;
    struct sigaction during_wait[3] = {};  // of SIGINT, SIGQUIT, SIGCHLD
    sigset_t mask_during_wait = {};
    SharedRecord<ExecRecord> exec;

private:
    inline static FakeChildren* active_ = nullptr;
};

#endif
