// CopyFileContent: its hook and its silence.

#include <cstddef>
#include <string>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/util/fileutils/fake_files.h"
#include "tests/util/fileutils/work_folder.h"
#include "util/fileutils.h"

namespace {

using Texts = std::vector<std::string>;

class CopyFileContentTest : public WorkFolder {
protected:
    int Copy(const std::string& dest, const std::string& src,
             void (*hook)(CopyStreams* streams) = nullptr) const {
        return CopyFileContent(Path(dest).c_str(), Path(src).c_str(), hook);
    }
};

}  // namespace

static_assert(offsetof(CopyStreams, source) == 0);
static_assert(offsetof(CopyStreams, destination) == sizeof(FILE*));
static_assert(sizeof(CopyStreams) == 2 * sizeof(FILE*));

TEST_F(CopyFileContentTest, OpensCopiesAndCloses) {
    Write("src", "12345");
    FakeFiles files;
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(files.calls, (Texts{"fopen src r", "fopen dest ab", "fread src 16384",
                                  "fwrite dest 5", "fread src 16384", "fclose", "fclose"}));
    EXPECT_EQ(files.closed, (Texts{"dest", "src"}));
}

TEST_F(CopyFileContentTest, CallsTheHookOnceBeforeAnyByteMoves) {
    Write("src", "12345");
    FakeFiles files;
    const auto hook = [](CopyStreams* streams) {
        FakeFiles* active = FakeFiles::active();
        active->Record("hook " + active->streams[streams->source] + " " +
                       active->streams[streams->destination]);
    };
    EXPECT_EQ(Copy("dest", "src", hook), 1);
    EXPECT_EQ(files.calls,
              (Texts{"fopen src r", "fopen dest ab", "hook src dest", "fread src 16384",
                     "fwrite dest 5", "fread src 16384", "fclose", "fclose"}));
}

TEST_F(CopyFileContentTest, GoesOnWhereTheHookLeftTheSource) {
    Write("src", "header\nbody");
    const auto read_header = [](CopyStreams* streams) {
        char header[16];
        EXPECT_STREQ(fgets(header, sizeof header, streams->source), "header\n");
    };
    EXPECT_EQ(Copy("dest", "src", read_header), 1);
    EXPECT_EQ(Read("dest"), "body");

    const auto skip = [](CopyStreams* streams) { fseek(streams->source, 3, SEEK_SET); };
    EXPECT_EQ(Copy("dest2", "src", skip), 1);
    EXPECT_EQ(Read("dest2"), "der\nbody");
}

TEST_F(CopyFileContentTest, PutsTheBytesBehindWhatTheHookWrote) {
    Write("src", "body");
    Write("dest", "old ");
    const auto write_header = [](CopyStreams* streams) { fputs("header ", streams->destination); };
    EXPECT_EQ(Copy("dest", "src", write_header), 1);
    EXPECT_EQ(Read("dest"), "old header body");
}

TEST_F(CopyFileContentTest, AppendsWhereverTheHookSeeks) {
    Write("src", "new");
    Write("dest", "old");
    const auto rewind_both = [](CopyStreams* streams) {
        rewind(streams->destination);
        rewind(streams->source);
    };
    EXPECT_EQ(Copy("dest", "src", rewind_both), 1);
    EXPECT_EQ(Read("dest"), "oldnew");
}

TEST_F(CopyFileContentTest, DoesNotCallTheHookWhenAFileCannotBeOpened) {
    Write("src", "x");
    const auto hook = [](CopyStreams*) { ADD_FAILURE() << "called"; };
    EXPECT_EQ(Copy("dest", "missing", hook), -1);
    EXPECT_EQ(Copy("missing/dest", "src", hook), -1);
    EXPECT_EQ(CopyFileContent(nullptr, Path("src").c_str(), hook), -1);
    EXPECT_EQ(CopyFileContent(Path("dest").c_str(), nullptr, hook), -1);
}

TEST_F(CopyFileContentTest, ReportsNothing) {
    Write("src", "12345");
    Write("dest", "old");
    CapturedLog log;
    CapturedStream errors(stderr);
    Copy("dest", "src");
    Copy("dest", "missing");
    Copy("missing/dest", "src");
    CopyFileContent(nullptr, nullptr, nullptr);
    FakeFiles files;
    files.short_write = 0;
    Copy("dest", "src");
    EXPECT_EQ(log.TakeText() + errors.Take(), "");
}
