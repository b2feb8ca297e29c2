// TrGetFileName: which entries it delivers, and what it reports of the others.

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/util/fileutils/cursor_folder.h"
#include "tests/util/fileutils/fake_folders.h"

namespace {

using Texts = std::vector<std::string>;
using Lines = std::vector<LogLine>;

LogLine Seen(const std::string& name, int mode) {
    return {"Info", "fileutils", "TrGetFileName", "name:" + name + "," + std::to_string(mode)};
}

LogLine NoStatus(const std::string& path, const std::string& name) {
    return {"Warning", "fileutils", "TrGetFileName",
            "Path:" + path + ",name:" + name + ", stat fail!!!"};
}

}  // namespace

TEST_F(TrGetFileNameTest, DeliversRegularFilesAndFolders) {
    MakeEveryKind();
    CapturedStream errors(stderr);
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    EXPECT_EQ(AsSet(Delivered()), (std::set<std::string>{"file", "folder", "link", "folder_link"}));
}

TEST_F(TrGetFileNameTest, DeliversInTheFoldersOrder) {
    for (int i = 0; i < 50; ++i) {
        Write("f" + std::to_string(i * 37 % 50), "");
    }
    Texts names = Names(folder());
    std::erase(names, ".");
    std::erase(names, "..");
    ASSERT_EQ(names.size(), 50U);
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    EXPECT_EQ(Delivered(), names);
    EXPECT_EQ(TrGetFileName(nullptr, nullptr), 0);  // does not begin again
}

TEST_F(TrGetFileNameTest, LogsEntriesWhetherDeliveredOrNot) {
    MakeEveryKind();
    CapturedLog log;
    CapturedStream errors(stderr);
    Lines expected;
    for (const std::string& name : Names(folder())) {
        struct stat status;
        if (stat(Path(name).c_str(), &status) == 0) {
            expected.push_back(Seen(name, static_cast<int>(status.st_mode)));
        } else {
            expected.push_back(NoStatus(folder() + "//" + name, name));
        }
    }
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    Delivered();
    const Lines lines = log.Take();
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(lines.size(), 9U);
    for (const LogLine& line :
         {Seen(".", 16877), Seen("file", 33188), Seen("link", 33188), Seen("folder", 16877),
          Seen("fifo", 4516), NoStatus(folder() + "//dangling", "dangling")}) {
        EXPECT_TRUE(std::count(lines.begin(), lines.end(), line) == 1) << line;
    }
    EXPECT_EQ(errors.Take(), "test===========: No such file or directory\n");
}

TEST_F(TrGetFileNameTest, LogsUpToTheEntryDelivered) {
    Write("file", "");
    CapturedLog log;
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    ASSERT_EQ(TrGetFileName(nullptr, nullptr), 1);
    const Texts names = Names(folder());
    const auto position = std::find(names.begin(), names.end(), "file") - names.begin();
    EXPECT_EQ(log.Take().size(), static_cast<size_t>(position) + 1);
}

TEST_F(TrGetFileNameTest, ChoosesByTheTypeBitsOfTheMode) {
    Write("file", "");
    FakeFolders fake;
    for (mode_t type = 0; type <= 0xF; ++type) {
        for (const mode_t others :
             {mode_t{0}, mode_t{0xFFF}, mode_t{0x10FFF}, mode_t{0xFFFF0000}}) {
            const mode_t mode = type << 12 | others;
            fake.on_stat = [mode](const std::string&, struct stat* out) {
                out->st_mode = mode;
                return 0;
            };
            CapturedLog log;
            ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
            EXPECT_EQ(Delivered(), type == 8 || type == 4 ? Texts{"file"} : Texts()) << mode;
            TrCloseFolder();
            const Lines lines = log.Take();
            const LogLine line = Seen("file", static_cast<int>(mode));
            EXPECT_EQ(std::count(lines.begin(), lines.end(), line), 1) << mode;
        }
    }
}

TEST_F(TrGetFileNameTest, PassesOverByNameOnlyTheDots) {
    for (const char* name : {"...", ".hidden", "..x", ". ", ".. "}) {
        Write(name, "");
    }
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    EXPECT_EQ(AsSet(Delivered()), (std::set<std::string>{"...", ".hidden", "..x", ". ", ".. "}));
}

TEST_F(TrGetFileNameTest, LooksUpBehindTwoSlashes) {
    Write("file", "");
    FakeFolders fake;
    ASSERT_EQ(TrOpenFolder((folder() + "/").c_str()), 1);
    Delivered();
    EXPECT_EQ(AsSet(fake.stat_paths),
              (std::set<std::string>{folder() + "///.", folder() + "///..", folder() + "///file"}));
}

TEST_F(TrGetFileNameTest, ReportsAMissingStatusOnStandardError) {
    Write("file", "");
    FakeFolders fake;
    fake.on_stat = [](const std::string&, struct stat*) {
        errno = EACCES;
        return -1;
    };
    CapturedLog log;
    CapturedStream errors(stderr);
    ASSERT_EQ(TrOpenFolder(folder().c_str()), 1);
    struct dirent entry;
    struct stat status;
    memset(&entry, 0x5A, sizeof entry);
    memset(&status, 0x5A, sizeof status);
    EXPECT_EQ(TrGetFileName(&entry, &status), 0);
    EXPECT_EQ(log.Take().size(), 3U);
    EXPECT_EQ(errors.Take(),
              "test===========: Permission denied\n"
              "test===========: Permission denied\n"
              "test===========: Permission denied\n");
    const std::string untouched(sizeof status + sizeof entry, '\x5A');
    EXPECT_EQ(memcmp(&entry, untouched.data(), sizeof entry), 0);
    EXPECT_EQ(memcmp(&status, untouched.data(), sizeof status), 0);
}

TEST_F(TrGetFileNameTest, DeliversTheLongestNamesInTheLongestFolder) {
    const std::string path = FolderOfLength(255);
    const std::string fits(254, 'n');
    std::filesystem::current_path(path);
    fclose(fopen(fits.c_str(), "w"));
    CapturedLog log;
    ASSERT_EQ(TrOpenFolder(path.c_str()), 1);
    EXPECT_EQ(Delivered(), Texts{fits});
    TrCloseFolder();

    // One more character is cut from the path, which then leads to the other file, or nowhere.
    const std::string longer = fits + "n";
    fclose(fopen(longer.c_str(), "w"));
    ASSERT_EQ(TrOpenFolder(path.c_str()), 1);
    EXPECT_EQ(AsSet(Delivered()), (std::set<std::string>{fits, longer}));
    TrCloseFolder();
    unlink(fits.c_str());
    log.Take();
    CapturedStream errors(stderr);
    ASSERT_EQ(TrOpenFolder(path.c_str()), 1);
    EXPECT_EQ(Delivered(), Texts());
    Lines lines = log.Take();
    std::erase_if(lines, [](const LogLine& line) { return line.level == "Info"; });
    const LogLine cut = NoStatus(path + "//" + fits, longer);
    EXPECT_EQ(cut.message.size(), std::string("Path:,name:, stat fail!!!").size() + 511 + 255);
    EXPECT_EQ(lines, Lines{cut});
    std::filesystem::current_path("/");
}

TEST_F(TrGetFileNameTest, FindsNoStatusInAFolderWithACutName) {
    const std::string path = FolderOfLength(300);
    CapturedLog log;
    CapturedStream errors(stderr);
    ASSERT_EQ(TrOpenFolder(path.c_str()), 1);
    EXPECT_EQ(Delivered(), Texts());
    const std::string kept = path.substr(0, 255);
    for (const LogLine& line : log.Take()) {
        EXPECT_TRUE(line == NoStatus(kept + "//.", ".") || line == NoStatus(kept + "//..", ".."))
            << line;
    }
}
