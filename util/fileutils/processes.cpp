// Shell commands, and the descriptors of a new process.

#include <dirent.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "log/log_line.h"
#include "util/digits.h"
#include "util/fileutils.h"
#include "util/owners.h"

namespace {

constexpr const char* kLogTag = log_tag::kFileutils;
constexpr int kPathSize = 128;
constexpr int kNoChild = -1;
constexpr int kNoCommand = -2;

}  // namespace

int systemEx(const char* command) {
    if (command == nullptr) {
        return kNoCommand;
    }
    int status = 0;
    const pid_t child = vfork();
    if (child == 0) {
        // The child runs in our memory: it may start the shell or end, nothing else.
        execl("/bin/sh", "sh", "-c", command, nullptr);
        _exit(0);
    }
    if (child < 0) {
        status = kNoChild;
        perror("vfork fail!!!\n");
    } else {
        (void)waitpid(child, &status, 0);  // an interrupted wait counts as success
    }
    return status;
}

int CloseChildProcFd(int pid) {
    char path[kPathSize] = {};
    snprintf(path, sizeof path, "/%s/%d/%s/", "proc", pid, "fd");
    // The folder's own descriptor is among those that are closed. What was read by then is still
    // gone through, the next read fails, and so does closing the folder, without harm.
    const UniqueDir folder(opendir(path));
    if (!folder) {
        LOG(LOG_WARNING, "Couldn't open the directory.");
        return 1;
    }
    while (const struct dirent* entry = readdir(folder.Get())) {
        if (strcmp(entry->d_name, ".") != 0 && strcmp(entry->d_name, "..") != 0) {
            (void)close(ReadInt(entry->d_name));
        }
    }
    return 1;
}
