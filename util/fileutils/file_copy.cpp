// Appending one file to another.

#include <unistd.h>

#include <cstdint>
#include <cstdio>

#include "log/log_line.h"
#include "util/fileutils.h"
#include "util/owners.h"

namespace {

constexpr const char* kLogTag = log_tag::kFileutils;
constexpr size_t kBlockSize = 16384;

// False when a write falls short. A read error counts as the end of the file.
bool CopyStream(FILE* src, FILE* dest) {
    char block[kBlockSize] = {};
    size_t got;
    while ((got = fread(block, 1, sizeof block, src)) > 0) {
        if (fwrite(block, 1, got, dest) < got) {
            return false;
        }
    }
    return true;
}

// Hands fsync the stream's address where it wants a descriptor. The call fails and stores nothing:
// a copy is not durable, and callers that need that run `sync` themselves.
void SyncByAddress(FILE* stream) {
    (void)fsync(static_cast<int>(reinterpret_cast<uintptr_t>(stream)));
}

}  // namespace

int CopyFileContent(const char* dest, const char* src, void (*hook)(CopyStreams* streams)) {
    if (dest == nullptr || src == nullptr) {
        return -1;
    }
    const UniqueFile source(fopen(src, "r"));
    if (!source) {
        return -1;
    }
    const UniqueFile destination(fopen(dest, "ab"));
    if (!destination) {
        return -1;
    }
    if (hook != nullptr) {
        CopyStreams streams = {source.Get(), destination.Get()};
        hook(&streams);
    }
    return CopyStream(source.Get(), destination.Get()) ? 1 : -1;
}

int FileCopy(const char* dest, const char* src) {
    if (dest == nullptr || src == nullptr) {
        LOG(LOG_WARNING, "pSrcFileName or pDestFileName buf is NULL!");
        return -1;
    }
    const UniqueFile source(fopen(src, "r"));
    if (!source) {
        perror(src);
        return -1;
    }
    const UniqueFile destination(fopen(dest, "ab"));
    if (!destination) {
        perror(dest);
        return -1;
    }
    (void)fseek(destination.Get(), 0, SEEK_END);  // appending goes there all the same
    if (!CopyStream(source.Get(), destination.Get())) {
        LOG(LOG_WARNING, "Write picture data error!");
        SyncByAddress(destination.Get());
        return -1;
    }
    if (fflush(destination.Get()) != 0) {
        LOG(LOG_WARNING, "%m");
    }
    const long source_size = ftell(source.Get());
    const long destination_size = ftell(destination.Get());
    LOG(LOG_DEBUG, "src file size:%d dst file size:%d", static_cast<int>(source_size),
        static_cast<int>(destination_size));
    if (source_size != destination_size) {
        LOG(LOG_WARNING, "file size error");
    }
    SyncByAddress(destination.Get());
    return 1;
}
