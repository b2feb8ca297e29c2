// Files, folders and processes. They lie on /dev/shm, in memory: a disk would hide everything else.
#ifndef BENCH_CASES_FILES_H
#define BENCH_CASES_FILES_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "bench/case.h"
#include "util/fileutils.h"

// A folder in memory that goes with the program.
inline const std::string& ScratchFolder() {
    struct Folder {
        std::string path = "/dev/shm/orvatool-bench-XXXXXX";

        Folder() {
            if (mkdtemp(path.data()) == nullptr) {
                perror(path.c_str());
                exit(1);
            }
        }
        ~Folder() { std::filesystem::remove_all(path); }
    };
    static const Folder folder;
    return folder.path;
}

inline std::string MakeFile(const std::string& name, size_t size) {
    const std::string path = ScratchFolder() + '/' + name;
    std::ofstream file(path);
    Numbers numbers;
    for (size_t written = 0; written < size; written += sizeof(uint64_t)) {
        const auto number = static_cast<uint64_t>(numbers.Between(0, 0x7FFFFFFF));
        file.write(reinterpret_cast<const char*>(&number),
                   static_cast<std::streamsize>(std::min(sizeof number, size - written)));
    }
    return path;
}

template <int kKib>
struct CopyFile {
    static constexpr bool kInOtherProcesses = true;  // cp's time counts too

    static std::string Name() { return "copy_kib_" + std::to_string(kKib); }
    static std::vector<std::string> Inputs() {
        return {MakeFile("source-" + std::to_string(kKib), size_t{kKib} << 10)};
    }
    template <auto kFunction>
    static int Call(const std::string& source) {
        const std::string dest = ScratchFolder() + "/dest";
        unlink(dest.c_str());  // ours appends
        return kFunction(dest.c_str(), source.c_str());
    }
    static void End() { unlink((ScratchFolder() + "/dest").c_str()); }
};

// A folder of files, each looked at.
struct WalkFolder {
    static std::string Name() { return "walk_folder"; }
    static std::vector<std::string> Inputs() {
        const std::string path = ScratchFolder() + "/folder";
        std::filesystem::create_directory(path);
        for (int i = 0; i < kFiles; ++i) {
            MakeFile("folder/file-" + std::to_string(i), static_cast<size_t>(i) % 64);
        }
        return {path};
    }
    template <auto kFunction>
    static long Call(const std::string& path) {
        return kFunction(path.c_str());
    }

private:
    static constexpr int kFiles = 1000;
};

// A path whose folders exist.
struct CreatePath {
    static std::string Name() { return "create_path"; }
    static std::vector<std::string> Inputs() {
        const std::string path = ScratchFolder() + "/a/b/c/d/e/";
        std::filesystem::create_directories(path);
        return {path};
    }
    template <auto kFunction>
    static bool Call(const std::string& path) {
        kFunction(path.c_str());
        return true;
    }
};

// Commands from a process that has touched 2 GB.
struct ShellCommand {
    static constexpr bool kInOtherProcesses = true;

    static std::string Name() { return "shell_command"; }
    static std::vector<std::string> Inputs() { return {"true", "exit 3"}; }
    static void Begin() {
        constexpr size_t kSize = size_t{2} << 30;
        static void* const memory = mmap(nullptr, kSize, PROT_READ | PROT_WRITE,
                                         MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
        if (memory == MAP_FAILED) {
            perror("mmap of 2 GB");
            exit(1);
        }
    }
    template <auto kFunction>
    static int Call(const std::string& command) {
        return kFunction(command.c_str());
    }
};

#endif
