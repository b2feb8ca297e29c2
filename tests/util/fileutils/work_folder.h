// An empty folder of its own for each test.
#ifndef TESTS_UTIL_FILEUTILS_WORK_FOLDER_H
#define TESTS_UTIL_FILEUTILS_WORK_FOLDER_H

#include <linux/magic.h>
#include <sys/types.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "tests/support/open_descriptors.h"

class WorkFolder : public KeepsDescriptors {
protected:
    WorkFolder() {
        const std::string temporary = std::filesystem::temp_directory_path();
        folder_ = (IsInMemory(kMemory) ? kMemory : temporary) + "/fileutils_XXXXXX";
        EXPECT_NE(mkdtemp(folder_.data()), nullptr) << folder_;
    }
    ~WorkFolder() override { std::filesystem::remove_all(folder_); }

    // qemu-arm cannot list folders of a disk: their 64-bit positions do not fit.
    void SetUp() override {
        KeepsDescriptors::SetUp();
        if (sizeof(off_t) == sizeof(int32_t) && !IsInMemory(folder_)) {
            GTEST_SKIP() << kMemory << " is no tmpfs that can be written, and an emulator lists"
                         << " no other folders";
        }
    }

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
    static inline const std::string kMemory = "/dev/shm";

    static bool IsInMemory(const std::string& path) {
        struct statfs disk;
        return statfs(path.c_str(), &disk) == 0 && disk.f_type == TMPFS_MAGIC &&
               access(path.c_str(), W_OK) == 0;
    }

    std::string folder_;
};

#endif
