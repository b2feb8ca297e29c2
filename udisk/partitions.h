// The disks and partitions that the kernel knows, as candidates for mounting.
#ifndef UDISK_PARTITIONS_H
#define UDISK_PARTITIONS_H

#include <cstdint>

struct PartitionEntry {
    char* name;        // as in sda1; nullptr ends a list
    int32_t size_kib;  // not set in the end entry
};

extern "C" {

// Reads /proc/partitions. The list is one heap block, for the caller to free; its names are left
// to the end of the process, which is near.
//
// Returns nullptr when the file cannot be opened, or without memory for the first block. A line
// that does not scan ends the reading, and so does a lack of memory, which is not logged; the
// candidates before it are kept.
PartitionEntry* readPartitionList();
}

#endif
