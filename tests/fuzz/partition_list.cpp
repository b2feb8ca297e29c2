// readPartitionList, and the mount attempts that DoMountUdisk makes with its candidates.

#include "udisk/partitions.h"

#include <dirent.h>
#include <sys/mount.h>

#include <charconv>
#include <vector>

#include "tests/fuzz/input.h"
#include "tests/fuzz/trace.h"
#include "udisk/udiskdetection.h"

namespace {

constexpr size_t kLongestLine = 255;
constexpr char kWhiteSpace[] = " \t\n\v\f\r";
constexpr int kUnlimited = 15;

// What the functions find.
struct Kernel {
    bool has_file;
    bool has_list;   // memory for its first block
    size_t growths;  // calls of realloc that do not fail
    size_t copies;   // calls of strdup that do not fail
    int refusals;    // candidates that cannot be mounted
    std::string partitions;
};
Kernel gKernel;
std::vector<char*> gNames;  // the product leaves them to the end of the process

struct Candidate {
    std::string name;
    int size_kib;

    bool operator==(const Candidate&) const = default;
};

struct Reading {
    bool is_none;
    std::vector<Candidate> candidates;
    std::string printed;
};

std::string UdiskLine(const char* level, const char* function, const std::string& message) {
    return LogText(level, "udiskdetection", function, message);
}

}  // namespace

extern "C" {

FILE* __real_fopen(const char* path, const char* mode);
FILE* __wrap_fopen(const char* path, const char* mode) {
    if (!IsTracing()) {
        return __real_fopen(path, mode);
    }
    printf("fopen %s %s\n", path, mode);
    return gKernel.has_file ? fmemopen(gKernel.partitions.data(), gKernel.partitions.size(), "r")
                            : nullptr;
}

void* __real_malloc(size_t size);
void* __wrap_malloc(size_t size) {
    const bool is_first_block = IsTracing() && size == sizeof(PartitionEntry);
    return is_first_block && !gKernel.has_list ? nullptr : __real_malloc(size);
}

void* __real_realloc(void* block, size_t size);
void* __wrap_realloc(void* block, size_t size) {
    if (!IsTracing()) {
        return __real_realloc(block, size);
    }
    return gKernel.growths-- > 0 ? __real_realloc(block, size) : nullptr;
}

char* __real_strdup(const char* text);
char* __wrap_strdup(const char* text) {
    if (!IsTracing()) {
        return __real_strdup(text);
    }
    if (gKernel.copies-- == 0) {
        return nullptr;
    }
    gNames.push_back(__real_strdup(text));
    return gNames.back();
}

DIR* __real_opendir(const char* path);
DIR* __wrap_opendir(const char* path) {
    if (!IsTracing()) {
        return __real_opendir(path);
    }
    printf("opendir %s\n", path);
    return reinterpret_cast<DIR*>(&gKernel);
}

int __real_closedir(DIR* folder);
int __wrap_closedir(DIR* folder) {
    if (!IsTracing()) {
        return __real_closedir(folder);
    }
    return 0;
}

int __real_access(const char* path, int mode);
int __wrap_access(const char* path, int mode) {
    if (!IsTracing()) {
        return __real_access(path, mode);
    }
    return 0;
}

int __wrap_mount(const char* device, const char* folder, const char* type, unsigned long flags,
                 const void*) {
    printf("mount %s %s %s %lu\n", device, folder, type, flags);
    return gKernel.refusals-- > 0 ? -1 : 0;
}

int __wrap_umount(const char* folder) {
    printf("umount %s\n", folder);
    return 0;
}
}

namespace {

// The lines with their ends, a longer one in pieces. Of each, what stands before a 0 counts.
std::vector<std::string> LinesOf(const std::string& file) {
    std::vector<std::string> lines;
    for (size_t at = 0; at < file.size();) {
        const size_t length = std::min(file.find('\n', at), file.size() - 1) + 1 - at;
        const std::string line = file.substr(at, std::min(length, kLongestLine));
        lines.push_back(line.substr(0, line.find('\0')));
        at += line.size();
    }
    return lines;
}

// Takes a number off the front of text as scanf does: beyond 64 bits it stops at the limits, of
// which the low 32 bits are taken. False when there is none.
bool TakeNumber(std::string& text, int& number) {
    text.erase(0, std::min(text.find_first_not_of(kWhiteSpace), text.size()));
    const bool is_negative = text.starts_with('-');
    if (text.starts_with('+') && text.substr(1, 1) != "-") {
        text.erase(0, 1);
    }
    int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::invalid_argument) {
        return false;
    }
    if (error == std::errc::result_out_of_range) {
        value = is_negative ? INT64_MIN : INT64_MAX;
    }
    text.erase(0, static_cast<size_t>(end - text.data()));
    number = static_cast<int>(value);
    return true;
}

bool Scan(std::string line, Candidate& candidate) {
    int ignored;
    if (!TakeNumber(line, ignored) || !TakeNumber(line, ignored) ||
        !TakeNumber(line, candidate.size_kib)) {
        return false;
    }
    const size_t start = line.find_first_not_of(kWhiteSpace);
    if (start == std::string::npos) {
        return false;
    }
    candidate.name = line.substr(start, line.find_first_of(kWhiteSpace, start) - start);
    return true;
}

Reading Expected(const Kernel& kernel) {
    Reading reading = {!kernel.has_file || !kernel.has_list, {}, "fopen /proc/partitions r\n"};
    if (!kernel.has_file) {
        reading.printed +=
            UdiskLine("Warning", "readPartitionList", "failed to open /proc/partitions");
    }
    if (reading.is_none) {
        return reading;
    }
    const std::vector<std::string> lines = LinesOf(kernel.partitions);
    for (size_t i = 2; i < lines.size(); ++i) {
        Candidate candidate;
        if (!Scan(lines[i], candidate)) {
            const std::string shown = lines[i].substr(0, std::max(lines[i].size(), size_t{1}) - 1);
            reading.printed += UdiskLine("Info", "readPartitionList",
                                         "invalid line in /proc/partitions: '" + shown + "'\n");
            break;
        }
        const std::string kind = candidate.name.substr(0, 2);
        if ((kind != "sd" && kind != "ub") || candidate.size_kib <= 0) {
            continue;
        }
        if (reading.candidates.size() == std::min(kernel.growths, kernel.copies)) {
            break;
        }
        reading.candidates.push_back(candidate);
    }
    return reading;
}

std::string ExpectedMounting(const Kernel& kernel, const Reading& reading) {
    std::string text = reading.printed + "opendir /proc/scsi/usb-storage\numount /mnt/removable\n" +
                       UdiskLine("Info", "DoUmount", "umounted /mnt/removable successfully!\n");
    int refusals = kernel.refusals;
    for (const Candidate& candidate : reading.candidates) {
        const std::string device = "/dev/" + candidate.name;
        text += "mount " + device + " /mnt/removable vfat 8\n";
        if (refusals-- <= 0) {
            const std::string size_mib = std::to_string(candidate.size_kib / 1024);
            return text + UdiskLine("Info", "DoLoopMount", "capacity=" + size_mib + "M\n") +
                   UdiskLine("Info", "DoLoopMount", "Mount " + device + " sucessfully\n") +
                   UdiskLine("Info", "DoMountUdisk", "mount successful\n");
        }
        text += UdiskLine("Warning", "DoLoopMount", "Mount " + device + " failed\n");
    }
    return text + UdiskLine("Warning", "DoMountUdisk", "mounted failed\n");
}

Reading Read() {
    Reading reading = {};
    reading.printed = Traced([&] {
        PartitionEntry* const list = readPartitionList();
        reading.is_none = list == nullptr;
        for (const PartitionEntry* entry = list; entry != nullptr && entry->name != nullptr;
             ++entry) {
            reading.candidates.push_back({entry->name, entry->size_kib});
        }
        free(list);
    });
    return reading;
}

void FreeNames() {
    for (char* name : gNames) {
        free(name);
    }
    gNames.clear();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const auto limit = [&] {
        const int count = input.Between(0, kUnlimited);
        return count == kUnlimited ? SIZE_MAX : static_cast<size_t>(count);
    };
    Kernel kernel = {};
    kernel.has_file = input.Between(0, 15) > 0;
    kernel.has_list = input.Between(0, 15) > 0;
    kernel.growths = limit();
    kernel.copies = limit();
    kernel.refusals = input.Between(0, 15);
    kernel.partitions = input.Bytes();

    const Reading expected = Expected(kernel);
    gKernel = kernel;
    const Reading reading = Read();
    Require(reading.is_none == expected.is_none, "whether there is a list");
    Require(reading.candidates == expected.candidates, "the candidates");
    RequireTrace(reading.printed, expected.printed);

    gKernel = kernel;
    const bool is_mounted = static_cast<size_t>(kernel.refusals) < expected.candidates.size();
    RequireTrace(
        Traced([&] { Require(DoMountUdisk() == (is_mounted ? 0 : 1), "DoMountUdisk's result"); }),
        ExpectedMounting(kernel, expected));
    FreeNames();
    return 0;
}
