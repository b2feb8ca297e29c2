// The file calls of the code under test, recorded in their order and failing where a test says so.
// Link with WRAP PrintLog access fclose fflush fopen fread fseek fsync ftell fwrite statfs.
#ifndef TESTS_UTIL_FILEUTILS_FAKE_FILES_H
#define TESTS_UTIL_FILEUTILS_FAKE_FILES_H

#include <sys/vfs.h>

#include <cstdint>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/recorded_log.h"

// While it lives, calls on streams that are opened meanwhile are recorded, as "fwrite dest 5", and
// log lines, as "Warning fileutils FileCopy: file size error". A stream is named after its file.
class FakeFiles {
public:
    FakeFiles() : log_([this](const std::string& line) { Record(line); }) { active_ = this; }
    ~FakeFiles() { active_ = nullptr; }
    FakeFiles(const FakeFiles&) = delete;
    FakeFiles& operator=(const FakeFiles&) = delete;

    static FakeFiles* active() { return active_; }

    // The setting.
    std::string unopenable;          // the name of the file that fopen refuses with EMFILE
    size_t longest_read = SIZE_MAX;  // bytes that one fread gives at most
    int failing_read = -1;           // number of the fread that gives nothing, from 0
    int short_write = -1;            // number of the fwrite that leaves its last byte out, from 0
    bool flush_fails = false;        // with ENOSPC
    std::map<std::string, long> positions;  // what ftell says of a stream
    std::optional<struct statfs> disk;      // what statfs gives
    std::optional<int> access_result;

    // What happened.
    std::vector<std::string> calls;
    std::vector<std::string> closed;  // names of the streams that were closed, sorted

    // For the replaced calls.
    void Record(const std::string& call) { calls.push_back(call); }
    std::map<FILE*, std::string> streams;
    int reads = 0;
    int writes = 0;

private:
    const RecordedLog log_;
    inline static FakeFiles* active_ = nullptr;
};

#endif
