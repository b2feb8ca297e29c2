// CloseChildProcFd, in forked children but where it closes nothing of ours.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <set>
#include <string>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/support/open_descriptors.h"
#include "tests/util/fileutils/shared_record.h"
#include "util/fileutils.h"

namespace {

using Lines = std::vector<LogLine>;

// Numbers that neither the test runner nor an emulator uses.
constexpr int kFirst = 301;
constexpr int kSecond = 302;
constexpr int kThird = 303;

// Runs body in a forked child and waits for its end.
template <typename Body>
void InChild(Body body) {
    const pid_t child = fork();
    if (child == 0) {
        body();
        _exit(0);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
}

// A process that has only these descriptors open, until the end of the test.
class OtherProcess {
public:
    explicit OtherProcess(const std::set<int>& open) {
        int ready[2];
        EXPECT_EQ(pipe(ready), 0);
        pid_ = fork();
        if (pid_ == 0) {
            for (const int fd : open) {
                dup2(STDIN_FILENO, fd);
            }
            for (const int fd : OpenDescriptors()) {
                if (!open.contains(fd) && fd != ready[1]) {
                    close(fd);
                }
            }
            close(ready[1]);  // tells the test
            for (;;) {
                pause();
            }
        }
        close(ready[1]);
        char byte;
        EXPECT_EQ(read(ready[0], &byte, 1), 0);
        close(ready[0]);
    }
    ~OtherProcess() {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }

    pid_t pid() const { return pid_; }

private:
    pid_t pid_;
};

class CloseChildProcFdTest : public KeepsDescriptors {};

}  // namespace

TEST_F(CloseChildProcFdTest, ClosesAllOfItsOwnProcess) {
    struct Record {
        int result;
        int left;
        int next;
    };
    SharedRecord<Record> record;
    InChild([&] {
        for (const int fd : {kFirst, kSecond, kThird}) {
            dup2(STDIN_FILENO, fd);
        }
        record->result = CloseChildProcFd(getpid());
        record->left = static_cast<int>(OpenDescriptors().size());
        record->next = open("/dev/null", O_RDONLY);
    });
    EXPECT_EQ(record->result, 1);
    EXPECT_EQ(record->left, 0);
    EXPECT_EQ(record->next, 0);
}

TEST_F(CloseChildProcFdTest, ClosesTheNumbersOfAnotherProcessHere) {
    const OtherProcess other({kFirst, kThird});
    for (const int fd : {kFirst, kSecond, kThird}) {
        ASSERT_EQ(dup2(STDIN_FILENO, fd), fd);
    }
    CapturedLog log;
    CapturedStream errors(stderr);
    std::set<int> expected = OpenDescriptors();
    expected.erase(kFirst);
    expected.erase(kThird);
    EXPECT_EQ(CloseChildProcFd(other.pid()), 1);
    EXPECT_EQ(OpenDescriptors(), expected);
    EXPECT_EQ(log.TakeText() + errors.Take(), "");
    close(kSecond);
}

TEST_F(CloseChildProcFdTest, IgnoresNumbersThatAreNotOpenHere) {
    const OtherProcess other({kFirst});
    EXPECT_EQ(CloseChildProcFd(other.pid()), 1);
}

TEST_F(CloseChildProcFdTest, ClosesNothingForNoProcess) {
    const pid_t gone = fork();
    if (gone == 0) {
        _exit(0);
    }
    waitpid(gone, nullptr, 0);
    CapturedLog log;
    CapturedStream errors(stderr);
    const std::set<int> before = OpenDescriptors();
    for (const int pid : {gone, 0, -1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(CloseChildProcFd(pid), 1);
        EXPECT_EQ(
            log.Take(),
            (Lines{{"Warning", "fileutils", "CloseChildProcFd", "Couldn't open the directory."}}))
            << pid;
    }
    EXPECT_EQ(OpenDescriptors(), before);
    EXPECT_EQ(errors.Take(), "");
}

TEST(CloseChildProcFd, LeavesOpenWhatFollowsTheBlockWithTheListingsOwnNumber) {
    constexpr int kEnd = 4000;
    struct rlimit limit;
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
    // The hard limit is the machine's, and only root may raise it: the fact needs many more
    // descriptors than one block of the listing holds.
    if (limit.rlim_max < kEnd) {
        GTEST_SKIP() << "the hard limit of descriptors is " << limit.rlim_max << ", below " << kEnd;
    }
    struct Record {
        int first_left;
        int left;
    };
    // The listing gets the lowest free number.
    for (const int free_number : {5, kEnd - 10}) {
        SharedRecord<Record> record;
        InChild([&] {
            limit.rlim_cur = limit.rlim_max;
            setrlimit(RLIMIT_NOFILE, &limit);
            for (int fd = 3; fd < kEnd; ++fd) {
                dup2(STDIN_FILENO, fd);
            }
            close(free_number);
            CloseChildProcFd(getpid());
            for (int fd = kEnd - 1; fd >= 0; --fd) {
                if (fcntl(fd, F_GETFD) >= 0) {
                    record->first_left = fd;
                    ++record->left;
                }
            }
        });
        if (free_number == 5) {
            EXPECT_GT(record->first_left, 1000);
            EXPECT_LT(record->first_left, 1600);
            EXPECT_EQ(record->left, kEnd - record->first_left);
        } else {
            EXPECT_EQ(record->left, 0);
        }
    }
}
