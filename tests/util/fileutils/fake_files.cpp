// The replaced file calls. Without a FakeFiles they do what they always do.

#include "tests/util/fileutils/fake_files.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>

namespace {

using std::string;

// The name of the stream if it is one that is recorded.
const string* NameOf(FILE* stream) {
    FakeFiles* files = FakeFiles::active();
    if (files == nullptr) {
        return nullptr;
    }
    const auto found = files->streams.find(stream);
    return found != files->streams.end() ? &found->second : nullptr;
}

void Record(const char* call, const string& name, const string& rest = "") {
    FakeFiles::active()->Record(string(call) + " " + name + rest);
}

}  // namespace

extern "C" {

FILE* __real_fopen(const char* path, const char* mode);
FILE* __wrap_fopen(const char* path, const char* mode) {
    FakeFiles* files = FakeFiles::active();
    if (files == nullptr) {
        return __real_fopen(path, mode);
    }
    const string name = string(path).substr(string(path).rfind('/') + 1);
    Record("fopen", name, string(" ") + mode);
    if (name == files->unopenable) {
        errno = EMFILE;
        return nullptr;
    }
    FILE* stream = __real_fopen(path, mode);
    if (stream != nullptr) {
        files->streams[stream] = name;
    }
    return stream;
}

size_t __real_fread(void* block, size_t size, size_t count, FILE* stream);
size_t __wrap_fread(void* block, size_t size, size_t count, FILE* stream) {
    const string* name = NameOf(stream);
    if (name == nullptr) {
        return __real_fread(block, size, count, stream);
    }
    FakeFiles* files = FakeFiles::active();
    Record("fread", *name, " " + std::to_string(size * count));
    if (files->reads++ == files->failing_read) {
        errno = EIO;
        return 0;
    }
    return __real_fread(block, size, std::min(count, files->longest_read), stream);
}

size_t __real_fwrite(const void* block, size_t size, size_t count, FILE* stream);
size_t __wrap_fwrite(const void* block, size_t size, size_t count, FILE* stream) {
    const string* name = NameOf(stream);
    if (name == nullptr) {
        return __real_fwrite(block, size, count, stream);
    }
    FakeFiles* files = FakeFiles::active();
    Record("fwrite", *name, " " + std::to_string(size * count));
    const bool is_short = files->writes++ == files->short_write;
    return __real_fwrite(block, size, is_short ? count - 1 : count, stream);
}

int __real_fseek(FILE* stream, long offset, int whence);
int __wrap_fseek(FILE* stream, long offset, int whence) {
    if (const string* name = NameOf(stream)) {
        Record("fseek", *name,
               " " + std::to_string(offset) + (whence == SEEK_END ? " from the end" : ""));
    }
    return __real_fseek(stream, offset, whence);
}

int __real_fflush(FILE* stream);
int __wrap_fflush(FILE* stream) {
    const string* name = NameOf(stream);
    if (name == nullptr) {
        return __real_fflush(stream);
    }
    Record("fflush", *name);
    if (FakeFiles::active()->flush_fails) {
        errno = ENOSPC;
        return EOF;
    }
    return __real_fflush(stream);
}

long __real_ftell(FILE* stream);
long __wrap_ftell(FILE* stream) {
    const string* name = NameOf(stream);
    if (name == nullptr) {
        return __real_ftell(stream);
    }
    Record("ftell", *name);
    const auto& positions = FakeFiles::active()->positions;
    const auto found = positions.find(*name);
    return found != positions.end() ? found->second : __real_ftell(stream);
}

int __real_fclose(FILE* stream);
int __wrap_fclose(FILE* stream) {
    if (const string* name = NameOf(stream)) {
        FakeFiles* files = FakeFiles::active();
        files->Record("fclose");
        files->closed.push_back(*name);
        std::sort(files->closed.begin(), files->closed.end());
        files->streams.erase(stream);
    }
    return __real_fclose(stream);
}

int __real_fsync(int fd);
int __wrap_fsync(int fd) {
    FakeFiles* files = FakeFiles::active();
    if (files == nullptr) {
        return __real_fsync(fd);
    }
    string argument = std::to_string(fd);
    for (const auto& [stream, name] : files->streams) {
        const auto address = reinterpret_cast<uintptr_t>(stream);
        if (static_cast<uint32_t>(address) == static_cast<uint32_t>(fd)) {
            argument = "address of " + name;
        }
    }
    Record("fsync", argument);
    errno = EBADF;
    return -1;
}

int __real_access(const char* path, int mode);
int __wrap_access(const char* path, int mode) {
    FakeFiles* files = FakeFiles::active();
    if (files == nullptr) {
        return __real_access(path, mode);
    }
    Record("access", path, " " + std::to_string(mode));
    return files->access_result ? *files->access_result : __real_access(path, mode);
}

int __real_statfs(const char* path, struct statfs* out);
int __wrap_statfs(const char* path, struct statfs* out) {
    FakeFiles* files = FakeFiles::active();
    if (files == nullptr) {
        return __real_statfs(path, out);
    }
    Record("statfs", path);
    if (!files->disk) {
        errno = EIO;
        return -1;
    }
    *out = *files->disk;
    return 0;
}
}
