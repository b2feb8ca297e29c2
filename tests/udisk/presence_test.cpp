// DoMountUdisk: whether a USB storage device is there at all.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/udisk/fake_terminal.h"
#include "udisk/udiskdetection.h"

namespace {

using Texts = std::vector<std::string>;

const Texts kBusIsListed = {
    "opendir /proc/scsi/usb-storage",
    "scandir /proc/bus/usb/001 all alphasort",
};
const Texts kListIsRead = {"fopen /proc/partitions r"};
const Texts kInsert = {"Info udiskdetection DoMountUdisk: Insert udisk please\\n"};
const Texts kUnmounted = {
    "umount /mnt/removable",
    "Info udiskdetection DoUmount: umounted /mnt/removable successfully!\\n",
};
const Texts kMountedFailed = {"Warning udiskdetection DoMountUdisk: mounted failed\\n"};

}  // namespace

class UsbPresence : public testing::Test {
protected:
    UsbPresence() { terminal_.has_usb_storage = false; }

    FakeTerminal terminal_;
};

TEST_F(UsbPresence, IsTheStorageFolder) {
    terminal_.has_usb_storage = true;
    terminal_.bus_entries = 0;
    EXPECT_EQ(DoMountUdisk(), 1);
    EXPECT_EQ(terminal_.calls, CallsBeforeMounting() + kMountedFailed);  // nothing is read in it
    EXPECT_EQ(terminal_.open_folders, 0);
}

TEST_F(UsbPresence, IsFourEntriesOnTheBus) {
    for (const int entries : {4, 5, 129}) {
        terminal_.bus_entries = entries;
        terminal_.calls.clear();
        EXPECT_EQ(DoMountUdisk(), 1) << entries;
        EXPECT_EQ(terminal_.calls, kListIsRead + kBusIsListed + kUnmounted + kMountedFailed);
    }
}

TEST_F(UsbPresence, IsMissingUpToThreeEntries) {
    terminal_.SetPartitions("8 0 1024 sda\n");
    terminal_.mount_results = {{"/dev/sda", 0}};
    for (const int entries : {-1, 0, 2, 3}) {
        terminal_.bus_entries = entries;
        terminal_.calls.clear();
        EXPECT_EQ(DoMountUdisk(), 2) << entries;
        EXPECT_EQ(terminal_.calls, kListIsRead + kBusIsListed + kInsert) << entries;
    }
}

TEST_F(UsbPresence, IsLookedForAlsoWithoutAPartitionList) {
    terminal_.partitions = std::nullopt;
    const Texts no_list =
        kListIsRead +
        Texts{"Warning udiskdetection readPartitionList: failed to open /proc/partitions"};
    terminal_.bus_entries = 3;
    EXPECT_EQ(DoMountUdisk(), 2);
    EXPECT_EQ(terminal_.calls, no_list + kBusIsListed + kInsert);

    terminal_.bus_entries = 4;
    terminal_.calls.clear();
    EXPECT_EQ(DoMountUdisk(), 1);
    EXPECT_EQ(terminal_.calls, no_list + kBusIsListed + kUnmounted + kMountedFailed);
}

TEST_F(UsbPresence, TestLeavesNothingOpenOrOnTheHeap) {
    terminal_.SetPartitions("8 0 1024 sda\n");
    for (const int entries : {-1, 0, 3, 4}) {
        terminal_.bus_entries = entries;
        DoMountUdisk();
    }
    EXPECT_EQ(terminal_.open_streams, 0);
    EXPECT_EQ(terminal_.open_folders, 0);
    EXPECT_EQ(terminal_.TextsOnHeap(), (Texts{"sda", "sda", "sda", "sda"}));
}
