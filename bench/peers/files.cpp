// Peers for copying files, walking and creating folders.

#include <fcntl.h>
#include <fts.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstring>

#include "bench/cases/files.h"
#include "bench/peers/row.h"
#include "bench/peers/rows.h"

namespace {

constexpr size_t kBlockSize = 16384;

PEER int CopyByStdio(const char* dest, const char* src) {
    FILE* const in = fopen(src, "r");
    FILE* const out = fopen(dest, "a");
    char block[kBlockSize];
    size_t got;
    while ((got = fread(block, 1, sizeof block, in)) > 0) {
        fwrite(block, 1, got, out);
    }
    fclose(in);
    fclose(out);
    return 1;
}

PEER int CopyByFilesystem(const char* dest, const char* src) {
    return std::filesystem::copy_file(src, dest) ? 1 : -1;
}

PEER int CopyByCp(const char* dest, const char* src) {
    char* const words[] = {const_cast<char*>("cp"), const_cast<char*>(src), const_cast<char*>(dest),
                           nullptr};
    pid_t child;
    int status = posix_spawn(&child, "/bin/cp", nullptr, nullptr, words, environ);
    waitpid(child, &status, 0);
    return status == 0 ? 1 : -1;
}

// What is fixed: two streams, a cleared block of 16 KB, a flush, two questions for positions.
PEER int CopyByFixedCalls(const char* dest, const char* src) {
    FILE* const in = fopen(src, "r");
    FILE* const out = fopen(dest, "ab");
    fseek(out, 0, SEEK_END);
    char block[kBlockSize];
    memset(block, 0, sizeof block);
    benchmark::DoNotOptimize(block);
    size_t got;
    while ((got = fread(block, 1, sizeof block, in)) > 0) {
        fwrite(block, 1, got, out);
    }
    fflush(out);
    benchmark::DoNotOptimize(ftell(in));
    benchmark::DoNotOptimize(ftell(out));
    fclose(out);
    fclose(in);
    return 1;
}

PEER int CopyByReadWrite(const char* dest, const char* src) {
    const int in = open(src, O_RDONLY);
    const int out = open(dest, O_WRONLY | O_CREAT | O_APPEND, 0666);
    char block[kBlockSize];
    ssize_t got;
    while ((got = read(in, block, sizeof block)) > 0) {
        if (write(out, block, static_cast<size_t>(got)) != got) {
            break;
        }
    }
    close(in);
    close(out);
    return 1;
}

long WalkByCursor(const char* path) {
    TrOpenFolder(path);
    struct dirent entry;
    struct stat status;
    long size = 0;
    while (TrGetFileName(&entry, &status) != 0) {
        size += status.st_size + 1;
    }
    TrCloseFolder();
    return size;
}

PEER long WalkByFts(const char* path) {
    char* const paths[] = {const_cast<char*>(path), nullptr};
    FTS* const walk = fts_open(paths, FTS_LOGICAL, nullptr);
    long size = 0;
    while (const FTSENT* entry = fts_read(walk)) {
        size += entry->fts_info == FTS_F ? entry->fts_statp->st_size + 1 : 0;
    }
    fts_close(walk);
    return size;
}

PEER long WalkByFilesystem(const char* path) {
    long size = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path)) {
        size += static_cast<long>(entry.file_size()) + 1;
    }
    return size;
}

// What is fixed: the path of each entry, "." and ".." included, and its status.
PEER long WalkByStat(const char* path) {
    DIR* const folder = opendir(path);
    long size = 0;
    while (const struct dirent* entry = readdir(folder)) {
        char entry_path[512];
        snprintf(entry_path, sizeof entry_path, "%s//%s", path, entry->d_name);
        struct stat status;
        stat(entry_path, &status);
        size += S_ISREG(status.st_mode) ? status.st_size + 1 : 0;
    }
    closedir(folder);
    return size;
}

PEER void CreateByFilesystem(const char* path) {
    std::filesystem::create_directories(path);
}

PEER void AccessPerLevel(const char* path) {
    char prefix[1024];
    strcpy(prefix, path);
    for (char* at = prefix; (at = strchr(at, '/')) != nullptr; *at++ = '/') {
        *at = '\0';
        benchmark::DoNotOptimize(access(prefix, F_OK));
        // The empty one before the first '/' cannot be made, and is tried each time.
        if (at == prefix) {
            mkdir(prefix, 0777);
        }
    }
}

template <int kKib>
void AddCopyRow() {
    using Case = CopyFile<kKib>;
    Row<Case, FileCopy>()
        .template Peer<CopyByStdio>("stdio")
        .template Peer<CopyByFilesystem>("std::filesystem::copy_file")
        .template Peer<CopyByCp>("cp")
        .template Peer<CopyByReadWrite>("read, write of 16 KB")
        .template Floor<CopyByFixedCalls>("cleared 16 KB block, streams, flush, positions");
}

}  // namespace

void AddFileRows() {
    AddCopyRow<1>();
    AddCopyRow<1024>();
    AddCopyRow<262144>();
    Row<WalkFolder, WalkByCursor>()
        .Peer<WalkByFts>("fts")
        .Peer<WalkByFilesystem>("std::filesystem")
        .Floor<WalkByStat>("a path and a stat per entry");
    Row<CreatePath, CreateMulvPath>()
        .Peer<CreateByFilesystem>("std::filesystem")
        .Floor<AccessPerLevel>("access per level");
}
