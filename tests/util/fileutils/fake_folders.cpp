// The replaced folder calls. Without a FakeFolders they do what they always do.

#include "tests/util/fileutils/fake_folders.h"

extern "C" {

struct dirent* __real_readdir(DIR* folder);
struct dirent* __wrap_readdir(DIR* folder) {
    FakeFolders* fake = FakeFolders::active();
    return fake != nullptr && fake->on_readdir ? fake->on_readdir() : __real_readdir(folder);
}

int __real_stat(const char* path, struct stat* out);
int __wrap_stat(const char* path, struct stat* out) {
    FakeFolders* fake = FakeFolders::active();
    if (fake == nullptr) {
        return __real_stat(path, out);
    }
    fake->stat_paths.emplace_back(path);
    return fake->on_stat ? fake->on_stat(path, out) : __real_stat(path, out);
}

int __real_systemEx(const char* command);
int __wrap_systemEx(const char* command) {
    FakeFolders* fake = FakeFolders::active();
    if (fake == nullptr) {
        return __real_systemEx(command);
    }
    fake->commands.emplace_back(command);
    return fake->on_command ? fake->on_command(command) : __real_systemEx(command);
}
}
