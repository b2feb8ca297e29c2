// The replaced platform calls. Without a FakeTerminal they do what they always do.

#include <dirent.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tests/udisk/fake_terminal.h"

namespace {

constexpr size_t kStreamBufferSize = 16384;

using std::string;

FakeTerminal* terminal() {
    return FakeTerminal::active();
}

string OrNone(const void* text) {
    return text != nullptr ? static_cast<const char*>(text) : "none";
}

int Fail(int number) {
    errno = number;
    return -1;
}

}  // namespace

extern "C" {

// Streams and folders.

FILE* __real_fopen(const char* path, const char* mode);
FILE* __wrap_fopen(const char* path, const char* mode) {
    FakeTerminal* fake = terminal();
    if (fake == nullptr) {
        return __real_fopen(path, mode);
    }
    fake->Record(string("fopen ") + path + " " + mode);
    if (!fake->partitions) {
        errno = ENOENT;
        return nullptr;
    }
    FILE* file = tmpfile();
    fwrite(fake->partitions->data(), 1, fake->partitions->size(), file);
    rewind(file);
    ++fake->open_streams;
    return file;
}

int __real_fclose(FILE* file);
int __wrap_fclose(FILE* file) {
    if (FakeTerminal* fake = terminal()) {
        --fake->open_streams;
        fake->stream_calls.push_back("fclose");
    }
    return __real_fclose(file);
}

int __real_setvbuf(FILE* file, char* buffer, int mode, size_t size);
int __wrap_setvbuf(FILE* file, char* buffer, int mode, size_t size) {
    if (FakeTerminal* fake = terminal()) {
        const string what = mode == _IOFBF && buffer == fake->stream_buffer ? "full " : "other ";
        fake->stream_calls.push_back("setvbuf " + what + std::to_string(size));
    }
    return __real_setvbuf(file, buffer, mode, size);
}

DIR* __real_opendir(const char* path);
DIR* __wrap_opendir(const char* path) {
    FakeTerminal* fake = terminal();
    if (fake == nullptr) {
        return __real_opendir(path);
    }
    fake->Record(string("opendir ") + path);
    if (!fake->has_usb_storage) {
        errno = ENOENT;
        return nullptr;
    }
    ++fake->open_folders;
    return __real_opendir("/");
}

int __real_closedir(DIR* folder);
int __wrap_closedir(DIR* folder) {
    if (FakeTerminal* fake = terminal()) {
        --fake->open_folders;
    }
    return __real_closedir(folder);
}

struct dirent* __wrap_readdir(DIR*) {
    terminal()->Record("readdir");
    return nullptr;
}

int __wrap_scandir(const char* path, struct dirent*** entries, int (*filter)(const struct dirent*),
                   int (*compare)(const struct dirent**, const struct dirent**)) {
    FakeTerminal* fake = terminal();
    fake->Record(string("scandir ") + path + (filter == nullptr ? " all" : " filtered") +
                 (compare == alphasort ? " alphasort" : " unsorted"));
    if (fake->bus_entries < 0) {
        return Fail(ENOENT);
    }
    const auto count = static_cast<size_t>(fake->bus_entries);
    *entries = static_cast<struct dirent**>(fake->Own(calloc(count + 1, sizeof **entries)));
    for (size_t i = 0; i < count; ++i) {
        (*entries)[i] = static_cast<struct dirent*>(fake->Own(calloc(1, sizeof(struct dirent))));
    }
    return fake->bus_entries;
}

// Paths and mounts.

int __real_access(const char* path, int mode);
int __wrap_access(const char* path, int mode) {
    FakeTerminal* fake = terminal();
    if (fake == nullptr) {
        return __real_access(path, mode);
    }
    fake->Record(string("access [") + path + "] " + std::to_string(mode));
    return fake->existing.contains(path) ? 0 : Fail(ENOENT);
}

int __real_mkdir(const char* path, mode_t mode);
int __wrap_mkdir(const char* path, mode_t mode) {
    FakeTerminal* fake = terminal();
    if (fake == nullptr) {
        return __real_mkdir(path, mode);
    }
    char octal[16];
    snprintf(octal, sizeof octal, "%04o", static_cast<unsigned int>(mode));
    fake->Record(string("mkdir [") + path + "] " + octal);
    if (*path == '\0' || !fake->makes_folders) {
        return Fail(ENOENT);
    }
    fake->existing.insert(path);
    return 0;
}

int __wrap_mount(const char* source, const char* target, const char* type, unsigned long flags,
                 const void* data) {
    FakeTerminal* fake = terminal();
    fake->Record(string("mount ") + source + " " + target + " " + type + " " +
                 std::to_string(flags) + " " + OrNone(data));
    const auto result = fake->mount_results.find(source);
    return result != fake->mount_results.end() ? result->second : Fail(EINVAL);
}

int __wrap_umount(const char* target) {
    FakeTerminal* fake = terminal();
    fake->Record(string("umount ") + target);
    errno = EINVAL;
    return fake->umount_result;
}

// The heap.

void* __real_malloc(size_t size);
void* __wrap_malloc(size_t size) {
    FakeTerminal* fake = terminal();
    if (fake == nullptr) {
        return __real_malloc(size);
    }
    const bool is_stream_buffer = size == kStreamBufferSize;
    if (!(is_stream_buffer ? fake->has_stream_buffer : fake->has_list)) {
        errno = ENOMEM;
        return nullptr;
    }
    void* const block = fake->Own(__real_malloc(size));
    if (is_stream_buffer) {
        fake->stream_buffer = block;
    }
    return block;
}

void* __real_realloc(void* block, size_t size);
void* __wrap_realloc(void* block, size_t size) {
    FakeTerminal* fake = terminal();
    if (fake == nullptr) {
        return __real_realloc(block, size);
    }
    if (fake->growths-- <= 0) {
        errno = ENOMEM;
        return nullptr;
    }
    fake->Disown(block);
    return fake->Own(__real_realloc(block, size));
}

char* __real_strdup(const char* text);
char* __wrap_strdup(const char* text) {
    FakeTerminal* fake = terminal();
    if (fake == nullptr) {
        return __real_strdup(text);
    }
    if (fake->copies-- <= 0) {
        errno = ENOMEM;
        return nullptr;
    }
    return static_cast<char*>(fake->Own(__real_strdup(text)));
}

void __real_free(void* block);
void __wrap_free(void* block) {
    if (FakeTerminal* fake = terminal(); fake != nullptr && block != nullptr) {
        fake->Disown(block);
        if (block == fake->stream_buffer) {
            fake->stream_calls.push_back("free");
        }
    }
    __real_free(block);
}
}
