// DoMountUdisk: the attempts on the candidates and their outcome.

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "tests/udisk/fake_terminal.h"
#include "udisk/udiskdetection.h"

namespace {

using Texts = std::vector<std::string>;

// An attempt with the mount point in its place, and the log of a failed one.
Texts FailedAttempt(const std::string& device) {
    return {
        "access [/mnt/removable] 0",
        "mount " + device + " /mnt/removable vfat 8 none",
        "Warning udiskdetection DoLoopMount: Mount " + device + " failed\\n",
    };
}

Texts GoodAttempt(const std::string& device, const std::string& capacity) {
    return {
        "access [/mnt/removable] 0",
        "mount " + device + " /mnt/removable vfat 8 none",
        "Info udiskdetection DoLoopMount: capacity=" + capacity + "M\\n",
        "Info udiskdetection DoLoopMount: Mount " + device + " sucessfully\\n",
        "Info udiskdetection DoMountUdisk: mount successful\\n",
    };
}

const Texts kMountedFailed = {"Warning udiskdetection DoMountUdisk: mounted failed\\n"};

// What CreateMulvPath does for the mount point in an existing /mnt.
const Texts kMountPointIsMade = {
    "access [/mnt/removable] 0",
    "Info fileutils CreateMulvPath: /mnt/removable/:15\\n",
    "access [] 0",
    "Info fileutils CreateMulvPath: create 0 p=[]\\n",
    "mkdir [] 0777",
    "access [/mnt] 0",
    "access [/mnt/removable] 0",
    "Info fileutils CreateMulvPath: create 14 p=[/mnt/removable]\\n",
    "mkdir [/mnt/removable] 0777",
};

}  // namespace

class DoMountUdiskTest : public testing::Test {
protected:
    FakeTerminal terminal_;
};

TEST_F(DoMountUdiskTest, MountsTheFirstCandidate) {
    terminal_.SetPartitions("8 0 7822336 sda\n8 1 7821312 sda1\n");
    terminal_.mount_results = {{"/dev/sda", 0}, {"/dev/sda1", 0}};
    EXPECT_EQ(DoMountUdisk(), 0);
    EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + GoodAttempt("/dev/sda", "7639"));
}

TEST_F(DoMountUdiskTest, GoesOnToTheNextCandidate) {
    terminal_.SetPartitions("8 0 7822336 sda\n8 1 7821312 sda1\n8 2 1 sda2\n");
    terminal_.mount_results = {{"/dev/sda1", 0}, {"/dev/sda2", 0}};
    EXPECT_EQ(DoMountUdisk(), 0);
    EXPECT_EQ(terminal_.calls,
              CallsBeforeMounting() + FailedAttempt("/dev/sda") + GoodAttempt("/dev/sda1", "7638"));
}

TEST_F(DoMountUdiskTest, FailsWhenEveryCandidateFails) {
    terminal_.SetPartitions("8 0 7822336 sda\n180 1 7821312 ub1\n");
    EXPECT_EQ(DoMountUdisk(), 1);
    EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + FailedAttempt("/dev/sda") +
                                   FailedAttempt("/dev/ub1") + kMountedFailed);
}

TEST_F(DoMountUdiskTest, FailsOnAnEmptyListAfterTheUnmount) {
    EXPECT_EQ(DoMountUdisk(), 1);
    EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + kMountedFailed);
}

TEST_F(DoMountUdiskTest, FailsWithoutAListAfterTheUnmount) {
    terminal_.partitions = std::nullopt;
    EXPECT_EQ(DoMountUdisk(), 1);
    EXPECT_EQ(terminal_.calls,
              (Texts{"fopen /proc/partitions r",
                     "Warning udiskdetection readPartitionList: failed to open /proc/partitions",
                     "opendir /proc/scsi/usb-storage", "umount /mnt/removable",
                     "Info udiskdetection DoUmount: umounted /mnt/removable successfully!\\n"}) +
                  kMountedFailed);
}

TEST_F(DoMountUdiskTest, TriesTheCandidatesBeforeAnInvalidLine) {
    terminal_.SetPartitions("8 0 2048 sda\n\n8 16 4096 sdb\n");
    terminal_.mount_results = {{"/dev/sdb", 0}};
    EXPECT_EQ(DoMountUdisk(), 1);
    EXPECT_EQ(terminal_.calls,
              (Texts{"fopen /proc/partitions r",
                     "Info udiskdetection readPartitionList: invalid line in /proc/partitions: "
                     "''\\n",
                     "opendir /proc/scsi/usb-storage", "umount /mnt/removable",
                     "Info udiskdetection DoUmount: umounted /mnt/removable successfully!\\n"}) +
                  FailedAttempt("/dev/sda") + kMountedFailed);
}

TEST_F(DoMountUdiskTest, DoesNotMindAFailedUnmount) {
    terminal_.SetPartitions("8 0 1024 sda\n");
    terminal_.mount_results = {{"/dev/sda", 0}};
    terminal_.umount_result = -1;
    EXPECT_EQ(DoMountUdisk(), 0);
    EXPECT_EQ(terminal_.calls,
              (Texts{"fopen /proc/partitions r", "opendir /proc/scsi/usb-storage",
                     "umount /mnt/removable",
                     "Warning udiskdetection DoUmount: umounted /mnt/removable failed!\\n"}) +
                  GoodAttempt("/dev/sda", "1"));
}

TEST_F(DoMountUdiskTest, TakesAnyResultButMinusOneForAMount) {
    terminal_.SetPartitions("8 0 1024 sda\n");
    for (const int result : {0, 1, -2, INT_MIN}) {
        terminal_.mount_results = {{"/dev/sda", result}};
        terminal_.calls.clear();
        EXPECT_EQ(DoMountUdisk(), 0) << result;
        EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + GoodAttempt("/dev/sda", "1"));
    }
}

TEST_F(DoMountUdiskTest, RoundsTheCapacityDown) {
    const struct {
        const char* size_kib;
        const char* capacity;
    } kCases[] = {
        {"1", "0"},          {"1023", "0"},       {"1024", "1"},       {"2047", "1"},
        {"1048576", "1024"}, {"7822336", "7639"}, {"8388607", "8191"}, {"2147483647", "2097151"}};
    for (const auto& [size_kib, capacity] : kCases) {
        terminal_.SetPartitions(std::string("8 0 ") + size_kib + " sda\n");
        terminal_.mount_results = {{"/dev/sda", 0}};
        terminal_.calls.clear();
        EXPECT_EQ(DoMountUdisk(), 0);
        EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + GoodAttempt("/dev/sda", capacity));
    }
}

TEST_F(DoMountUdiskTest, MakesAMissingMountPoint) {
    terminal_.SetPartitions("8 0 1024 sda\n");
    terminal_.existing = {"/mnt"};
    terminal_.mount_results = {{"/dev/sda", 0}};
    EXPECT_EQ(DoMountUdisk(), 0);
    Texts attempt = GoodAttempt("/dev/sda", "1");
    attempt.erase(attempt.begin());  // the test for the mount point
    EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + kMountPointIsMade + attempt);
}

TEST_F(DoMountUdiskTest, LooksForTheMountPointBeforeEveryAttempt) {
    terminal_.SetPartitions("8 0 1024 sda\n8 1 1023 sda1\n");
    terminal_.existing = {"/mnt"};
    terminal_.makes_folders = false;
    EXPECT_EQ(DoMountUdisk(), 1);
    Texts first = FailedAttempt("/dev/sda");
    Texts second = FailedAttempt("/dev/sda1");
    first.erase(first.begin());
    second.erase(second.begin());
    EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + kMountPointIsMade + first +
                                   kMountPointIsMade + second + kMountedFailed);
}

TEST_F(DoMountUdiskTest, TakesTheLongestNameWhole) {
    const std::string name = "sd" + std::string(255 - 9, 'x');
    terminal_.SetPartitions("8 0 10 " + name);
    terminal_.mount_results = {{"/dev/" + name, 0}};
    EXPECT_EQ(DoMountUdisk(), 0);
    EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + GoodAttempt("/dev/" + name, "0"));
}

TEST_F(DoMountUdiskTest, KeepsNothingButTheNames) {
    terminal_.SetPartitions("8 0 1024 sda\n8 1 1023 sda1\n");
    for (const int result : {0, 1}) {
        terminal_.mount_results = {{result == 0 ? "/dev/sda1" : "none", 0}};
        EXPECT_EQ(DoMountUdisk(), result);
        EXPECT_EQ(terminal_.open_streams, 0);
        EXPECT_EQ(terminal_.open_folders, 0);
    }
    EXPECT_EQ(terminal_.TextsOnHeap(), (Texts{"sda", "sda", "sda1", "sda1"}));
}

TEST_F(DoMountUdiskTest, ReleasesFirstWhatItMountedBefore) {
    terminal_.SetPartitions("8 0 1024 sda\n");
    terminal_.mount_results = {{"/dev/sda", 0}};
    DoMountUdisk();
    DoMountUdisk();
    const Texts once = CallsBeforeMounting() + GoodAttempt("/dev/sda", "1");
    EXPECT_EQ(terminal_.calls, once + once);
}

TEST_F(DoMountUdiskTest, TriesWhatFitsIntoMemory) {
    terminal_.SetPartitions("8 0 1024 sda\n8 1 1023 sda1\n");
    terminal_.growths = 1;
    EXPECT_EQ(DoMountUdisk(), 1);
    EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + FailedAttempt("/dev/sda") + kMountedFailed);
    EXPECT_EQ(terminal_.open_streams, 0);
}

TEST_F(DoMountUdiskTest, TriesNothingWithoutMemory) {
    terminal_.SetPartitions("8 0 1024 sda\n");
    terminal_.has_list = false;
    EXPECT_EQ(DoMountUdisk(), 1);
    EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + kMountedFailed);
}

TEST_F(DoMountUdiskTest, MountsACandidateOfAnyBusOnceADeviceCounts) {
    terminal_.SetPartitions("8 0 1024 sda\n");
    terminal_.mount_results = {{"/dev/sda", 0}};
    terminal_.has_usb_storage = false;
    terminal_.bus_entries = 4;  // a keyboard on bus 1
    EXPECT_EQ(DoMountUdisk(), 0);
}
