// FileCopy: its steps in order, the log and standard error.

#include <climits>
#include <string>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/util/fileutils/fake_files.h"
#include "tests/util/fileutils/work_folder.h"
#include "util/fileutils.h"

namespace {

using Texts = std::vector<std::string>;
using Lines = std::vector<LogLine>;

LogLine Warning(const std::string& message) {
    return {"Warning", "fileutils", "FileCopy", message};
}

LogLine Sizes(const std::string& source, const std::string& destination) {
    return {"Debug", "fileutils", "FileCopy",
            "src file size:" + source + " dst file size:" + destination};
}

class FileCopyLog : public WorkFolder {
protected:
    int Copy(const std::string& dest, const std::string& src) const {
        return FileCopy(Path(dest).c_str(), Path(src).c_str());
    }
};

}  // namespace

TEST_F(FileCopyLog, StepsStandInTheirOrder) {
    Write("src", "12345");
    FakeFiles files;
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(files.calls,
              (Texts{"fopen src r", "fopen dest ab", "fseek dest 0 from the end", "fread src 16384",
                     "fwrite dest 5", "fread src 16384", "fflush dest", "ftell src", "ftell dest",
                     "Debug fileutils FileCopy: src file size:5 dst file size:5",
                     "fsync address of dest", "fclose", "fclose"}));
    EXPECT_EQ(files.closed, (Texts{"dest", "src"}));
}

TEST_F(FileCopyLog, SyncComesAfterTheComplaintAboutSizes) {
    Write("src", "12345");
    Write("dest", "123");
    FakeFiles files;
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(files.calls,
              (Texts{"fopen src r", "fopen dest ab", "fseek dest 0 from the end", "fread src 16384",
                     "fwrite dest 5", "fread src 16384", "fflush dest", "ftell src", "ftell dest",
                     "Debug fileutils FileCopy: src file size:5 dst file size:8",
                     "Warning fileutils FileCopy: file size error", "fsync address of dest",
                     "fclose", "fclose"}));
}

TEST_F(FileCopyLog, ShortWriteEndsWithASyncAndNoSizes) {
    Write("src", "12345");
    FakeFiles files;
    files.short_write = 0;
    EXPECT_EQ(Copy("dest", "src"), -1);
    EXPECT_EQ(files.calls,
              (Texts{"fopen src r", "fopen dest ab", "fseek dest 0 from the end", "fread src 16384",
                     "fwrite dest 5", "Warning fileutils FileCopy: Write picture data error!",
                     "fsync address of dest", "fclose", "fclose"}));
    EXPECT_EQ(files.closed, (Texts{"dest", "src"}));
}

TEST_F(FileCopyLog, HasTheSizesOfANewFile) {
    Write("src", std::string(20000, 'x'));
    Write("empty", "");
    CapturedLog log;
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(log.Take(), (Lines{Sizes("20000", "20000")}));
    EXPECT_EQ(Copy("dest2", "empty"), 1);
    EXPECT_EQ(log.Take(), (Lines{Sizes("0", "0")}));
}

TEST_F(FileCopyLog, ComplainsAboutAnOlderDestination) {
    Write("src", "12345");
    Write("dest", "old");
    Write("empty", "");
    CapturedLog log;
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(log.Take(), (Lines{Sizes("5", "8"), Warning("file size error")}));
    EXPECT_EQ(Copy("dest", "empty"), 1);  // the position is the end, though nothing was written
    EXPECT_EQ(log.Take(), (Lines{Sizes("0", "8"), Warning("file size error")}));
}

TEST_F(FileCopyLog, HasPositionsAsInt) {
    Write("src", "12345");
    FakeFiles files;
    CapturedLog log;
    files.positions = {{"src", -1}, {"dest", 0}};  // ftell failed
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(log.Take(), (Lines{Sizes("-1", "0"), Warning("file size error")}));
    files.positions = {{"src", INT_MAX}, {"dest", INT_MAX}};
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(log.Take(), (Lines{Sizes("2147483647", "2147483647")}));
    if constexpr (sizeof(long) > sizeof(int)) {
        files.positions = {{"src", INT_MAX + 1L}, {"dest", UINT_MAX + 8L}};
        EXPECT_EQ(Copy("dest", "src"), 1);
        EXPECT_EQ(log.Take(), (Lines{Sizes("-2147483648", "7"), Warning("file size error")}));
        files.positions = {{"src", 3}, {"dest", UINT_MAX + 4L}};  // alike in 32 bits only
        EXPECT_EQ(Copy("dest", "src"), 1);
        EXPECT_EQ(log.Take(), (Lines{Sizes("3", "3"), Warning("file size error")}));
    }
}

TEST_F(FileCopyLog, HasTheErrorOfAFailingFlush) {
    Write("src", "12345");
    FakeFiles files;
    files.flush_fails = true;
    files.positions = {{"src", 5}, {"dest", 5}};
    CapturedLog log;
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(log.Take(), (Lines{Warning("No space left on device"), Sizes("5", "5")}));
    EXPECT_EQ(files.closed, (Texts{"dest", "src"}));
}

TEST_F(FileCopyLog, HasTheErrorOfAFullDisk) {
    Write("few", "12345");
    Write("many", std::string(20000, 'x'));
    CapturedLog log;
    EXPECT_EQ(FileCopy("/dev/full", Path("few").c_str()), 1);
    EXPECT_EQ(log.Take().at(0), Warning("No space left on device"));
    EXPECT_EQ(FileCopy("/dev/full", Path("many").c_str()), -1);
    EXPECT_EQ(log.Take(), (Lines{Warning("Write picture data error!")}));
}

TEST_F(FileCopyLog, NamesMissingPaths) {
    Write("file", "x");
    CapturedLog log;
    CapturedStream errors(stderr);
    const LogLine line = Warning("pSrcFileName or pDestFileName buf is NULL!");
    FileCopy(nullptr, Path("file").c_str());
    EXPECT_EQ(log.Take(), Lines{line});
    FileCopy(Path("file").c_str(), nullptr);
    EXPECT_EQ(log.Take(), Lines{line});
    FileCopy(nullptr, nullptr);
    EXPECT_EQ(log.Take(), Lines{line});
    EXPECT_EQ(errors.Take(), "");
}

TEST_F(FileCopyLog, LeavesFilesThatCannotBeOpenedToStandardError) {
    Write("src", "x");
    CapturedLog log;
    CapturedStream errors(stderr);
    EXPECT_EQ(Copy("dest", "missing"), -1);
    EXPECT_EQ(errors.Take(), Path("missing") + ": No such file or directory\n");
    EXPECT_EQ(Copy("missing/dest", "src"), -1);
    EXPECT_EQ(errors.Take(), Path("missing/dest") + ": No such file or directory\n");
    EXPECT_EQ(FileCopy(folder().c_str(), Path("src").c_str()), -1);
    EXPECT_EQ(errors.Take(), folder() + ": Is a directory\n");

    FakeFiles files;
    files.unopenable = "src";
    EXPECT_EQ(Copy("dest", "src"), -1);
    EXPECT_EQ(errors.Take(), Path("src") + ": Too many open files\n");
    EXPECT_EQ(log.TakeText(), "");
}

TEST_F(FileCopyLog, SuccessLeavesStandardErrorAlone) {
    Write("src", "12345");
    CapturedStream errors(stderr);
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(errors.Take(), "");
}
