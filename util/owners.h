// Owners for what must be released: a descriptor, a stream, a directory, a heap block.
//
// Releasing leaves errno alone: "%m" in a message written after the scope still names the call
// that failed.
#ifndef UTIL_OWNERS_H
#define UTIL_OWNERS_H

#include <dirent.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

// Owns one Handle, released by kRelease; a handle equal to kNone is none.
template <typename Handle, Handle kNone, auto kRelease>
class UniqueHandle {
public:
    explicit UniqueHandle(Handle handle) : handle_(handle) {}
    ~UniqueHandle() { Reset(kNone); }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;

    Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != kNone; }

    void Reset(Handle handle) {
        if (handle_ != kNone) {
            const int kept_errno = errno;
            (void)kRelease(handle_);  // nothing could be done about a failure
            errno = kept_errno;
        }
        handle_ = handle;
    }

private:
    Handle handle_;
};

using UniqueFd = UniqueHandle<int, -1, close>;
using UniqueFile = UniqueHandle<FILE*, nullptr, fclose>;
using UniqueDir = UniqueHandle<DIR*, nullptr, closedir>;
using UniqueMemory = UniqueHandle<void*, nullptr, free>;

#endif
