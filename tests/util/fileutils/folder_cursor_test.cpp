// TrOpenFolder and TrCloseFolder: the state of the cursor.

#include <string>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/util/fileutils/cursor_folder.h"

namespace {

using Texts = std::vector<std::string>;

// As the program starts, before any test.
DIR* const dir_at_start = gFolderDir;
const std::string name_at_start(gFolderName, sizeof gFolderName);

class TrOpenFolderTest : public CursorFolder {
protected:
    // Fails unless the whole array holds name and zeros.
    static void ExpectName(const std::string& name) {
        std::string expected = name;
        expected.resize(sizeof gFolderName);
        EXPECT_EQ(std::string(gFolderName, sizeof gFolderName), expected);
    }
};

class TrCloseFolderTest : public TrOpenFolderTest {};

}  // namespace

static_assert(sizeof gFolderName == 256);

TEST(FolderCursor, IsZeroAtFirst) {
    EXPECT_EQ(dir_at_start, nullptr);
    EXPECT_EQ(name_at_start, std::string(sizeof gFolderName, '\0'));
}

TEST_F(TrCloseFolderTest, ClosesTheFolderAndKeepsItsName) {
    EXPECT_EQ(TrOpenFolder(folder().c_str()), 1);
    EXPECT_NE(gFolderDir, nullptr);
    ExpectName(folder());
    EXPECT_EQ(TrCloseFolder(), 1);
    EXPECT_EQ(gFolderDir, nullptr);
    ExpectName(folder());  // of the last folder, open or not
}

TEST_F(TrCloseFolderTest, DoesNothingWithoutAnOpenFolder) {
    EXPECT_EQ(TrCloseFolder(), 1);
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    EXPECT_EQ(TrCloseFolder(), 1);
    EXPECT_EQ(TrCloseFolder(), 1);
    EXPECT_EQ(gFolderDir, nullptr);
}

TEST_F(TrOpenFolderTest, KeepsNothingOfALongerName) {
    mkdir(Path("longer").c_str(), 0755);
    ASSERT_EQ(TrOpenFolder(Path("longer").c_str()), 1);
    TrCloseFolder();
    ASSERT_EQ(TrOpenFolder("/"), 1);
    ExpectName("/");
}

TEST_F(TrOpenFolderTest, LeavesNoFolderWhenItCannotBeOpened) {
    CapturedLog log;
    CapturedStream errors(stderr);
    Write("file", "");
    for (const std::string& path : {Path("missing"), Path("file"), std::string()}) {
        EXPECT_EQ(TrOpenFolder(path.c_str()), 0) << path;
        EXPECT_EQ(gFolderDir, nullptr) << path;
        ExpectName(path);
    }
    EXPECT_EQ(log.TakeText() + errors.Take(), "");
}

TEST_F(TrOpenFolderTest, AFailureDropsAnOpenFolder) {
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    DIR* const first = gFolderDir;
    EXPECT_EQ(TrOpenFolder(Path("missing").c_str()), 0);
    EXPECT_EQ(gFolderDir, nullptr);
    EXPECT_NE(readdir(first), nullptr);  // still open
    closedir(first);
}

TEST_F(TrOpenFolderTest, DoesNotCloseTheFolderThatIsOpen) {
    Write("file", "");
    mkdir(Path("other").c_str(), 0755);
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    DIR* const first = gFolderDir;
    ASSERT_EQ(TrOpenFolder(Path("other").c_str()), 1);
    EXPECT_NE(gFolderDir, first);
    ExpectName(Path("other"));
    EXPECT_EQ(Delivered(), Texts());
    EXPECT_NE(readdir(first), nullptr);  // still open
    closedir(first);
}

TEST_F(TrOpenFolderTest, NullLeavesTheCursorAlone) {
    Write("file", "");
    CapturedLog log;
    EXPECT_EQ(TrOpenFolder(nullptr), 0);
    EXPECT_EQ(
        log.Take(),
        (std::vector<LogLine>{{"Warning", "fileutils", "TrOpenFolder", "PFolderName is NULL"}}));
    EXPECT_EQ(gFolderDir, nullptr);

    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    EXPECT_EQ(TrOpenFolder(nullptr), 0);
    ExpectName(folder());
    EXPECT_EQ(Delivered(), Texts{"file"});
}

TEST_F(TrOpenFolderTest, OpensTheWholePathAndKeeps255Characters) {
    for (const size_t length : {size_t{254}, size_t{255}, size_t{256}, size_t{400}}) {
        const std::string path = FolderOfLength(length);
        ASSERT_EQ(path.size(), length);
        EXPECT_EQ(TrOpenFolder(path.c_str()), 1) << length;
        ExpectName(path.substr(0, 255));
        TrCloseFolder();
    }
}

TEST_F(TrOpenFolderTest, SaysNothingWhenItWorks) {
    CapturedLog log;
    CapturedStream errors(stderr);
    TrOpenFolder(folder().c_str());
    TrCloseFolder();
    EXPECT_EQ(log.TakeText() + errors.Take(), "");
}
