// An empty folder of its own for each test.
#ifndef TESTS_UTIL_FILEUTILS_WORK_FOLDER_H
#define TESTS_UTIL_FILEUTILS_WORK_FOLDER_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "tests/support/open_descriptors.h"

// On a tmpfs, because qemu-arm cannot list folders of a disk: their 64-bit positions do not fit.
class WorkFolder : public KeepsDescriptors {
protected:
    WorkFolder() {
        char name[] = "/dev/shm/fileutils_XXXXXX";
        folder_ = mkdtemp(name);
    }
    ~WorkFolder() override { std::filesystem::remove_all(folder_); }

    const std::string& folder() const { return folder_; }
    std::string Path(const std::string& name) const { return folder_ + "/" + name; }
    bool Exists(const std::string& name) const { return std::filesystem::exists(Path(name)); }

    void Write(const std::string& name, std::string_view content) const {
        std::ofstream(Path(name), std::ios::binary) << content;
    }

    std::string Read(const std::string& name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // Creates a folder whose whole path has length characters; returns the path.
    std::string FolderOfLength(size_t length) const {
        std::string path = folder_;
        while (path.size() < length) {
            const size_t missing = length - path.size() - 1;
            const size_t level = missing <= 200 ? missing : 100;
            path += "/" + std::string(level, 'd');
        }
        std::filesystem::create_directories(path);
        return path;
    }

private:
    std::string folder_;
};

#endif
