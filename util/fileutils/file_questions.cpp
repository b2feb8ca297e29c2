// Questions about files: how full their disk is, whether they exist, whether they are pictures.

#include <strings.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>

#include "util/fileutils.h"

namespace {

constexpr const char* kPictureExtensions[] = {"jpg", "jpeg", "bmp", "png", "gif"};
constexpr uint64_t kPercent = 100;

}  // namespace

int DiskSpaceUsed(const char* path) {
    struct statfs info;
    if (path == nullptr || statfs(path, &info) != 0 || info.f_blocks == 0) {
        return 0;
    }
    // Blocks kept for the superuser are free but not available: they belong to neither part.
    const uint64_t used = uint64_t{info.f_blocks} - info.f_bfree;
    const uint64_t total = used + info.f_bavail;
    if (total == 0) {
        return 0;
    }
    return static_cast<int>((used * kPercent + total / 2) / total);
}

int CheckFileExists(const char* path) {
    return path != nullptr && access(path, F_OK) == 0 ? 1 : 0;
}

int JudgePicFile(const char* name) {
    // The first dot: "a.b.jpg" is no picture.
    const char* const dot = name != nullptr ? strchr(name, '.') : nullptr;
    if (dot == nullptr) {
        return 0;
    }
    for (const char* const extension : kPictureExtensions) {
        if (strcasecmp(dot + 1, extension) == 0) {
            return 1;
        }
    }
    return 0;
}
