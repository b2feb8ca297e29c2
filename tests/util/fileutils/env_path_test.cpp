// GetAssignEnvPath and GetEnvFilePath.

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <string>

#include "tests/support/captured_stream.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/log_lines.h"
#include "util/fileutils.h"

namespace {

constexpr char kVar[] = "FILEUTILS_TEST_FOLDER";
constexpr char kDefault[] = "/mnt/mtdblock/data/";

// A buffer that is larger than any size the tests pass.
constexpr size_t kRoom = 100;

// Sets the variable, or takes it away for NULL.
void SetVar(const char* value) {
    if (value != nullptr) {
        setenv(kVar, value, 1);
    } else {
        unsetenv(kVar);
    }
}

class EnvPath : public testing::Test {
protected:
    ~EnvPath() override { unsetenv(kVar); }
};

using GetAssignEnvPathTest = EnvPath;
using GetEnvFilePathTest = EnvPath;

void ExpectFolder(const char* value, int size, std::string_view written) {
    SetVar(value);
    GuardedBuffer out(kRoom);
    EXPECT_EQ(GetAssignEnvPath(kVar, out.data(), size), 1);
    out.ExpectHolds(written);
}

void ExpectPath(const char* value, const char* file, int size, std::string_view written) {
    SetVar(value);
    GuardedBuffer out(kRoom);
    EXPECT_EQ(GetEnvFilePath(kVar, file, out.data(), size), out.data());
    out.ExpectHolds(written);
}

}  // namespace

TEST_F(GetAssignEnvPathTest, GivesTheValueOrTheDefault) {
    ExpectFolder(nullptr, kRoom, Terminated(kDefault));
    ExpectFolder("/tmp/", kRoom, Terminated("/tmp/"));
    ExpectFolder("/tmp", kRoom, Terminated("/tmp"));
}

TEST_F(GetAssignEnvPathTest, TakesAnEmptyVariableForSet) {
    ExpectFolder("", kRoom, Terminated(""));
}

TEST_F(GetAssignEnvPathTest, CutsToTheSize) {
    ExpectFolder(nullptr, 20, Terminated(kDefault));
    ExpectFolder(nullptr, 19, Terminated("/mnt/mtdblock/data"));
    ExpectFolder(nullptr, 2, Terminated("/"));
    ExpectFolder(nullptr, 1, Terminated(""));
    ExpectFolder("/tmp/", 6, Terminated("/tmp/"));
    ExpectFolder("/tmp/", 5, Terminated("/tmp"));
    ExpectFolder("/tmp/", 1, Terminated(""));
}

TEST_F(GetAssignEnvPathTest, WritesNothingWithoutRoom) {
    for (const char* value : {static_cast<const char*>(nullptr), "/tmp/", ""}) {
        for (const int size : {0, -1, -100, INT_MIN}) {
            ExpectFolder(value, size, {});
        }
    }
}

TEST_F(GetAssignEnvPathTest, DoesNotInterpretTheValue) {
    ExpectFolder("%s%n%d$HOME/~", kRoom, Terminated("%s%n%d$HOME/~"));
}

TEST_F(GetAssignEnvPathTest, LooksTheNamedVariableUpEachTime) {
    SetVar("/one/");
    setenv("FILEUTILS_TEST_FOLDER2", "/two/", 1);
    GuardedBuffer out(kRoom);
    EXPECT_EQ(GetAssignEnvPath("FILEUTILS_TEST_FOLDER2", out.data(), kRoom), 1);
    EXPECT_EQ(out.text(), "/two/");
    unsetenv("FILEUTILS_TEST_FOLDER2");
    EXPECT_EQ(GetAssignEnvPath("FILEUTILS_TEST_FOLDER2", out.data(), kRoom), 1);
    EXPECT_EQ(out.text(), kDefault);
}

TEST_F(GetEnvFilePathTest, PutsTheFileBehindTheFolder) {
    ExpectPath(nullptr, "x.dat", kRoom, Terminated("/mnt/mtdblock/data/x.dat"));
    ExpectPath("/tmp/", "x.dat", kRoom, Terminated("/tmp/x.dat"));
    ExpectPath("", "x.dat", kRoom, Terminated("x.dat"));
    ExpectPath("/tmp/", "", kRoom, Terminated("/tmp/"));
    ExpectPath(nullptr, "", kRoom, Terminated(kDefault));
}

TEST_F(GetEnvFilePathTest, InsertsNoSeparator) {
    ExpectPath("/tmp", "x.dat", kRoom, Terminated("/tmpx.dat"));
    ExpectPath("/tmp/", "/x.dat", kRoom, Terminated("/tmp//x.dat"));
}

TEST_F(GetEnvFilePathTest, CutsToTheSize) {
    ExpectPath(nullptr, "x.dat", 25, Terminated("/mnt/mtdblock/data/x.dat"));
    ExpectPath(nullptr, "x.dat", 24, Terminated("/mnt/mtdblock/data/x.da"));
    ExpectPath(nullptr, "x.dat", 20, Terminated(kDefault));
    ExpectPath(nullptr, "x.dat", 19, Terminated("/mnt/mtdblock/data"));
    ExpectPath("/tmp/", "x.dat", 11, Terminated("/tmp/x.dat"));
    ExpectPath("/tmp/", "x.dat", 10, Terminated("/tmp/x.da"));
    ExpectPath("/tmp/", "x.dat", 6, Terminated("/tmp/"));
    ExpectPath("/tmp/", "x.dat", 5, Terminated("/tmp"));
    ExpectPath("/tmp/", "x.dat", 1, Terminated(""));
}

TEST_F(GetEnvFilePathTest, WritesNothingWithoutRoom) {
    for (const char* value : {static_cast<const char*>(nullptr), "/tmp/", ""}) {
        for (const int size : {0, -1, -100, INT_MIN}) {
            ExpectPath(value, "x.dat", size, {});
        }
    }
}

TEST_F(GetEnvFilePathTest, DoesNotInterpretItsTexts) {
    ExpectPath("%d%n/", "%s%s", kRoom, Terminated("%d%n/%s%s"));
    ExpectPath(nullptr, "%s%n", kRoom, Terminated("/mnt/mtdblock/data/%s%n"));
}

TEST_F(EnvPath, ReportsNothing) {
    CapturedLog log;
    CapturedStream errors(stderr);
    ExpectFolder(nullptr, 1, Terminated(""));
    ExpectPath(nullptr, "x", 1, Terminated(""));
    EXPECT_EQ(log.TakeText() + errors.Take(), "");
}

TEST_F(GetAssignEnvPathTest, TakesTheDefaultForAVariableOfNull) {
    GuardedBuffer out(kRoom);
    EXPECT_EQ(GetAssignEnvPath(nullptr, out.data(), kRoom), 1);
    out.ExpectHolds(Terminated(kDefault));
}

TEST_F(GetAssignEnvPathTest, WritesNothingToNull) {
    for (const int size : {INT_MIN, 0, 1, 100}) {
        EXPECT_EQ(GetAssignEnvPath(kVar, nullptr, size), 1);
    }
}

TEST_F(GetEnvFilePathTest, TakesTheDefaultForAVariableOfNull) {
    GuardedBuffer out(kRoom);
    EXPECT_EQ(GetEnvFilePath(nullptr, "x.dat", out.data(), kRoom), out.data());
    out.ExpectHolds(Terminated("/mnt/mtdblock/data/x.dat"));
}

TEST_F(GetEnvFilePathTest, TakesNullForAnEmptyFile) {
    ExpectPath("/tmp/", nullptr, kRoom, Terminated("/tmp/"));
    ExpectPath(nullptr, nullptr, kRoom, Terminated(kDefault));
    ExpectPath("/tmp/", nullptr, 0, {});
}

TEST_F(GetEnvFilePathTest, WritesNothingToNull) {
    for (const int size : {INT_MIN, 0, 1, 100}) {
        EXPECT_EQ(GetEnvFilePath(kVar, "x.dat", nullptr, size), nullptr);
    }
}
