// CopyFolder: the names in a folder become shell commands. The folder is in memory; its records
// are as short as the kernel's.

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>
#include <vector>

#include "tests/fuzz/input.h"
#include "tests/fuzz/trace.h"
#include "util/fileutils.h"

namespace {

constexpr size_t kMostEntries = 20;
constexpr size_t kLongestName = 300;  // more than the record holds

struct Entry {
    std::string name;
    unsigned char type;
    bool has_status;
    mode_t mode;
    bool is_refused;  // by the filter
    int command_status;
};

struct Folder {
    std::string path;
    std::string dest;
    bool is_missing;
    bool has_filter;
    std::vector<Entry> entries;

    std::unique_ptr<char[]> record = {};
    size_t next = 0;  // entry of readdir
};
Folder* gFolder;

const Entry& Current() {
    return gFolder->entries[gFolder->next - 1];
}

// Room for the name, up to the next multiple of 8.
size_t RecordSize(const Entry& entry) {
    return (offsetof(struct dirent, d_name) + entry.name.size() + 1 + 7) / 8 * 8;
}

int Filter(CopyFolderItem* item) {
    const char* const bytes = reinterpret_cast<const char*>(item->entry);
    const size_t reached = std::min(RecordSize(Current()), sizeof *item->entry);
    const size_t behind = sizeof *item->entry - reached;
    const bool is_cleared = std::string(bytes + reached, behind) == std::string(behind, '\0');
    printf("filter %d %s %d%s\n", item->index, item->entry->d_name,
           static_cast<int>(item->status->st_mode), is_cleared ? "" : " not cleared");
    return Current().is_refused ? -1 : 0;
}

}  // namespace

extern "C" {

DIR* __real_opendir(const char* path);
DIR* __wrap_opendir(const char* path) {
    if (!IsTracing()) {
        return __real_opendir(path);
    }
    printf("opendir %s\n", path);
    return gFolder->is_missing ? nullptr : reinterpret_cast<DIR*>(gFolder);
}

int __real_closedir(DIR* folder);
int __wrap_closedir(DIR* folder) {
    if (!IsTracing()) {
        return __real_closedir(folder);
    }
    puts("closedir");
    return 0;
}

struct dirent* __real_readdir(DIR* folder);
struct dirent* __wrap_readdir(DIR* folder) {
    if (!IsTracing()) {
        return __real_readdir(folder);
    }
    if (gFolder->next == gFolder->entries.size()) {
        return nullptr;
    }
    ++gFolder->next;
    const Entry& entry = Current();
    const size_t size = RecordSize(entry);
    gFolder->record.reset(new char[size]);
    char* const bytes = gFolder->record.get();
    memset(bytes, 'x', size);
    auto* const record = reinterpret_cast<struct dirent*>(bytes);
    record->d_reclen = static_cast<unsigned short>(size);
    record->d_type = entry.type;
    memcpy(bytes + offsetof(struct dirent, d_name), entry.name.c_str(), entry.name.size() + 1);
    return record;
}

int __real_stat(const char* path, struct stat* status);
int __wrap_stat(const char* path, struct stat* status) {
    if (!IsTracing()) {
        return __real_stat(path, status);
    }
    printf("stat %s\n", path);
    if (!Current().has_status) {
        errno = ELOOP;
        return -1;
    }
    *status = {};
    status->st_mode = Current().mode;
    return 0;
}

int __wrap_systemEx(const char* command) {
    printf("run %s\n", command);
    return Current().command_status;
}
}

namespace {

std::string FileLine(const char* level, const char* function, const std::string& message) {
    return LogText(level, "fileutils", function, message);
}

// What TrGetFileName writes on its way to the entry or past it.
std::string ExpectedLook(const Folder& folder, const Entry& entry) {
    const std::string path = (folder.path.substr(0, 255) + "//" + entry.name).substr(0, 511);
    const std::string text = "stat " + path + "\n";
    if (!entry.has_status) {
        return text +
               FileLine("Warning", "TrGetFileName",
                        "Path:" + path + ",name:" + entry.name + ", stat fail!!!") +
               "test===========: " + strerror(ELOOP) + "\n";
    }
    return text + FileLine("Info", "TrGetFileName",
                           "name:" + entry.name + "," + std::to_string(entry.mode));
}

bool IsDelivered(const Entry& entry) {
    const mode_t kind = entry.mode & S_IFMT;
    return entry.has_status && (kind == S_IFREG || kind == S_IFDIR) && entry.name != "." &&
           entry.name != "..";
}

std::string Expected(const Folder& folder, int& copied) {
    std::string text = "opendir " + folder.path + "\n";
    if (folder.is_missing) {
        copied = -1;
        return text + FileLine("Warning", "CopyFolder", "opendir " + folder.path + " fail");
    }
    copied = 0;
    for (const Entry& entry : folder.entries) {
        text += ExpectedLook(folder, entry);
        if (!IsDelivered(entry)) {
            continue;
        }
        const std::string name = entry.name.substr(0, 255);
        text += FileLine("Info", "CopyFolder",
                         "photName:" + name + ", type:" + std::to_string(entry.type));
        if (folder.has_filter) {
            text += "filter " + std::to_string(copied) + " " + name + " " +
                    std::to_string(entry.mode) + "\n";
            if (entry.is_refused) {
                continue;
            }
        }
        const std::string source = (folder.path + "/" + name).substr(0, 79);
        const std::string command =
            ("cp " + source + " " + folder.dest + " -rf && sync").substr(0, 254);
        text += FileLine("Info", "CopyFolder", "command:" + command) + "run " + command + "\n";
        copied += entry.command_status == 0 ? 1 : 0;
    }
    return text + "closedir\n";
}

Entry EntryIn(Input& input) {
    constexpr mode_t kModes[] = {S_IFREG | 0644, S_IFDIR | 0755, S_IFREG, S_IFDIR | S_ISVTX,
                                 S_IFSOCK,       S_IFIFO | 0600, S_IFCHR, S_IFBLK};
    Entry entry = {};
    entry.mode = kModes[input.Between(0, 7)];
    entry.type = static_cast<unsigned char>(input.Byte());
    const int answers = input.Between(0, 15);
    entry.has_status = answers > 1;
    entry.is_refused = answers > 13;
    entry.command_status = answers > 11 ? 256 : 0;
    entry.name = input.Word().substr(0, kLongestName);
    return entry;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    Folder folder = {};
    folder.is_missing = input.Between(0, 15) == 0;
    folder.has_filter = input.Between(0, 1) == 0;
    folder.path = input.Word();
    folder.dest = input.Word();
    while (!input.IsAtEnd() && folder.entries.size() < kMostEntries) {
        folder.entries.push_back(EntryIn(input));
    }
    gFolder = &folder;
    int copied;
    const std::string expected = Expected(folder, copied);
    RequireTrace(Traced([&] {
                     Require(CopyFolder(folder.path.c_str(), folder.dest.c_str(),
                                        folder.has_filter ? Filter : nullptr) == copied,
                             "the number of copies");
                 }),
                 expected);
    gFolder = nullptr;
    return 0;
}
