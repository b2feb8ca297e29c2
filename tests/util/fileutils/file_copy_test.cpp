// CopyFileContent and FileCopy: what arrives, and what both do alike.

#include <sys/stat.h>

#include <string>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/util/fileutils/fake_files.h"
#include "tests/util/fileutils/work_folder.h"
#include "util/fileutils.h"

namespace {

using Texts = std::vector<std::string>;

constexpr size_t kBlock = 16384;

// Bytes of every value in an order that does not repeat from block to block.
std::string Bytes(size_t size) {
    std::string bytes(size, '\0');
    for (size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<char>(i * 31 + i / 251);
    }
    return bytes;
}

int CopyWithoutHook(const char* dest, const char* src) {
    return CopyFileContent(dest, src, nullptr);
}

// Each test runs once for each of the two functions.
struct CopyFunction {
    const char* name;
    int (*copy)(const char* dest, const char* src);
};

class FileCopyTest : public WorkFolder, public testing::WithParamInterface<CopyFunction> {
protected:
    int Copy(const std::string& dest, const std::string& src) const {
        return GetParam().copy(Path(dest).c_str(), Path(src).c_str());
    }
};

INSTANTIATE_TEST_SUITE_P(Both, FileCopyTest,
                         testing::Values(CopyFunction{"CopyFileContent", CopyWithoutHook},
                                         CopyFunction{"FileCopy", FileCopy}),
                         [](const auto& test) { return test.param.name; });

}  // namespace

TEST_P(FileCopyTest, CopiesEveryByteAroundTheBlockSize) {
    for (const size_t size : {size_t{0}, size_t{1}, kBlock - 1, kBlock, kBlock + 1, 2 * kBlock - 1,
                              2 * kBlock, 2 * kBlock + 1, 10 * kBlock + 77}) {
        const std::string name = "dest" + std::to_string(size);
        Write("src", Bytes(size));
        EXPECT_EQ(Copy(name, "src"), 1) << size;
        EXPECT_TRUE(Read(name) == Bytes(size)) << size;
        EXPECT_TRUE(Read("src") == Bytes(size)) << size;
    }
}

TEST_P(FileCopyTest, CreatesTheDestinationOfAnEmptySource) {
    Write("src", "");
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_TRUE(Exists("dest"));
    EXPECT_EQ(Read("dest"), "");
}

TEST_P(FileCopyTest, AppendsToWhatIsThere) {
    Write("src", "new");
    Write("dest", "old ");
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(Read("dest"), "old new");
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_EQ(Read("dest"), "old newnew");
}

TEST_P(FileCopyTest, MovesBlocksOf16384Bytes) {
    Write("src", Bytes(kBlock + 5));
    FakeFiles files;
    EXPECT_EQ(Copy("dest", "src"), 1);
    Texts moves;
    for (const std::string& call : files.calls) {
        if (call.starts_with("fread") || call.starts_with("fwrite")) {
            moves.push_back(call);
        }
    }
    EXPECT_EQ(moves, (Texts{"fread src 16384", "fwrite dest 16384", "fread src 16384",
                            "fwrite dest 5", "fread src 16384"}));
}

TEST_P(FileCopyTest, GoesOnAfterAReadThatGaveLess) {
    Write("src", Bytes(1000));
    FakeFiles files;
    files.longest_read = 300;
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_TRUE(Read("dest") == Bytes(1000));
}

TEST_P(FileCopyTest, TakesAReadErrorForTheEnd) {
    Write("src", Bytes(2 * kBlock));
    FakeFiles files;
    files.failing_read = 1;
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_TRUE(Read("dest") == Bytes(kBlock));
    EXPECT_EQ(files.closed, (Texts{"dest", "src"}));
}

TEST_P(FileCopyTest, TakesAFolderForAnEmptySource) {
    ASSERT_EQ(mkdir(Path("src").c_str(), 0777), 0);  // opens, but cannot be read
    EXPECT_EQ(Copy("dest", "src"), 1);
    EXPECT_TRUE(Exists("dest"));
}

TEST_P(FileCopyTest, FailsWhenAWriteFallsShort) {
    Write("src", Bytes(3 * kBlock));
    Write("dest", "old");
    for (const int write : {0, 1, 2}) {
        const std::string name = "dest" + std::to_string(write);
        Write(name, "old");
        FakeFiles files;
        files.short_write = write;
        EXPECT_EQ(Copy(name, "src"), -1);
        EXPECT_EQ(files.writes, write + 1);
        EXPECT_EQ(files.reads, write + 1);
        EXPECT_EQ(files.closed, (Texts{name, "src"}));
        const size_t written = kBlock * static_cast<size_t>(write + 1) - 1;
        EXPECT_TRUE(Read(name) == "old" + Bytes(written)) << write;  // what was written stays
    }
}

TEST_P(FileCopyTest, FailsOnAFullDisk) {
    Write("src", Bytes(2 * kBlock));
    EXPECT_EQ(GetParam().copy("/dev/full", Path("src").c_str()), -1);
}

TEST_P(FileCopyTest, DoesNotSeeAFullDiskInTime) {
    Write("src", "few bytes, which stay in the stream's buffer");
    EXPECT_EQ(GetParam().copy("/dev/full", Path("src").c_str()), 1);
}

TEST_P(FileCopyTest, FailsForNull) {
    Write("file", "x");
    FakeFiles files;
    EXPECT_EQ(GetParam().copy(nullptr, Path("file").c_str()), -1);
    EXPECT_EQ(GetParam().copy(Path("file").c_str(), nullptr), -1);
    EXPECT_EQ(GetParam().copy(nullptr, nullptr), -1);
    EXPECT_TRUE(files.streams.empty());
    EXPECT_EQ(Read("file"), "x");
}

TEST_P(FileCopyTest, DoesNotCreateTheDestinationOfAMissingSource) {
    EXPECT_EQ(Copy("dest", "missing"), -1);
    EXPECT_FALSE(Exists("dest"));
}

TEST_P(FileCopyTest, ClosesTheSourceWhenTheDestinationCannotBeOpened) {
    Write("src", "x");
    FakeFiles files;
    files.unopenable = "dest";
    EXPECT_EQ(Copy("dest", "src"), -1);
    EXPECT_EQ(files.closed, (Texts{"src"}));
    EXPECT_EQ(files.reads, 0);
    EXPECT_EQ(Copy("missing/dest2", "src"), -1);
    ASSERT_EQ(mkdir(Path("folder").c_str(), 0777), 0);
    EXPECT_EQ(Copy("folder", "src"), -1);
}

TEST_P(FileCopyTest, OpensTheSourceFirst) {
    FakeFiles files;
    files.unopenable = "src";
    EXPECT_EQ(Copy("dest", "src"), -1);
    EXPECT_EQ(files.calls[0], "fopen src r");
    EXPECT_FALSE(Exists("dest"));
    EXPECT_TRUE(files.closed.empty());
}

TEST_P(FileCopyTest, DoublesASmallFileOntoItself) {
    Write("file", Bytes(1000));
    EXPECT_EQ(Copy("file", "file"), 1);
    EXPECT_EQ(Read("file"), Bytes(1000) + Bytes(1000));
}

TEST_P(FileCopyTest, GrowsALargeFileOntoItselfUntilAWriteFails) {
    Write("file", Bytes(kBlock));
    FakeFiles files;
    files.short_write = 20;
    EXPECT_EQ(Copy("file", "file"), -1);
    EXPECT_EQ(Read("file").size() / kBlock, 1U + 20);
}
