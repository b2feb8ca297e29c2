// Creating a chain of directories.

#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include "log/log_line.h"
#include "util/fileutils.h"

namespace {

constexpr const char* kLogTag = log_tag::kFileutils;
constexpr int kPathSize = 1024;
constexpr mode_t kFolderMode = 0777;  // less the umask

}  // namespace

void CreateMulvPath(const char* path) {
    if (path == nullptr) {
        return;
    }
    char prefix[kPathSize] = {};
    strncpy(prefix, path, sizeof prefix - 1);
    const auto length = static_cast<int>(strlen(prefix));
    LOG(LOG_INFO, "%s:%d\n", prefix, length);
    for (int i = 0; i < length; ++i) {
        if (prefix[i] != '/') {
            continue;
        }
        // Empty for the first '/' of an absolute path, and tried like any other.
        prefix[i] = '\0';
        if (access(prefix, F_OK) != 0) {
            LOG(LOG_INFO, "create %d p=[%s]\n", i, prefix);
            (void)mkdir(prefix, kFolderMode);  // a failure does not end the walk
        }
        prefix[i] = '/';
    }
}
