// The replaced process calls. Without a FakeChildren, waitpid does what it always does.

#include "tests/util/fileutils/fake_children.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

extern "C" {

// It may not pass the call on: the child would return from here on the stack that both use.
pid_t __wrap_vfork() {
    FakeChildren* fake = FakeChildren::active();
    ++fake->vfork_calls;
    if (fake->vfork_errno != 0) {
        errno = fake->vfork_errno;
        return -1;
    }
    fake->child = fork();
    return fake->child;
}

int __wrap_execl(const char* path, const char* first, ...) {
    ExecRecord& record = *FakeChildren::active()->exec.operator->();
    ++record.calls;
    snprintf(record.path, sizeof record.path, "%s", path);
    va_list values;
    va_start(values, first);
    for (const char* value = first; value != nullptr && record.argument_count < ExecRecord::kMost;
         value = va_arg(values, const char*)) {
        char* argument = record.arguments[record.argument_count++];
        snprintf(argument, sizeof record.arguments[0], "%s", value);
    }
    va_end(values);
    for (int fd = 0; fd < ExecRecord::kDescriptors; ++fd) {
        record.is_open[fd] = fcntl(fd, F_GETFD) >= 0;
    }
    sigprocmask(SIG_BLOCK, nullptr, &record.mask);
    sigaction(SIGINT, nullptr, &record.interrupt);
    errno = ENOENT;
    return -1;
}

pid_t __real_waitpid(pid_t pid, int* status, int options);
pid_t __wrap_waitpid(pid_t pid, int* status, int options) {
    FakeChildren* fake = FakeChildren::active();
    if (fake == nullptr) {
        return __real_waitpid(pid, status, options);
    }
    ++fake->wait_calls;
    fake->awaited = pid;
    fake->wait_options = options;
    fake->status_before = *status;
    sigaction(SIGINT, nullptr, &fake->during_wait[0]);
    sigaction(SIGQUIT, nullptr, &fake->during_wait[1]);
    sigaction(SIGCHLD, nullptr, &fake->during_wait[2]);
    sigprocmask(SIG_BLOCK, nullptr, &fake->mask_during_wait);
    if (fake->interrupted) {
        errno = EINTR;
        return -1;
    }
    return __real_waitpid(pid, status, options);
}
}
