// TrGetFileName: the records that it fills.

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/util/fileutils/cursor_folder.h"
#include "tests/util/fileutils/fake_folders.h"

namespace {

constexpr char kFill = '\x5A';

template <typename Record>
std::string BytesOf(const Record& record) {
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

template <typename Record>
Record Filled(char fill) {
    Record record;
    memset(&record, fill, sizeof record);
    return record;
}

// Gives this entry once, as a regular file, then the end.
void Give(FakeFolders& fake, struct dirent* entry) {
    fake.on_readdir = [entry, given = false]() mutable {
        return std::exchange(given, true) ? nullptr : entry;
    };
    fake.on_stat = [](const std::string&, struct stat* out) {
        memset(out, 0x3C, sizeof *out);
        out->st_mode = S_IFREG;
        return 0;
    };
}

}  // namespace

TEST_F(TrGetFileNameTest, DeliversWholeRecords) {
    auto given = Filled<struct dirent>(0x11);
    given.d_reclen = sizeof given;
    strcpy(given.d_name, "name");
    FakeFolders fake;
    Give(fake, &given);
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    auto entry = Filled<struct dirent>(kFill);
    auto status = Filled<struct stat>(kFill);
    ASSERT_EQ(TrGetFileName(&entry, &status), 1);
    EXPECT_EQ(BytesOf(entry), BytesOf(given));
    auto expected = Filled<struct stat>(0x3C);
    expected.st_mode = S_IFREG;
    EXPECT_EQ(BytesOf(status), BytesOf(expected));
}

TEST_F(TrGetFileNameTest, DoesNotReadBehindTheKernelsEntry) {
    // The last entry of the kernel's block may end where the block does.
    const size_t length = offsetof(struct dirent, d_name) + 8;
    const std::unique_ptr<char[]> block(new char[length]);
    auto* given = reinterpret_cast<struct dirent*>(block.get());
    memset(block.get(), 0x11, length);
    given->d_reclen = static_cast<unsigned short>(length);
    strcpy(given->d_name, "name");
    FakeFolders fake;
    Give(fake, given);
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    auto entry = Filled<struct dirent>(kFill);
    ASSERT_EQ(TrGetFileName(&entry, nullptr), 1);
    EXPECT_EQ(BytesOf(entry),
              std::string(block.get(), length) + std::string(sizeof entry - length, '\0'));
}

TEST_F(TrGetFileNameTest, CopiesOfALongerRecordWhatFits) {
    struct {
        struct dirent entry;
        char more[40];
    } given;
    memset(&given, 0x11, sizeof given);
    given.entry.d_reclen = sizeof given;
    given.more[sizeof given.more - 1] = '\0';  // the end of its name
    FakeFolders fake;
    Give(fake, &given.entry);
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    struct {
        struct dirent entry;
        char behind[40];
    } out;
    memset(&out, kFill, sizeof out);
    ASSERT_EQ(TrGetFileName(&out.entry, nullptr), 1);
    auto expected = given.entry;
    expected.d_name[sizeof expected.d_name - 1] = '\0';
    EXPECT_EQ(BytesOf(out.entry), BytesOf(expected));
    EXPECT_EQ(BytesOf(out.behind), std::string(sizeof out.behind, kFill));
}

TEST_F(TrGetFileNameTest, DeliversTheRecordsOfTheFile) {
    Write("file", "12345");
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    struct dirent entry;
    auto status = Filled<struct stat>(0);
    ASSERT_EQ(TrGetFileName(&entry, &status), 1);
    EXPECT_STREQ(entry.d_name, "file");
    EXPECT_EQ(entry.d_type, DT_REG);
    auto expected = Filled<struct stat>(0);
    ASSERT_EQ(stat(Path("file").c_str(), &expected), 0);
    EXPECT_EQ(entry.d_ino, expected.st_ino);
    EXPECT_EQ(BytesOf(status), BytesOf(expected));
    EXPECT_EQ(status.st_size, 5);
}

TEST_F(TrGetFileNameTest, ALinkHasItsOwnNameAndTheTargetsStatus) {
    Write("target", "12345");
    mkdir(Path("folder").c_str(), 0755);
    symlink("../target", Path("folder/link").c_str());
    ASSERT_EQ(TrOpenFolder(Path("folder").c_str()), 1);
    struct dirent entry;
    struct stat status;
    ASSERT_EQ(TrGetFileName(&entry, &status), 1);
    EXPECT_STREQ(entry.d_name, "link");
    EXPECT_EQ(entry.d_type, DT_LNK);
    struct stat expected;
    ASSERT_EQ(stat(Path("target").c_str(), &expected), 0);
    EXPECT_EQ(status.st_ino, expected.st_ino);
    EXPECT_EQ(status.st_mode, expected.st_mode);
    EXPECT_EQ(status.st_size, 5);
}

TEST_F(TrGetFileNameTest, LeavesOutWhatIsNull) {
    Write("file", "12345");
    struct dirent entry;
    struct stat status;
    for (const bool has_entry : {false, true}) {
        for (const bool has_status : {false, true}) {
            memset(&entry, 0, sizeof entry);
            memset(&status, 0, sizeof status);
            ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
            EXPECT_EQ(TrGetFileName(has_entry ? &entry : nullptr, has_status ? &status : nullptr),
                      1);
            EXPECT_STREQ(entry.d_name, has_entry ? "file" : "");
            EXPECT_EQ(status.st_size, has_status ? 5 : 0);
            TrCloseFolder();
        }
    }
}

TEST_F(TrGetFileNameTest, WritesNothingAtTheEnd) {
    mkfifo(Path("fifo").c_str(), 0644);
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    auto entry = Filled<struct dirent>(kFill);
    auto status = Filled<struct stat>(kFill);
    EXPECT_EQ(TrGetFileName(&entry, &status), 0);
    EXPECT_EQ(BytesOf(entry), std::string(sizeof entry, kFill));
    EXPECT_EQ(BytesOf(status), std::string(sizeof status, kFill));
}

TEST_F(TrGetFileNameTest, DeliversAFolderThatFillsManyOfTheKernelsBlocks) {
    constexpr int kFiles = 3000;
    for (int i = 0; i < kFiles; ++i) {
        Write(std::to_string(i), "");
    }
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    EXPECT_EQ(AsSet(Delivered()).size(), static_cast<size_t>(kFiles));
}

TEST(TrGetFileName, IsZeroWithoutAnOpenFolder) {
    TrCloseFolder();
    auto entry = Filled<struct dirent>(kFill);
    auto status = Filled<struct stat>(kFill);
    EXPECT_EQ(TrGetFileName(&entry, &status), 0);
    EXPECT_EQ(BytesOf(entry), std::string(sizeof entry, kFill));
    EXPECT_EQ(BytesOf(status), std::string(sizeof status, kFill));
    EXPECT_EQ(TrGetFileName(nullptr, nullptr), 0);
}

TEST(TrGetFileName, CutsANameThatIsLongerThanTheField) {
    constexpr size_t kField = sizeof dirent::d_name;
    for (const size_t length : {kField - 1, kField, kField + 50}) {
        // As a kernel with longer names would lay it out.
        const size_t name_at = offsetof(struct dirent, d_name);
        std::string block(std::max(name_at + length + 1, sizeof(struct dirent)), '\0');
        block.replace(name_at, length, length, 'n');
        auto* given = reinterpret_cast<struct dirent*>(block.data());
        given->d_reclen = static_cast<unsigned short>(block.size());
        FakeFolders fake;
        fake.on_readdir = [given] { return given; };
        fake.on_stat = [](const std::string&, struct stat* out) {
            out->st_mode = S_IFREG;
            return 0;
        };
        ASSERT_EQ(TrOpenFolder("/"), 1);
        auto entry = Filled<struct dirent>(kFill);
        EXPECT_EQ(TrGetFileName(&entry, nullptr), 1);
        EXPECT_EQ(strnlen(entry.d_name, kField), kField - 1) << length;
        EXPECT_EQ(entry.d_name[kField - 2], 'n') << length;
        TrCloseFolder();
    }
}

TEST_F(TrGetFileNameTest, LeavesOutFilesWhoseSizeDoesNotFit) {
    const std::string path = Path("large");
    const struct {
        long long size;
        bool fits;
    } kCases[] = {
        {0x7FFFFFFF, true},
        {0x80000000, sizeof(off_t) > 4},
    };
    for (const auto& [size, fits] : kCases) {
        ASSERT_EQ(systemEx(("truncate -s " + std::to_string(size) + " " + path).c_str()), 0);
        CapturedLog log;
        CapturedStream errors(stderr);
        ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
        struct stat status;
        EXPECT_EQ(TrGetFileName(nullptr, &status), fits ? 1 : 0);
        EXPECT_EQ(fits ? status.st_size : 0, fits ? size : 0);
        EXPECT_EQ(errors.Take(),
                  fits ? "" : "test===========: Value too large for defined data type\n");
        TrCloseFolder();
    }
}
