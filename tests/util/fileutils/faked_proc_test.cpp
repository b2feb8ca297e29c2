// CloseChildProcFd call by call, over a folder of the test's own.

#include <dirent.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "util/fileutils.h"

namespace {

using Texts = std::vector<std::string>;

// While it lives, opendir gives a folder of these names, and what happens to it is recorded. The
// name "own" stands for the folder's own descriptor.
struct FakeProc {
    explicit FakeProc(Texts entries) : names(std::move(entries)) { active = this; }
    ~FakeProc() {
        active = nullptr;
        closedir(folder);
    }

    DIR* const folder = opendir("/");
    Texts names;
    size_t given = 0;
    struct dirent entry = {};
    Texts calls;

    inline static FakeProc* active = nullptr;
};

Texts CallsOf(int pid, const Texts& names) {
    FakeProc proc(names);
    EXPECT_EQ(CloseChildProcFd(pid), 1);
    return proc.calls;
}

}  // namespace

extern "C" {

DIR* __real_opendir(const char* path);
DIR* __wrap_opendir(const char* path) {
    if (FakeProc::active == nullptr) {
        return __real_opendir(path);
    }
    FakeProc::active->calls.push_back(std::string("opendir ") + path);
    return FakeProc::active->folder;
}

struct dirent* __real_readdir(DIR* folder);
struct dirent* __wrap_readdir(DIR* folder) {
    FakeProc* proc = FakeProc::active;
    if (proc == nullptr) {
        return __real_readdir(folder);
    }
    EXPECT_EQ(folder, proc->folder);
    if (proc->given == proc->names.size()) {
        errno = EBADF;  // as when the folder's own descriptor was closed
        return nullptr;
    }
    const std::string& name = proc->names[proc->given++];
    strcpy(proc->entry.d_name,
           name == "own" ? std::to_string(dirfd(folder)).c_str() : name.c_str());
    return &proc->entry;
}

int __real_closedir(DIR* folder);
int __wrap_closedir(DIR* folder) {
    if (FakeProc::active == nullptr) {
        return __real_closedir(folder);
    }
    EXPECT_EQ(folder, FakeProc::active->folder);
    FakeProc::active->calls.push_back("closedir");
    errno = EBADF;
    return -1;
}

int __real_close(int fd);
int __wrap_close(int fd) {
    if (FakeProc::active == nullptr) {
        return __real_close(fd);
    }
    const bool is_own = fd == dirfd(FakeProc::active->folder);
    FakeProc::active->calls.push_back("close " + (is_own ? "own" : std::to_string(fd)));
    errno = EBADF;
    return -1;
}
}

TEST(CloseChildProcFd, ClosesEachNumberButTheDots) {
    EXPECT_EQ(CallsOf(1234, {".", "..", "0", "1", "2", "170", "255"}),
              (Texts{"opendir /proc/1234/fd/", "close 0", "close 1", "close 2", "close 170",
                     "close 255", "closedir"}));
}

TEST(CloseChildProcFd, ClosesTheFolderThatItReads) {
    EXPECT_EQ(CallsOf(1, {"own", "200"}),
              (Texts{"opendir /proc/1/fd/", "close own", "close 200", "closedir"}));
}

TEST(CloseChildProcFd, TakesEntriesInTheOrderOfTheFolder) {
    EXPECT_EQ(CallsOf(1, {"205", "..", "203", ".", "204"}),
              (Texts{"opendir /proc/1/fd/", "close 205", "close 203", "close 204", "closedir"}));
}

TEST(CloseChildProcFd, ReadsNamesAsDecimalNumbers) {
    EXPECT_EQ(CallsOf(1, {"0100", "70x", "...", "2147483647"}),
              (Texts{"opendir /proc/1/fd/", "close 100", "close 70", "close 0", "close 2147483647",
                     "closedir"}));
}

TEST(CloseChildProcFd, StopsAtTheLimitsOf32Bits) {
    EXPECT_EQ(CallsOf(1, {"2147483648", "99999999999999999999", "-99999999999"}),
              (Texts{"opendir /proc/1/fd/", "close 2147483647", "close 2147483647",
                     "close -2147483648", "closedir"}));
}

TEST(CloseChildProcFd, NamesTheFolderOfAnyNumber) {
    EXPECT_EQ(CallsOf(0, {}), (Texts{"opendir /proc/0/fd/", "closedir"}));
    EXPECT_EQ(CallsOf(INT_MAX, {}), (Texts{"opendir /proc/2147483647/fd/", "closedir"}));
    EXPECT_EQ(CallsOf(INT_MIN, {}), (Texts{"opendir /proc/-2147483648/fd/", "closedir"}));
}
