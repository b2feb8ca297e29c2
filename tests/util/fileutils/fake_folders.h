// The calls behind the folder functions, answered by the test. Link with WRAP readdir stat
// systemEx.
#ifndef TESTS_UTIL_FILEUTILS_FAKE_FOLDERS_H
#define TESTS_UTIL_FILEUTILS_FAKE_FOLDERS_H

#include <dirent.h>
#include <sys/stat.h>

#include <functional>
#include <string>
#include <vector>

// While it lives, the calls are recorded and go to the functions that the test sets; those that are
// empty stand for the real call.
class FakeFolders {
public:
    FakeFolders() { active_ = this; }
    ~FakeFolders() { active_ = nullptr; }
    FakeFolders(const FakeFolders&) = delete;
    FakeFolders& operator=(const FakeFolders&) = delete;

    static FakeFolders* active() { return active_; }

    std::function<struct dirent*()> on_readdir;
    std::function<int(const std::string& path, struct stat* out)> on_stat;
    std::function<int(const std::string& command)> on_command;

    std::vector<std::string> stat_paths;
    std::vector<std::string> commands;

private:
    inline static FakeFolders* active_ = nullptr;
};

#endif
