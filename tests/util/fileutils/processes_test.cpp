// systemEx with the real shell.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>
#include <thread>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/support/open_descriptors.h"
#include "util/fileutils.h"

namespace {

class systemExTest : public KeepsDescriptors {
protected:
    // What the command prints.
    static std::string OutputOf(const std::string& command) {
        CapturedStream output(stdout);
        EXPECT_EQ(systemEx(command.c_str()), 0);
        return output.Take();
    }

    // The bit mask in the shell's own status file, as in "SigIgn:\t0000000000000200".
    static unsigned long long SignalMask(const std::string& key) {
        const std::string text = OutputOf("cat /proc/$$/status");
        const size_t start = text.find(key + ":\t");
        return start == std::string::npos ? ~0ULL
                                          : strtoull(&text[start + key.size() + 2], nullptr, 16);
    }

    static constexpr unsigned long long Bit(int signal) { return 1ULL << (signal - 1); }
};

}  // namespace

static_assert(sizeof(systemEx("")) == 4);

TEST_F(systemExTest, GivesTheRawWaitStatus) {
    const struct rlimit no_core = {0, 0};
    ASSERT_EQ(setrlimit(RLIMIT_CORE, &no_core), 0);
    const struct {
        const char* command;
        int status;
    } kCases[] = {
        {"true", 0},
        {"", 0},
        {"exit 0", 0},
        {"false", 256},
        {"exit 3", 768},
        {"exit 127", 32512},
        {"exit 255", 65280},
        {"kill -9 $$", SIGKILL},
        {"kill -15 $$", SIGTERM},
        {"kill -6 $$", SIGABRT},
    };
    for (const auto& [command, status] : kCases) {
        EXPECT_EQ(systemEx(command), status) << command;
    }
}

TEST_F(systemExTest, Gives127TimesAs256ForAnUnknownCommand) {
    CapturedStream errors(stderr);
    EXPECT_EQ(systemEx("/no/such/command"), 32512);
    EXPECT_NE(errors.Take(), "");  // the shell's own complaint
}

TEST_F(systemExTest, IsMinus2ForNull) {
    CapturedLog log;
    CapturedStream errors(stderr);
    EXPECT_EQ(systemEx(nullptr), -2);
    EXPECT_EQ(log.TakeText() + errors.Take(), "");
}

TEST_F(systemExTest, ReportsNothingItself) {
    CapturedLog log;
    CapturedStream errors(stderr);
    systemEx("true");
    systemEx("exit 3");
    systemEx("kill -9 $$");
    EXPECT_EQ(log.TakeText() + errors.Take(), "");
}

TEST_F(systemExTest, HandsTheCommandOverAsItStands) {
    EXPECT_EQ(OutputOf("echo  'a  b'; echo \"$((1 + 2))\" | cat; echo %s%n"), "a  b\n3\n%s%n\n");
    EXPECT_EQ(OutputOf("echo $0 $#"), "sh 0\n");
    const std::string text(100000, 'x');
    EXPECT_EQ(OutputOf("echo " + text), text + "\n");
}

TEST_F(systemExTest, InheritsStandardOutputAndError) {
    CapturedStream output(stdout);
    CapturedStream errors(stderr);
    EXPECT_EQ(systemEx("echo out; echo err >&2"), 0);
    EXPECT_EQ(output.Take(), "out\n");
    EXPECT_EQ(errors.Take(), "err\n");
}

TEST_F(systemExTest, InheritsDescriptors) {
    constexpr int kFree = 57;
    ASSERT_EQ(dup2(STDIN_FILENO, kFree), kFree);
    EXPECT_EQ(systemEx("test -e /proc/$$/fd/57"), 0);
    close(kFree);
    EXPECT_EQ(systemEx("test -e /proc/$$/fd/57"), 256);
}

TEST_F(systemExTest, InheritsEnvironmentAndFolder) {
    char folder[4096];
    ASSERT_NE(getcwd(folder, sizeof folder), nullptr);
    ASSERT_EQ(chdir("/proc"), 0);
    setenv("FILEUTILS_TEST", "value", 1);
    EXPECT_EQ(OutputOf("pwd; echo $FILEUTILS_TEST $PPID"),
              "/proc\nvalue " + std::to_string(getpid()) + "\n");
    unsetenv("FILEUTILS_TEST");
    ASSERT_EQ(chdir(folder), 0);
}

TEST_F(systemExTest, ChangesNoSignalsOfTheChild) {
    const auto old_handler = signal(SIGUSR1, SIG_IGN);
    const unsigned long long watched =
        Bit(SIGUSR1) | Bit(SIGUSR2) | Bit(SIGINT) | Bit(SIGQUIT) | Bit(SIGCHLD) | Bit(SIGTERM);
    EXPECT_EQ(SignalMask("SigIgn") & watched, Bit(SIGUSR1));
    signal(SIGUSR1, old_handler);
}

TEST_F(systemExTest, LeavesOtherChildrenAlone) {
    const pid_t other = fork();
    if (other == 0) {
        _exit(5);
    }
    EXPECT_EQ(systemEx("exit 3"), 768);
    int status = 0;
    EXPECT_EQ(waitpid(other, &status, 0), other);
    EXPECT_EQ(status, 5 * 256);
    EXPECT_EQ(waitpid(-1, &status, WNOHANG), -1);  // its own child is gone
}

TEST_F(systemExTest, GivesEachThreadItsOwnStatus) {
    std::array<int, 8> statuses = {};
    std::array<std::thread, statuses.size()> threads;
    for (size_t i = 0; i < threads.size(); ++i) {
        threads[i] =
            std::thread([&, i] { statuses[i] = systemEx(("exit " + std::to_string(i)).c_str()); });
    }
    for (size_t i = 0; i < threads.size(); ++i) {
        threads[i].join();
        EXPECT_EQ(statuses[i], static_cast<int>(i) * 256);
    }
}

TEST(systemEx, IsZeroWhileTheCallerIgnoresSigchld) {
    const auto old_handler = signal(SIGCHLD, SIG_IGN);
    EXPECT_EQ(systemEx("exit 3"), 0);
    EXPECT_EQ(systemEx("kill -9 $$"), 0);
    signal(SIGCHLD, old_handler);
    EXPECT_EQ(systemEx("exit 3"), 768);
}
