// systemEx call by call: no child, no shell, an interrupted wait.

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <set>
#include <string>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/support/open_descriptors.h"
#include "tests/util/fileutils/fake_children.h"
#include "util/fileutils.h"

namespace {

class systemExTest : public KeepsDescriptors {
protected:
    FakeChildren fake_;
};

}  // namespace

TEST_F(systemExTest, IsMinus1WithoutAChild) {
    CapturedLog log;
    CapturedStream errors(stderr);
    fake_.vfork_errno = EAGAIN;
    EXPECT_EQ(systemEx("true"), -1);
    EXPECT_EQ(errors.Take(), "vfork fail!!!\n: Resource temporarily unavailable\n");
    fake_.vfork_errno = ENOMEM;
    EXPECT_EQ(systemEx("true"), -1);
    EXPECT_EQ(errors.Take(), "vfork fail!!!\n: Cannot allocate memory\n");
    EXPECT_EQ(fake_.vfork_calls, 2);
    EXPECT_EQ(fake_.wait_calls, 0);
    EXPECT_EQ(fake_.exec->calls, 0);
    EXPECT_EQ(log.TakeText(), "");
}

TEST_F(systemExTest, MakesNoChildForNull) {
    EXPECT_EQ(systemEx(nullptr), -2);
    EXPECT_EQ(fake_.vfork_calls, 0);
    EXPECT_EQ(fake_.wait_calls, 0);
}

TEST_F(systemExTest, StartsTheShellWithTheCommand) {
    systemEx("echo  \"a\" && true");
    EXPECT_EQ(fake_.exec->calls, 1);
    EXPECT_STREQ(fake_.exec->path, "/bin/sh");
    ASSERT_EQ(fake_.exec->argument_count, 3);
    EXPECT_STREQ(fake_.exec->arguments[0], "sh");
    EXPECT_STREQ(fake_.exec->arguments[1], "-c");
    EXPECT_STREQ(fake_.exec->arguments[2], "echo  \"a\" && true");
}

TEST_F(systemExTest, ClosesNothingInTheChild) {
    systemEx("true");
    const std::set<int> open = OpenDescriptors();
    for (int fd = 0; fd < ExecRecord::kDescriptors; ++fd) {
        EXPECT_EQ(fake_.exec->is_open[fd], open.contains(fd)) << fd;
    }
}

TEST_F(systemExTest, IsZeroWhenTheShellCannotBeStarted) {
    CapturedLog log;
    CapturedStream errors(stderr);
    EXPECT_EQ(systemEx("exit 3"), 0);
    EXPECT_EQ(fake_.exec->calls, 1);
    EXPECT_EQ(log.TakeText() + errors.Take(), "");
}

TEST_F(systemExTest, EndsTheChildWithoutFlushingStreams) {
    CapturedStream output(stdout);
    printf("still in the buffer");
    EXPECT_EQ(systemEx("true"), 0);
    EXPECT_EQ(output.Take(), "still in the buffer");  // once
}

TEST_F(systemExTest, WaitsOnceForThatChild) {
    EXPECT_EQ(systemEx("true"), 0);
    EXPECT_EQ(fake_.wait_calls, 1);
    EXPECT_GT(fake_.child, 0);
    EXPECT_EQ(fake_.awaited, fake_.child);
    EXPECT_EQ(fake_.wait_options, 0);
    EXPECT_EQ(fake_.status_before, 0);
}

TEST_F(systemExTest, IsZeroAfterAnInterruptedWait) {
    CapturedLog log;
    CapturedStream errors(stderr);
    fake_.interrupted = true;
    EXPECT_EQ(systemEx("exit 3"), 0);
    EXPECT_EQ(fake_.wait_calls, 1);  // and does not try again
    EXPECT_EQ(log.TakeText() + errors.Take(), "");
    fake_.interrupted = false;
    int status;
    EXPECT_EQ(waitpid(fake_.child, &status, 0), fake_.child);
}

TEST_F(systemExTest, ChangesNoSignals) {
    struct sigaction handled = {};
    handled.sa_handler = [](int) {};
    struct sigaction old_quit;
    sigaction(SIGQUIT, &handled, &old_quit);
    sigset_t mask;
    sigset_t old_mask;
    sigemptyset(&mask);
    sigaddset(&mask, SIGUSR2);
    sigprocmask(SIG_BLOCK, &mask, &old_mask);
    systemEx("true");
    EXPECT_EQ(fake_.during_wait[0].sa_handler, SIG_DFL);
    EXPECT_EQ(fake_.during_wait[1].sa_handler, handled.sa_handler);
    EXPECT_EQ(fake_.during_wait[2].sa_handler, SIG_DFL);
    EXPECT_EQ(fake_.exec->interrupt.sa_handler, SIG_DFL);
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGUSR2, SIGTERM, SIGCHLD}) {
        const int blocked = signal == SIGUSR2 ? 1 : 0;
        EXPECT_EQ(sigismember(&fake_.mask_during_wait, signal), blocked) << signal;
        EXPECT_EQ(sigismember(&fake_.exec->mask, signal), blocked) << signal;
    }
    sigprocmask(SIG_SETMASK, &old_mask, nullptr);
    sigaction(SIGQUIT, &old_quit, nullptr);
}
