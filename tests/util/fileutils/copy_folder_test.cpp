// CopyFolder: its commands, its filter and its count.

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/util/fileutils/cursor_folder.h"
#include "tests/util/fileutils/fake_folders.h"

namespace {

using Texts = std::vector<std::string>;
using Lines = std::vector<LogLine>;

LogLine Line(const char* level, const std::string& message) {
    return {level, "fileutils", "CopyFolder", message};
}

// What the filters below see, and what they answer: one after the other, then 0.
struct SeenItem {
    int index;
    std::string name;
    off_t size;

    bool operator==(const SeenItem&) const = default;
};
std::vector<SeenItem> seen;
std::vector<int> answers;

int Filter(CopyFolderItem* item) {
    seen.push_back({item->index, item->entry->d_name, item->status->st_size});
    return seen.size() <= answers.size() ? answers[seen.size() - 1] : 0;
}

class CopyFolderTest : public CursorFolder {
protected:
    CopyFolderTest() {
        seen.clear();
        answers.clear();
        fake_.on_command = [](const std::string&) { return 0; };
    }

    // The names that can be copied, in the folder's order.
    Texts Entries() const {
        Texts names = Names(folder());
        std::erase(names, ".");
        std::erase(names, "..");
        return names;
    }

    std::string Command(const std::string& name, const std::string& dest) const {
        return "cp " + Path(name) + " " + dest + " -rf && sync";
    }

    FakeFolders fake_;
};

}  // namespace

static_assert(offsetof(CopyFolderItem, index) == 0);
static_assert(offsetof(CopyFolderItem, entry) == sizeof(void*));
static_assert(offsetof(CopyFolderItem, status) == 2 * sizeof(void*));
static_assert(sizeof(CopyFolderItem) == 3 * sizeof(void*));

TEST_F(CopyFolderTest, RunsOneCommandForEachFileAndFolder) {
    MakeEveryKind();
    CapturedStream errors(stderr);
    EXPECT_EQ(CopyFolder(folder().c_str(), "/dest", nullptr), 4);
    EXPECT_EQ(AsSet(fake_.commands),
              AsSet({Command("file", "/dest"), Command("folder", "/dest"), Command("link", "/dest"),
                     Command("folder_link", "/dest")}));
    EXPECT_EQ(fake_.commands.size(), 4U);
    EXPECT_EQ(errors.Take(), "test===========: No such file or directory\n");
}

TEST_F(CopyFolderTest, LogsEachStep) {
    Write("file", "");
    mkdir(Path("folder").c_str(), 0755);
    chmod(Path("file").c_str(), 0644);
    Lines expected;
    for (const std::string& name : Names(folder())) {
        struct stat status;
        stat(Path(name).c_str(), &status);
        expected.push_back({"Info", "fileutils", "TrGetFileName",
                            "name:" + name + "," + std::to_string(status.st_mode)});
        if (name == "file" || name == "folder") {
            const std::string type = name == "file" ? "8" : "4";
            expected.push_back(Line("Info", "photName:" + name + ", type:" + type));
            expected.push_back(Line("Info", "command:" + Command(name, "/dest")));
        }
    }
    CapturedLog log;
    EXPECT_EQ(CopyFolder(folder().c_str(), "/dest", nullptr), 2);
    EXPECT_EQ(log.Take(), expected);
}

TEST_F(CopyFolderTest, PutsASlashBehindTheSourceInEveryCase) {
    Write("file", "");
    EXPECT_EQ(CopyFolder(Path("").c_str(), "dest/", nullptr), 1);
    EXPECT_EQ(fake_.commands, (Texts{"cp " + folder() + "//file dest/ -rf && sync"}));
}

TEST_F(CopyFolderTest, LeavesOutWhatTheFilterRefuses) {
    for (const char* name : {"1", "2", "3", "4", "5"}) {
        Write(name, "");
    }
    const Texts entries = Entries();
    answers = {INT_MIN, 0, -1, INT_MAX, 1};
    CapturedLog log;
    EXPECT_EQ(CopyFolder(folder().c_str(), "d", Filter), 3);
    EXPECT_EQ(fake_.commands, (Texts{Command(entries[1], "d"), Command(entries[3], "d"),
                                     Command(entries[4], "d")}));
    Lines lines = log.Take();
    std::erase_if(lines, [](const LogLine& line) { return line.function != "CopyFolder"; });
    const auto name_line = [&](size_t i) {
        return Line("Info", "photName:" + entries[i] + ", type:8");
    };
    const auto command_line = [&](size_t i) {
        return Line("Info", "command:" + Command(entries[i], "d"));
    };
    EXPECT_EQ(lines, (Lines{name_line(0), name_line(1), command_line(1), name_line(2), name_line(3),
                            command_line(3), name_line(4), command_line(4)}));
}

TEST_F(CopyFolderTest, CopiesNothingThatTheFilterRefuses) {
    Write("1", "");
    Write("2", "");
    answers = {-1, -1};
    EXPECT_EQ(CopyFolder(folder().c_str(), "d", Filter), 0);
    EXPECT_TRUE(fake_.commands.empty());
    EXPECT_EQ(seen.size(), 2U);
}

TEST_F(CopyFolderTest, ShowsTheFilterEachEntryAndHowManyWereCopied) {
    for (const char* name : {"1", "22", "333", "4444", "55555"}) {
        Write(name, name);
    }
    answers = {0, -1, 0, 0, 0};
    int commands = 0;
    fake_.on_command = [&](const std::string&) { return ++commands == 2 ? 256 : 0; };
    EXPECT_EQ(CopyFolder(folder().c_str(), "d", Filter), 3);
    std::vector<SeenItem> expected;
    for (const std::string& name : Entries()) {
        expected.push_back({0, name, static_cast<off_t>(name.size())});
    }
    const int indices[] = {0, 1, 1, 1, 2};  // the second was refused, the third failed
    for (size_t i = 0; i < expected.size(); ++i) {
        expected[i].index = indices[i];
    }
    EXPECT_EQ(seen, expected);
}

TEST_F(CopyFolderTest, CountsOnlyCommandsThatSucceed) {
    Write("file", "");
    for (const int status : {-2, -1, 1, 9, 139, 256, 32512}) {
        fake_.on_command = [=](const std::string&) { return status; };
        EXPECT_EQ(CopyFolder(folder().c_str(), "d", nullptr), 0) << status;
    }
}

TEST_F(CopyFolderTest, CutsTheSourceTo79Characters) {
    const std::string name(78 - folder().size(), 'n');
    for (const char* end : {"", "1", "12"}) {
        Write(name + end, "");
    }
    EXPECT_EQ(CopyFolder(folder().c_str(), "/dest", nullptr), 3);
    EXPECT_EQ(Path(name).size(), 79U);
    EXPECT_EQ(fake_.commands, (Texts(3, Command(name, "/dest"))));
}

TEST_F(CopyFolderTest, CutsTheCommandTo254Characters) {
    Write("file", "");
    const std::string bare = Command("file", "");
    for (const size_t length : {size_t{253}, size_t{254}, size_t{255}, size_t{260}, size_t{600}}) {
        const std::string dest(length - bare.size(), 'd');
        fake_.commands.clear();
        CapturedLog log;
        EXPECT_EQ(CopyFolder(folder().c_str(), dest.c_str(), nullptr), 1);
        const std::string command = Command("file", dest).substr(0, 254);
        EXPECT_EQ(fake_.commands, Texts{command});
        const Lines lines = log.Take();
        EXPECT_EQ(std::count(lines.begin(), lines.end(), Line("Info", "command:" + command)), 1);
    }
}

TEST_F(CopyFolderTest, FailsWithoutTheFolder) {
    Write("file", "");
    CapturedLog log;
    CapturedStream errors(stderr);
    for (const std::string& path : {Path("missing"), Path("file"), std::string()}) {
        EXPECT_EQ(CopyFolder(path.c_str(), "/dest", Filter), -1);
        EXPECT_EQ(log.Take(), Lines{Line("Warning", "opendir " + path + " fail")});
    }
    EXPECT_EQ(CopyFolder(nullptr, "/dest", Filter), -1);
    const Lines lines = log.Take();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0], (LogLine{"Warning", "fileutils", "TrOpenFolder", "PFolderName is NULL"}));
    EXPECT_EQ(lines[1].function, "CopyFolder");
    EXPECT_TRUE(seen.empty());
    EXPECT_EQ(errors.Take(), "");
}

TEST_F(CopyFolderTest, CopiesNothingOfAnEmptyFolder) {
    EXPECT_EQ(CopyFolder(folder().c_str(), "/dest", Filter), 0);
    EXPECT_TRUE(seen.empty());
}

TEST_F(CopyFolderTest, ClosesTheCursor) {
    Write("file", "");
    EXPECT_EQ(CopyFolder(folder().c_str(), "/dest", nullptr), 1);
    EXPECT_EQ(gFolderDir, nullptr);
    EXPECT_EQ(gFolderName, folder());
}

TEST_F(CopyFolderTest, EndsTheFolderThatACallerHadOpen) {
    ASSERT_EQ(TrOpenFolder("/"), 1);
    DIR* const callers = gFolderDir;
    EXPECT_EQ(CopyFolder(folder().c_str(), "/dest", nullptr), 0);
    EXPECT_EQ(gFolderDir, nullptr);
    closedir(callers);
}

TEST_F(CopyFolderTest, CountsACommandThatIsCutBetweenTheAmpersandsWhateverItDoes) {
    Write("file", "");
    fake_.on_command = nullptr;  // the shell itself
    CapturedStream errors(stderr);
    const std::string missing = Path("missing/");
    EXPECT_EQ(CopyFolder(folder().c_str(), (missing + "d").c_str(), nullptr), 0);
    const size_t too_long = 254 + std::string("& sync").size();
    const std::string dest = missing + std::string(too_long - Command("file", missing).size(), 'd');
    EXPECT_EQ(CopyFolder(folder().c_str(), dest.c_str(), nullptr), 1);
    EXPECT_TRUE(fake_.commands.back().ends_with(" -rf &"));
    EXPECT_FALSE(Exists("missing"));
}

TEST_F(CopyFolderTest, CopiesNothingToNull) {
    Write("file", "");
    fake_.on_command = nullptr;  // the shell itself
    CapturedStream errors(stderr);
    EXPECT_EQ(CopyFolder(folder().c_str(), nullptr, Filter), 0);
    EXPECT_EQ(fake_.commands, Texts{Command("file", "(null)")});
    EXPECT_EQ(seen.size(), 1U);
    EXPECT_NE(errors.Take(), "");  // the shell's own complaint
}
