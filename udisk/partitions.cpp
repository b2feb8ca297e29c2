// Reading the kernel's partition table into a list of mount candidates.

#include "udisk/partitions.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "log/log_line.h"
#include "util/owners.h"

namespace {

constexpr const char* kLogTag = log_tag::kUdisk;
constexpr char kPartitionsFile[] = "/proc/partitions";
constexpr int kHeaderLines = 2;  // the column names and an empty line
constexpr int kLineSize = 256;
constexpr int kStreamBufferSize = 16384;
constexpr int kColumns = 4;  // major, minor, #blocks, name

// USB disks appear as SCSI disks, or as ub with the kernel's simple USB block driver.
bool IsUsbDiskName(const char* name) {
    return strncmp(name, "sd", 2) == 0 || strncmp(name, "ub", 2) == 0;
}

void SkipHeader(FILE* file) {
    char line[kLineSize];
    for (int i = 0; i < kHeaderLines; ++i) {
        (void)fgets(line, sizeof line, file);  // at the end of the file the next read ends too
    }
}

void CutLastCharacter(char* line) {
    const size_t length = strlen(line);
    if (length > 0) {  // a line may begin with a zero byte
        line[length - 1] = '\0';
    }
}

// Puts an entry at index count and the end entry after it. False when there is no memory: the list
// then ends at index count, as before.
bool Append(PartitionEntry*& list, size_t count, const char* name, int32_t size_kib) {
    void* const grown = realloc(list, (count + 2) * sizeof *list);
    if (grown == nullptr) {
        return false;
    }
    list = static_cast<PartitionEntry*>(grown);
    list[count] = {strdup(name), size_kib};  // without the copy this is the end entry
    list[count + 1].name = nullptr;
    return list[count].name != nullptr;
}

}  // namespace

PartitionEntry* readPartitionList() {
    UniqueMemory buffer(nullptr);  // declared first: the stream uses it until it is closed
    const UniqueFile file(fopen(kPartitionsFile, "r"));
    if (!file) {
        LOG(LOG_WARNING, "failed to open /proc/partitions");
        return nullptr;
    }
    buffer.Reset(malloc(kStreamBufferSize));
    if (buffer) {
        // A refusal leaves the stream's own buffer, which does as well.
        (void)setvbuf(file.Get(), static_cast<char*>(buffer.Get()), _IOFBF, kStreamBufferSize);
    }
    SkipHeader(file.Get());

    auto* list = static_cast<PartitionEntry*>(malloc(sizeof(PartitionEntry)));
    if (list == nullptr) {
        return nullptr;
    }
    list[0].name = nullptr;
    size_t count = 0;
    char line[kLineSize];
    while (fgets(line, sizeof line, file.Get()) != nullptr) {
        int major;
        int minor;
        int32_t size_kib;
        char name[kLineSize];
        if (sscanf(line, "%d %d %d %s", &major, &minor, &size_kib, name) != kColumns) {
            CutLastCharacter(line);
            LOG(LOG_INFO, "invalid line in /proc/partitions: '%s'\n", line);
            break;
        }
        if (!IsUsbDiskName(name) || size_kib <= 0) {
            continue;
        }
        if (!Append(list, count, name, size_kib)) {
            break;  // what was collected is still worth an attempt
        }
        ++count;
    }
    return list;
}
