// CreateMulvPath.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/dirty_stack.h"
#include "tests/support/log_lines.h"
#include "util/fileutils.h"

namespace {

namespace fs = std::filesystem;

// The mode given to each mkdir since the start of the test.
std::vector<mode_t> mkdir_modes;

LogLine Line(const std::string& message) {
    return {"Info", "fileutils", "CreateMulvPath", message + "\n"};
}

LogLine Length(const std::string& path) {
    return Line(path + ":" + std::to_string(path.size()));
}

LogLine Create(size_t index, const std::string& prefix) {
    return Line("create " + std::to_string(index) + " p=[" + prefix + "]");
}

std::vector<LogLine> LogOf(const std::string& path) {
    CapturedLog log;
    CreateMulvPath(path.c_str());
    return log.Take();
}

}  // namespace

extern "C" int __real_mkdir(const char* path, mode_t mode);

extern "C" int __wrap_mkdir(const char* path, mode_t mode) {
    mkdir_modes.push_back(mode);
    return __real_mkdir(path, mode);
}

// Each test works in an empty folder.
class CreateMulvPathTest : public testing::Test {
protected:
    CreateMulvPathTest() : old_umask_(umask(022)), old_folder_(fs::current_path()) {
        char name[] = "/tmp/create_path_XXXXXX";
        folder_ = mkdtemp(name);
        fs::current_path(folder_);
        mkdir_modes.clear();
    }

    ~CreateMulvPathTest() override {
        fs::current_path(old_folder_);
        fs::remove_all(folder_);
        umask(old_umask_);
    }

    mode_t old_umask_;
    fs::path old_folder_;
    std::string folder_;
};

TEST_F(CreateMulvPathTest, DoesNotCreateWhatFollowsTheLastSlash) {
    EXPECT_EQ(LogOf("a/b/c"),
              (std::vector<LogLine>{Length("a/b/c"), Create(1, "a"), Create(3, "a/b")}));
    EXPECT_TRUE(fs::is_directory("a/b"));
    EXPECT_FALSE(fs::exists("a/b/c"));
}

TEST_F(CreateMulvPathTest, CreatesTheWholeChainOfAPathThatEndsInASlash) {
    EXPECT_EQ(LogOf("a/b/c/"), (std::vector<LogLine>{Length("a/b/c/"), Create(1, "a"),
                                                     Create(3, "a/b"), Create(5, "a/b/c")}));
    EXPECT_TRUE(fs::is_directory("a/b/c"));
}

TEST_F(CreateMulvPathTest, TriesAnEmptyPrefixForTheLeadingSlash) {
    const std::string path = folder_ + "/a/b";
    EXPECT_EQ(LogOf(path), (std::vector<LogLine>{Length(path), Create(0, ""),
                                                 Create(folder_.size() + 2, folder_ + "/a")}));
    EXPECT_TRUE(fs::is_directory("a"));
    EXPECT_FALSE(fs::exists("a/b"));
}

TEST_F(CreateMulvPathTest, CreatesNothingInAnExistingChain) {
    const std::string path = folder_ + "/";
    EXPECT_EQ(LogOf(path), (std::vector<LogLine>{Length(path), Create(0, "")}));
    EXPECT_EQ(mkdir_modes.size(), 1U);  // the failing one for the empty prefix
}

TEST_F(CreateMulvPathTest, LogsOnlyTheLengthOfAnEmptyPath) {
    EXPECT_EQ(LogOf(""), (std::vector<LogLine>{Length("")}));
    EXPECT_TRUE(mkdir_modes.empty());
}

TEST_F(CreateMulvPathTest, CreatesNothingWithoutASlash) {
    EXPECT_EQ(LogOf("a"), (std::vector<LogLine>{Length("a")}));
    EXPECT_TRUE(fs::is_empty("."));
}

TEST_F(CreateMulvPathTest, TakesEverySlashForTheEndOfAPrefix) {
    EXPECT_EQ(LogOf("a//b/./"),
              (std::vector<LogLine>{Length("a//b/./"), Create(1, "a"), Create(4, "a//b")}));
    EXPECT_TRUE(fs::is_directory("a/b"));
    EXPECT_EQ(LogOf("//"), (std::vector<LogLine>{Length("//"), Create(0, "")}));
}

TEST_F(CreateMulvPathTest, LeavesThePermissionsToTheUmask) {
    umask(027);
    CreateMulvPath("a/b/");
    EXPECT_EQ(mkdir_modes, (std::vector<mode_t>{0777, 0777}));
    EXPECT_EQ(fs::status("a/b").permissions(), static_cast<fs::perms>(0750));
}

TEST_F(CreateMulvPathTest, GoesOnAfterALevelThatCannotBeCreated) {
    fclose(fopen("file", "w"));
    EXPECT_EQ(LogOf("file/x/y/"), (std::vector<LogLine>{Length("file/x/y/"), Create(6, "file/x"),
                                                        Create(8, "file/x/y")}));
    EXPECT_EQ(mkdir_modes.size(), 2U);
    EXPECT_TRUE(fs::is_regular_file("file"));
}

TEST_F(CreateMulvPathTest, TakesAFileForAnExistingLevel) {
    fclose(fopen("file", "w"));
    EXPECT_EQ(LogOf("file/"), (std::vector<LogLine>{Length("file/")}));
}

TEST_F(CreateMulvPathTest, TakesADanglingLinkForAMissingLevel) {
    fs::create_symlink("nowhere", "link");
    EXPECT_EQ(LogOf("link/"), (std::vector<LogLine>{Length("link/"), Create(4, "link")}));
}

TEST_F(CreateMulvPathTest, EndsThePathWhateverTheStackHolds) {
    CapturedLog log;
    const std::string path(1100, 'x');
    DirtyStackWith("7");
    CreateMulvPath(path.c_str());
    EXPECT_EQ(log.Take(), (std::vector<LogLine>{Length(path.substr(0, 1023))}));
}

TEST_F(CreateMulvPathTest, CutsThePathTo1023Characters) {
    // Levels of 100 characters; the last slash is the character 1023 or comes after it.
    std::string path;
    while (path.size() < 1010) {
        path += std::string(100, 'd');
        path += '/';
    }
    const std::string whole = path + std::string(1022 - path.size(), 'e') + "/";
    ASSERT_EQ(whole.size(), 1023U);
    EXPECT_EQ(LogOf(whole + "f/")[0], Length(whole));
    EXPECT_TRUE(fs::is_directory(whole.substr(0, 1022)));
    EXPECT_FALSE(fs::exists(whole + "f"));

    const std::string longer = path + std::string(1023 - path.size(), 'g') + "/";
    EXPECT_EQ(LogOf(longer), (std::vector<LogLine>{Length(longer.substr(0, 1023))}));
    EXPECT_FALSE(fs::exists(longer.substr(0, 1023)));
}

TEST_F(CreateMulvPathTest, DoesNotChangeThePath) {
    char path[] = "a/b/";
    CreateMulvPath(path);
    EXPECT_STREQ(path, "a/b/");
}

TEST_F(CreateMulvPathTest, DoesNotDependOnTheLog) {
    CreateMulvPath("a/b/");
    EXPECT_TRUE(fs::is_directory("a/b"));
}

TEST_F(CreateMulvPathTest, LeavesTheErrnoOfItsLastFailure) {
    CapturedLog log;  // a log line in between must not change it
    CreateMulvPath("a/");
    EXPECT_EQ(errno, ENOENT);  // of the test for "a"
    fclose(fopen("file", "w"));
    CreateMulvPath("file/x/");
    EXPECT_EQ(errno, ENOTDIR);  // of mkdir
}

TEST_F(CreateMulvPathTest, DoesNothingForNull) {
    CapturedLog log;
    CreateMulvPath(nullptr);
    EXPECT_EQ(log.TakeText(), "");
    EXPECT_TRUE(mkdir_modes.empty());
}

TEST_F(CreateMulvPathTest, ReachesTheLevelAfterOneThatCannotBeCreated) {
    const std::string path = folder_ + "/a/";
    EXPECT_EQ(LogOf(path).at(1), Create(0, ""));  // refused, and the walk goes on
    EXPECT_TRUE(fs::is_directory("a"));
}
