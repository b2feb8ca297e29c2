// Whole folders: counting their entries and copying them by shell command.

#include <dirent.h>
#include <sys/stat.h>

#include <cstdio>

#include "log/log_line.h"
#include "util/fileutils.h"
#include "util/owners.h"

namespace {

constexpr const char* kLogTag = log_tag::kFileutils;
constexpr int kDotEntries = 2;  // "." and ".."
constexpr int kSourceSize = 80;
constexpr int kCommandSize = 255;

}  // namespace

int GetFileCountOfFolder(const char* path) {
    if (path == nullptr) {
        LOG(LOG_WARNING, "PFolderName is NULL");
        return 0;
    }
    const UniqueDir folder(opendir(path));
    if (!folder) {
        LOG(LOG_WARNING, "opendir %s fail", path);
        return 0;
    }
    int count = 0;
    while (readdir(folder.Get()) != nullptr) {
        ++count;
    }
    return count - kDotEntries;
}

int CopyFolder(const char* src, const char* dest, int (*filter)(CopyFolderItem* item)) {
    struct dirent entry = {};
    struct stat status = {};
    CopyFolderItem item = {0, &entry, &status};
    if (TrOpenFolder(src) == 0) {
        LOG(LOG_WARNING, "opendir %s fail", src);
        return -1;
    }
    int copied = 0;
    while (TrGetFileName(&entry, &status) != 0) {
        LOG(LOG_INFO, "photName:%s, type:%d", entry.d_name, entry.d_type);
        item.index = copied;  // not the entry's position: what is left out does not count
        if (filter != nullptr && filter(&item) < 0) {
            continue;
        }
        // Both are cut silently. A command without its end fails or copies something else.
        char source[kSourceSize] = {};
        char command[kCommandSize] = {};
        snprintf(source, sizeof source, "%s/%s", src, entry.d_name);
        snprintf(command, sizeof command, "cp %s %s -rf && sync", source, dest);
        LOG(LOG_INFO, "command:%s", command);
        if (systemEx(command) == 0) {
            ++copied;
        }
    }
    TrCloseFolder();
    return copied;
}
