// A work folder for the tests that use the folder cursor.
#ifndef TESTS_UTIL_FILEUTILS_CURSOR_FOLDER_H
#define TESTS_UTIL_FILEUTILS_CURSOR_FOLDER_H

#include <dirent.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "tests/util/fileutils/work_folder.h"
#include "util/fileutils.h"
#include "util/fileutils/folder_cursor.h"

class CursorFolder : public WorkFolder {
protected:
    CursorFolder() : old_umask_(umask(022)) { chmod(folder().c_str(), 0755); }
    ~CursorFolder() override { umask(old_umask_); }

    void TearDown() override {
        TrCloseFolder();
        WorkFolder::TearDown();
    }

    // Puts a file, a folder, a fifo, a socket and three links there.
    void MakeEveryKind() const {
        Write("file", "12345");
        mkdir(Path("folder").c_str(), 0755);
        mkfifo(Path("fifo").c_str(), 0644);
        symlink("file", Path("link").c_str());
        symlink("folder", Path("folder_link").c_str());
        symlink("missing", Path("dangling").c_str());
        struct sockaddr_un address = {AF_UNIX, ""};
        strncpy(address.sun_path, Path("socket").c_str(), sizeof address.sun_path - 1);
        const int fd = socket(AF_UNIX, SOCK_DGRAM, 0);
        bind(fd, reinterpret_cast<struct sockaddr*>(&address), sizeof address);
        close(fd);
    }

    // The folder's names in the kernel's order.
    static std::vector<std::string> Names(const std::string& path) {
        std::vector<std::string> names;
        DIR* stream = opendir(path.c_str());
        while (const struct dirent* entry = readdir(stream)) {
            names.emplace_back(entry->d_name);
        }
        closedir(stream);
        return names;
    }

    // What the cursor still delivers.
    static std::vector<std::string> Delivered() {
        std::vector<std::string> names;
        struct dirent entry;
        while (TrGetFileName(&entry, nullptr) != 0) {
            names.emplace_back(entry.d_name);
        }
        return names;
    }

private:
    const mode_t old_umask_;
};

// Its tests stand in two files.
class TrGetFileNameTest : public CursorFolder {};

inline std::set<std::string> AsSet(const std::vector<std::string>& names) {
    return {names.begin(), names.end()};
}

#endif
