// The terminal that udisk sees: the kernel's files, the mount calls, the heap.
#ifndef TESTS_UDISK_FAKE_TERMINAL_H
#define TESTS_UDISK_FAKE_TERMINAL_H

#include <climits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/support/recorded_log.h"

// While it lives, the platform calls and the log of udisk are answered from here and recorded, in
// their order, as lines of text: "mount /dev/sda /mnt/removable vfat 8 none", and a log line as
// "Info udiskdetection DoUmount: umounted ...". What is released (streams, folders, heap blocks) is
// counted apart.
class FakeTerminal {
public:
    FakeTerminal();
    ~FakeTerminal();
    FakeTerminal(const FakeTerminal&) = delete;
    FakeTerminal& operator=(const FakeTerminal&) = delete;

    static FakeTerminal* active() { return active_; }

    // The setting.
    std::optional<std::string> partitions;  // /proc/partitions; none: it cannot be opened
    bool has_usb_storage = true;            // /proc/scsi/usb-storage
    int bus_entries = -1;                   // in /proc/bus/usb/001; -1: no such folder
    std::set<std::string> existing = {"/mnt", "/mnt/removable"};  // what access finds
    bool makes_folders = true;                                    // else mkdir fails
    std::map<std::string, int> mount_results;                     // by device; the others give -1
    int umount_result = 0;
    bool has_stream_buffer = true;  // else malloc(16384) fails
    bool has_list = true;           // else any other malloc fails
    int growths = INT_MAX;          // calls of realloc that do not fail
    int copies = INT_MAX;           // calls of strdup that do not fail

    // The header of /proc/partitions and these lines.
    void SetPartitions(const std::string& lines);

    // What happened.
    std::vector<std::string> calls;
    std::vector<std::string> stream_calls;  // setvbuf, fclose and the end of the stream's buffer
    int open_streams = 0;
    int open_folders = 0;
    std::vector<std::string> TextsOnHeap() const;  // the blocks that were not freed

    // For the replaced calls.
    void Record(const std::string& call) { calls.push_back(call); }
    void* Own(void* block);
    void Disown(void* block) { blocks_.erase(block); }
    void* stream_buffer = nullptr;

private:
    const RecordedLog log_;
    inline static FakeTerminal* active_ = nullptr;
    std::set<void*> blocks_;
};

// The calls up to the mount attempts when a device is present.
std::vector<std::string> CallsBeforeMounting();

std::vector<std::string> operator+(std::vector<std::string> left,
                                   const std::vector<std::string>& right);

#endif
