// Walking through the regular files and directories of one folder.

#include "util/fileutils/folder_cursor.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "log/log_line.h"
#include "util/fileutils.h"

DIR* gFolderDir;
char gFolderName[kFolderNameSize];

namespace {

constexpr const char* kLogTag = log_tag::kFileutils;
constexpr int kStatPathSize = 512;

bool IsDelivered(const struct dirent& entry, const struct stat& status) {
    if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) {
        return false;
    }
    return strcmp(entry.d_name, ".") != 0 && strcmp(entry.d_name, "..") != 0;
}

// Copies the record as far as it reaches: the kernel's entries are shorter than the struct, and
// what lies behind the last one need not be readable. A longer entry has its name cut.
void CopyEntry(struct dirent* out, const struct dirent& entry) {
    memset(out, 0, sizeof *out);
    memcpy(out, &entry, std::min<size_t>(entry.d_reclen, sizeof *out));
    out->d_name[strnlen(out->d_name, sizeof out->d_name - 1)] = '\0';
}

}  // namespace

int TrOpenFolder(const char* path) {
    if (path == nullptr) {
        LOG(LOG_WARNING, "PFolderName is NULL");
        return 0;
    }
    memset(gFolderName, 0, sizeof gFolderName);
    gFolderDir = opendir(path);  // an open folder is not closed: callers pair their calls
    snprintf(gFolderName, sizeof gFolderName, "%s", path);
    return gFolderDir != nullptr ? 1 : 0;
}

int TrGetFileName(struct dirent* entry_out, struct stat* status_out) {
    if (gFolderDir == nullptr) {
        return 0;
    }
    const struct dirent* entry;
    while ((entry = readdir(gFolderDir)) != nullptr) {
        char path[kStatPathSize];
        snprintf(path, sizeof path, "%s//%s", gFolderName, entry->d_name);
        struct stat status;
        if (stat(path, &status) != 0) {
            LOG(LOG_WARNING, "Path:%s,name:%s, stat fail!!!", path, entry->d_name);
            perror("test===========");
            continue;
        }
        LOG(LOG_INFO, "name:%s,%d", entry->d_name, static_cast<int>(status.st_mode));
        if (!IsDelivered(*entry, status)) {
            continue;
        }
        if (entry_out != nullptr) {
            CopyEntry(entry_out, *entry);
        }
        if (status_out != nullptr) {
            *status_out = status;
        }
        return 1;
    }
    return 0;
}

int TrCloseFolder(void) {
    if (gFolderDir != nullptr) {
        (void)closedir(gFolderDir);  // nothing could be done about a failure
        gFolderDir = nullptr;
    }
    return 1;
}
