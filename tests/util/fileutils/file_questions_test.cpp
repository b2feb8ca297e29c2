// DiskSpaceUsed, CheckFileExists and JudgePicFile.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/exact_copy.h"
#include "tests/support/log_lines.h"
#include "tests/util/fileutils/fake_files.h"
#include "tests/util/fileutils/work_folder.h"
#include "util/fileutils.h"

namespace {

using BlockCount = decltype(statfs::f_blocks);

constexpr BlockCount kMost = std::numeric_limits<BlockCount>::max();

// A disk of the given blocks; all that is no count holds ones.
struct statfs Disk(BlockCount blocks, BlockCount free, BlockCount available) {
    struct statfs disk;
    memset(&disk, 0xFF, sizeof disk);
    disk.f_blocks = blocks;
    disk.f_bfree = free;
    disk.f_bavail = available;
    return disk;
}

int UsedOf(BlockCount blocks, BlockCount free, BlockCount available) {
    FakeFiles files;
    files.disk = Disk(blocks, free, available);
    return DiskSpaceUsed("/any");
}

class CheckFileExistsTest : public WorkFolder {};
class DiskSpaceUsedTest : public WorkFolder {};

}  // namespace

static_assert(sizeof(DiskSpaceUsed("")) == 4);

TEST_F(DiskSpaceUsedTest, LeavesTheReserveOutOfTheTotal) {
    EXPECT_EQ(UsedOf(1000, 250, 200), 79);
    EXPECT_EQ(UsedOf(1000, 250, 250), 75);
    EXPECT_EQ(UsedOf(1000, 250, 0), 100);
}

TEST_F(DiskSpaceUsedTest, RoundsToNearestAndAHalfUp) {
    const struct {
        BlockCount used;
        BlockCount available;
        int percent;
    } kCases[] = {
        {0, 1, 0},      {1, 0, 100},     {1, 1, 50},    {1, 2, 33},    {2, 1, 67},    {1, 199, 1},
        {1, 200, 0},    {3, 197, 2},     {3, 198, 1},   {199, 1, 100}, {198, 1, 99},  {1, 7, 13},
        {3, 5, 38},     {5, 3, 63},      {7, 1, 88},    {9, 1991, 0},  {10, 1990, 1}, {11, 1989, 1},
        {1989, 11, 99}, {1990, 10, 100}, {29, 1971, 1}, {30, 1970, 2}, {1, 1000, 0},  {999, 1, 100},
    };
    for (const auto& [used, available, percent] : kCases) {
        EXPECT_EQ(UsedOf(used + available, available, available), percent)
            << used << " used, " << available << " available";
    }
}

TEST_F(DiskSpaceUsedTest, IsTheNearestPercentOfEverySmallDisk) {
    for (BlockCount used = 0; used <= 250; ++used) {
        for (BlockCount available = used == 0 ? 1 : 0; available <= 250; ++available) {
            const BlockCount total = used + available;
            const auto nearest = static_cast<int>((200 * used + total) / (2 * total));
            ASSERT_EQ(UsedOf(total, available, available), nearest) << used << "/" << total;
        }
    }
}

TEST_F(DiskSpaceUsedTest, CountsIn64Bits) {
    constexpr BlockCount kBlocks = 0xFFFFFFFF;
    EXPECT_EQ(UsedOf(kBlocks, 0, 0), 100);
    EXPECT_EQ(UsedOf(kBlocks, kBlocks - 1, kBlocks - 1), 0);
    EXPECT_EQ(UsedOf(kBlocks, kBlocks / 2, kBlocks / 2), 50);
    EXPECT_EQ(UsedOf(kBlocks, kBlocks / 4, kBlocks / 4), 75);
    EXPECT_EQ(UsedOf(0x80000000, 0x20000000, 0x20000000), 75);
    if constexpr (sizeof(BlockCount) == 8) {
        const BlockCount huge = BlockCount{1} << (8 * sizeof(BlockCount) - 8);  // times 100 fits
        EXPECT_EQ(UsedOf(huge, 0, 0), 100);
        EXPECT_EQ(UsedOf(huge, huge / 4, huge / 4), 75);
        EXPECT_EQ(UsedOf(kMost, kMost - 1, kMost - 1), 0);
    }
}

TEST_F(DiskSpaceUsedTest, IsZeroWithoutBlocks) {
    EXPECT_EQ(UsedOf(0, 0, 0), 0);
    EXPECT_EQ(UsedOf(0, 0, 10), 0);
    EXPECT_EQ(UsedOf(0, kMost, 10), 0);  // 1 used of 11, were it counted
}

TEST_F(DiskSpaceUsedTest, IsZeroWhenNothingIsUsedOrAvailable) {
    EXPECT_EQ(UsedOf(5, 5, 0), 0);
}

TEST_F(DiskSpaceUsedTest, IsZeroWhenTheKernelRefuses) {
    FakeFiles files;
    CapturedLog log;
    CapturedStream errors(stderr);
    EXPECT_EQ(DiskSpaceUsed("/some/path"), 0);
    EXPECT_EQ(files.calls, (std::vector<std::string>{"statfs /some/path"}));
    EXPECT_EQ(log.TakeText() + errors.Take(), "");
}

TEST_F(DiskSpaceUsedTest, AsksTheKernel) {
    EXPECT_EQ(DiskSpaceUsed(Path("missing").c_str()), 0);
    EXPECT_EQ(DiskSpaceUsed("/proc"), 0);  // has no blocks

    struct statfs disk;
    ASSERT_EQ(statfs(folder().c_str(), &disk), 0);
    const double used = static_cast<double>(disk.f_blocks - disk.f_bfree);
    const double percent = 100 * used / (used + static_cast<double>(disk.f_bavail));
    Write("file", "x");
    EXPECT_NEAR(DiskSpaceUsed(Path("file").c_str()), percent, 1.5);
}

TEST_F(CheckFileExistsTest, SaysWhetherThePathLeadsToSomething) {
    Write("file", "");
    ASSERT_EQ(symlink("file", Path("link").c_str()), 0);
    ASSERT_EQ(symlink("missing", Path("dangling").c_str()), 0);
    EXPECT_EQ(CheckFileExists(Path("file").c_str()), 1);
    EXPECT_EQ(CheckFileExists(Path("link").c_str()), 1);
    EXPECT_EQ(CheckFileExists(folder().c_str()), 1);
    EXPECT_EQ(CheckFileExists(Path("missing").c_str()), 0);
    EXPECT_EQ(CheckFileExists(Path("dangling").c_str()), 0);
    EXPECT_EQ(CheckFileExists(Path("file/x").c_str()), 0);
    EXPECT_EQ(CheckFileExists(""), 0);
}

TEST_F(CheckFileExistsTest, IsZeroForNull) {
    FakeFiles files;
    files.access_result = 0;
    EXPECT_EQ(CheckFileExists(nullptr), 0);
    EXPECT_TRUE(files.calls.empty());
}

TEST_F(CheckFileExistsTest, NeedsNoPermissionOnTheFile) {
    FakeFiles files;
    files.access_result = 0;
    EXPECT_EQ(CheckFileExists("file"), 1);
    EXPECT_EQ(files.calls, (std::vector<std::string>{"access file " + std::to_string(F_OK)}));
    for (const int other : {-1, 1}) {
        files.access_result = other;
        EXPECT_EQ(CheckFileExists("file"), 0) << other;
    }
}

TEST(JudgePicFile, KnowsFiveExtensionsInAnyCase) {
    for (const char* name : {"a.jpg", "a.jpeg", "a.bmp", "a.png", "a.gif", "a.JPG", "IMG.JPEG",
                             "a.BMP", "a.PNG", "a.GIF", "photo.Gif", "a.jPg", "a.Jpeg", "a.bMp",
                             "a.pnG", ".png", ".jpg", "a b.gif", "/mnt/x/a.bmp"}) {
        EXPECT_EQ(JudgePicFile(ExactCopy(name).get()), 1) << name;
    }
}

TEST(JudgePicFile, IsZeroForOtherNames) {
    for (const char* name : {"",       ".",       "a",      "a.",     "..",
                             "jpg",    "ajpg",    "x.tiff", "a.jp",   "a.jpe",
                             "a.jpgx", "a.jpegs", "a.jpg ", "a. jpg", "a.pn",
                             "a.gi",   "a.bm",    "a.txt",  "a.jpg~", "a.jpgjpgjpgjpgjpg",
                             "a.gif\n"}) {
        EXPECT_EQ(JudgePicFile(ExactCopy(name).get()), 0) << name;
    }
}

TEST(JudgePicFile, TakesAllBehindTheFirstDotForTheExtension) {
    for (const char* name : {"a.b.jpg", "a.b.png", "a..png", "..png", "./a.jpg", "../a.jpg",
                             "x.d/a.gif", "a.jpg.x", "a.jpg.", "a.jpg.jpg"}) {
        EXPECT_EQ(JudgePicFile(ExactCopy(name).get()), 0) << name;
    }
}

TEST(JudgePicFile, IsZeroForExtensionsOfAnyGreaterLength) {
    for (size_t length = 6; length <= 40; ++length) {
        const std::string extension = "jpeg" + std::string(length - 4, 'x');
        EXPECT_EQ(JudgePicFile(ExactCopy("a." + extension).get()), 0) << length;
    }
}

TEST(JudgePicFile, IsNoForNull) {
    EXPECT_EQ(JudgePicFile(nullptr), 0);
}

TEST_F(DiskSpaceUsedTest, IsZeroForNull) {
    EXPECT_EQ(DiskSpaceUsed(nullptr), 0);
}

TEST_F(CheckFileExistsTest, FollowsLinks) {
    symlink("missing", Path("dangling").c_str());
    symlink(".", Path("link").c_str());
    EXPECT_EQ(CheckFileExists(Path("dangling").c_str()), 0);
    EXPECT_EQ(CheckFileExists(Path("link").c_str()), 1);
}
