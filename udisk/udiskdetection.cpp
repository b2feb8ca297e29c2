// Deciding whether a USB disk is there, and mounting it on the one mount point.

#include "udisk/udiskdetection.h"

#include <dirent.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "log/log_line.h"
#include "udisk/partitions.h"
#include "util/fileutils.h"
#include "util/owners.h"

namespace {

constexpr const char* kLogTag = log_tag::kUdisk;
constexpr char kMountPoint[] = UDISK_MOUNT_POINT;
constexpr char kFileSystemType[] = "vfat";
constexpr char kUsbStorageFolder[] = "/proc/scsi/usb-storage";
constexpr char kUsbBusFolder[] = "/proc/bus/usb/001";
constexpr int kEmptyBusEntries = 3;  // ".", ".." and the root hub's 001
constexpr int kKibPerMibBits = 10;
constexpr int kDevicePathSize = 261;  // "/dev/", a name of 255 characters, the terminator
constexpr int kMountPathSize = 1024;

enum { kMounted = 0, kNothingMounted = 1, kNoDevice = 2 };  // results of DoMountUdisk

// The entries of the folder, "." and ".." included, or -1 when it cannot be listed.
int CountSortedEntries(const char* folder) {
    struct dirent** entries;
    const int count = scandir(folder, &entries, nullptr, alphasort);
    if (count < 0) {
        return -1;
    }
    for (int i = 0; i < count; ++i) {
        free(entries[i]);
    }
    free(entries);
    return count;
}

bool IsUsbDiskPresent() {
    const UniqueDir storage(opendir(kUsbStorageFolder));
    return storage || CountSortedEntries(kUsbBusFolder) > kEmptyBusEntries;
}

void CreateMountPoint() {
    char path[kMountPathSize];
    snprintf(path, sizeof path, "%s/", kMountPoint);
    CreateMulvPath(path);
}

bool MountDevice(const char* device) {
    return mount(device, kMountPoint, kFileSystemType, MS_NOEXEC, nullptr) != -1;
}

}  // namespace

extern "C" {

// Mounts the first candidate that the kernel accepts. False when there is none, or no list. Log
// lines carry the function's name.
static bool DoLoopMount(const PartitionEntry* list) {
    if (list == nullptr) {
        return false;
    }
    for (const PartitionEntry* entry = list; entry->name != nullptr; ++entry) {
        char device[kDevicePathSize];
        snprintf(device, sizeof device, "/dev/%s", entry->name);
        if (access(kMountPoint, F_OK) != 0) {
            CreateMountPoint();
        }
        if (MountDevice(device)) {
            LOG(LOG_INFO, "capacity=%dM\n",
                static_cast<int>(static_cast<uint32_t>(entry->size_kib) >> kKibPerMibBits));
            LOG(LOG_INFO, "Mount %s sucessfully\n", device);
            return true;
        }
        LOG(LOG_WARNING, "Mount %s failed\n", device);
    }
    return false;
}

int DoMountUdisk(void) {
    const UniqueMemory memory(readPartitionList());
    if (!IsUsbDiskPresent()) {
        LOG(LOG_INFO, "Insert udisk please\n");
        return kNoDevice;
    }
    DoUmount();  // of an earlier run's disk; that nothing was mounted does not matter
    if (!DoLoopMount(static_cast<const PartitionEntry*>(memory.Get()))) {
        LOG(LOG_WARNING, "mounted failed\n");
        return kNothingMounted;
    }
    LOG(LOG_INFO, "mount successful\n");
    return kMounted;
}

void DoUmount(void) {
    switch (umount(kMountPoint)) {
        case -1:
            LOG(LOG_WARNING, "umounted %s failed!\n", kMountPoint);
            break;
        case 0:
            LOG(LOG_INFO, "umounted %s successfully!\n", kMountPoint);
            break;
        default:
            LOG(LOG_WARNING, "umounted state Unknown!\n");
            break;
    }
}
}
