// GetFileCountOfFolder.

#include <string>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/util/fileutils/cursor_folder.h"
#include "tests/util/fileutils/fake_folders.h"

namespace {

using Lines = std::vector<LogLine>;

LogLine Warning(const std::string& message) {
    return {"Warning", "fileutils", "GetFileCountOfFolder", message};
}

class GetFileCountOfFolderTest : public CursorFolder {};

}  // namespace

TEST_F(GetFileCountOfFolderTest, LeavesTheDotsOut) {
    EXPECT_EQ(GetFileCountOfFolder(folder().c_str()), 0);
    for (const char* name : {"1", "2", "3"}) {
        Write(name, "");
    }
    mkdir(Path("4").c_str(), 0755);
    Write("4/inside", "");
    EXPECT_EQ(GetFileCountOfFolder(folder().c_str()), 4);
}

TEST_F(GetFileCountOfFolderTest, CountsEveryKind) {
    MakeEveryKind();
    EXPECT_EQ(GetFileCountOfFolder(folder().c_str()), 7);
}

TEST_F(GetFileCountOfFolderTest, TakesTwoOffWhateverTheFolderHolds) {
    FakeFolders fake;
    int left = 1;
    struct dirent entry = {};
    fake.on_readdir = [&]() -> struct dirent* {
        return left-- > 0 ? &entry : nullptr;
    };
    EXPECT_EQ(GetFileCountOfFolder(folder().c_str()), -1);
    EXPECT_EQ(GetFileCountOfFolder(folder().c_str()), -2);
}

TEST_F(GetFileCountOfFolderTest, IsZeroForNull) {
    CapturedLog log;
    EXPECT_EQ(GetFileCountOfFolder(nullptr), 0);
    EXPECT_EQ(log.Take(), Lines{Warning("PFolderName is NULL")});
}

TEST_F(GetFileCountOfFolderTest, IsZeroForWhatIsNoFolder) {
    Write("file", "");
    CapturedLog log;
    CapturedStream errors(stderr);
    for (const std::string& path : {Path("file"), Path("missing"), std::string()}) {
        EXPECT_EQ(GetFileCountOfFolder(path.c_str()), 0);
        EXPECT_EQ(log.Take(), Lines{Warning("opendir " + path + " fail")});
    }
    EXPECT_EQ(errors.Take(), "");
}

TEST_F(GetFileCountOfFolderTest, SaysNothingWhenItWorks) {
    FakeFolders fake;
    Write("file", "");
    CapturedLog log;
    GetFileCountOfFolder(folder().c_str());
    EXPECT_EQ(log.TakeText(), "");
    EXPECT_TRUE(fake.stat_paths.empty());
}

TEST_F(GetFileCountOfFolderTest, DoesNotTouchTheCursor) {
    mkdir(Path("other").c_str(), 0755);
    Write("other/1", "");
    Write("other/2", "");
    ASSERT_EQ(TrOpenFolder(Path("other").c_str()), 1);
    ASSERT_EQ(TrGetFileName(nullptr, nullptr), 1);
    DIR* const open = gFolderDir;
    const std::string name = gFolderName;
    EXPECT_EQ(GetFileCountOfFolder(folder().c_str()), 1);
    EXPECT_EQ(GetFileCountOfFolder(Path("missing").c_str()), 0);
    EXPECT_EQ(GetFileCountOfFolder(nullptr), 0);
    EXPECT_EQ(gFolderDir, open);
    EXPECT_EQ(gFolderName, name);
    EXPECT_EQ(Delivered().size(), 1U);
}
