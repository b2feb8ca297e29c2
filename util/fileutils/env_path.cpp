// Paths in the data folder, which an environment variable may move.

#include <cstdio>
#include <cstdlib>

#include "util/fileutils.h"
#include "util/integers.h"

namespace {

constexpr char kDefaultFolder[] = "/mnt/mtdblock/data/";

const char* DataFolder(const char* var) {
    const char* const folder = var != nullptr ? getenv(var) : nullptr;
    return folder != nullptr ? folder : kDefaultFolder;
}

}  // namespace

int GetAssignEnvPath(const char* var, char* out, int size) {
    if (out != nullptr) {
        snprintf(out, BufferSize(size), "%s", DataFolder(var));
    }
    return 1;
}

char* GetEnvFilePath(const char* var, const char* file, char* out, int size) {
    if (out != nullptr) {
        // No '/' in between: the folder ends in one.
        snprintf(out, BufferSize(size), "%s%s", DataFolder(var), file != nullptr ? file : "");
    }
    return out;
}
