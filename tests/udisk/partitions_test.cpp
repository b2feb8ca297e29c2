// Reading /proc/partitions into the list of mount candidates.

#include "udisk/partitions.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/udisk/fake_terminal.h"

namespace {

using Texts = std::vector<std::string>;

// The candidates as "name size", or "no list".
Texts ReadPartitions() {
    PartitionEntry* const list = readPartitionList();
    if (list == nullptr) {
        return {"no list"};
    }
    Texts texts;
    for (const PartitionEntry* entry = list; entry->name != nullptr; ++entry) {
        texts.push_back(std::string(entry->name) + " " + std::to_string(entry->size_kib));
    }
    free(list);
    return texts;
}

Texts InvalidLine(const std::string& text) {
    return {
        "fopen /proc/partitions r",
        "Info udiskdetection readPartitionList: invalid line in /proc/partitions: '" + text +
            "'\\n",
    };
}

// A line without its end, whose name begins with sd.
std::string LineOfLength(size_t length) {
    std::string line("8 0 10 sd");
    line.resize(length, 'x');
    return line;
}

const Texts kNoLog = {"fopen /proc/partitions r"};

}  // namespace

static_assert(offsetof(PartitionEntry, name) == 0);
static_assert(offsetof(PartitionEntry, size_kib) == sizeof(char*));
static_assert(sizeof PartitionEntry::size_kib == 4);

class ReadPartitionList : public testing::Test {
protected:
    FakeTerminal terminal_;
};

TEST_F(ReadPartitionList, KeepsTheOrderOfTheLines) {
    terminal_.SetPartitions(
        "   8       16    7822336 sdb\n"
        "   8       17    7821312 sdb1\n"
        "   8        0   15644672 sda\n"
        " 180        0       1024 uba\n"
        " 180        1       1023 uba1\n");
    EXPECT_EQ(ReadPartitions(),
              (Texts{"sdb 7822336", "sdb1 7821312", "sda 15644672", "uba 1024", "uba1 1023"}));
    EXPECT_EQ(terminal_.calls, kNoLog);
}

TEST_F(ReadPartitionList, TakesOnlyNamesThatBeginWithSdOrUb) {
    terminal_.SetPartitions(
        "8 0 1 sd\n8 0 2 ub\n8 0 3 sd_x:y\n8 0 4 ubiblock0_0\n"
        "179 0 5 mmcblk0\n31 3 6 mtdblock3\n3 0 7 hda\n8 0 8 Sda\n8 0 9 SDA\n8 0 10 UBA\n"
        "8 0 11 s\n8 0 12 u\n8 0 13 sb1\n8 0 14 ud1\n8 0 15 xsda\n11 0 16 sr0\n8 0 17 bua\n");
    EXPECT_EQ(ReadPartitions(), (Texts{"sd 1", "ub 2", "sd_x:y 3", "ubiblock0_0 4"}));
    EXPECT_EQ(terminal_.calls, kNoLog);
}

TEST_F(ReadPartitionList, TakesOnlySizesGreaterThanZero) {
    terminal_.SetPartitions("8 0 0 sda\n8 1 -1 sda1\n8 2 1 sda2\n8 3 2147483647 sda3\n");
    EXPECT_EQ(ReadPartitions(), (Texts{"sda2 1", "sda3 2147483647"}));
}

TEST_F(ReadPartitionList, PassesOverTwoLinesWithoutScanning) {
    terminal_.partitions = "8 0 1 sda\n8 0 2 sdb\n8 0 3 sdc\n";
    EXPECT_EQ(ReadPartitions(), (Texts{"sdc 3"}));
    EXPECT_EQ(terminal_.calls, kNoLog);
}

TEST_F(ReadPartitionList, TakesAHeaderLineOf254CharactersWhole) {
    std::string list;
    terminal_.partitions = list.assign(254, 'h').append("\n\n8 0 1 sda\n");
    EXPECT_EQ(ReadPartitions(), (Texts{"sda 1"}));
    terminal_.partitions = list.assign("\n").append(254, 'h').append("\n8 0 1 sda\n");
    EXPECT_EQ(ReadPartitions(), (Texts{"sda 1"}));
    // One more, and its newline is a line of its own.
    terminal_.partitions = list.assign(255, 'h').append("\n8 0 1 sda\n");
    EXPECT_EQ(ReadPartitions(), (Texts{"sda 1"}));
}

TEST_F(ReadPartitionList, IsEmptyWhenTheFileEndsBeforeTheThirdLine) {
    for (const char* content : {"", "\n", "major minor  #blocks  name\n", "8 0 1 sda",
                                "major minor  #blocks  name\n\n", "\n8 0 1 sda\n", "a\nb"}) {
        terminal_.partitions = content;
        terminal_.calls.clear();
        EXPECT_EQ(ReadPartitions(), Texts{}) << content;
        EXPECT_EQ(terminal_.calls, kNoLog) << content;
    }
}

TEST_F(ReadPartitionList, IsNoneWhenTheFileCannotBeOpened) {
    terminal_.partitions = std::nullopt;
    EXPECT_EQ(ReadPartitions(), (Texts{"no list"}));
    EXPECT_EQ(terminal_.calls,
              (Texts{"fopen /proc/partitions r",
                     "Warning udiskdetection readPartitionList: failed to open /proc/partitions"}));
}

TEST_F(ReadPartitionList, StopsAtALineThatDoesNotScan) {
    const struct {
        const char* line;
        const char* logged;
    } kCases[] = {
        {"\n", ""},
        {"   \n", "   "},
        {"8 0 12\n", "8 0 12"},
        {"8 0 sda\n", "8 0 sda"},
        {"x 8 0 12 sdb\n", "x 8 0 12 sdb"},
        {"8,0,12,sdb\n", "8,0,12,sdb"},
    };
    for (const auto& [line, logged] : kCases) {
        terminal_.SetPartitions(std::string("8 0 10 sda\n") + line + "8 1 11 sda1\n");
        terminal_.calls.clear();
        EXPECT_EQ(ReadPartitions(), (Texts{"sda 10"})) << line;
        EXPECT_EQ(terminal_.calls, InvalidLine(logged)) << line;
    }
}

TEST_F(ReadPartitionList, ScansAsScanfDoes) {
    terminal_.SetPartitions(
        "8\t0\t10\tsda\n  +8  -1 11 sda1   more words\n8 0 12.5 sdb\n8 0 13 sdc");
    EXPECT_EQ(ReadPartitions(), (Texts{"sda 10", "sda1 11", "sdc 13"}));
    EXPECT_EQ(terminal_.calls, kNoLog);
}

TEST_F(ReadPartitionList, CutsTheLastCharacterAlsoWithoutANewline) {
    terminal_.SetPartitions("8 0 10 sda\n8 0 123");
    EXPECT_EQ(ReadPartitions(), (Texts{"sda 10"}));
    EXPECT_EQ(terminal_.calls, InvalidLine("8 0 12"));
}

TEST_F(ReadPartitionList, EndsALineAtAZeroByte) {
    using std::string_literals::operator""s;
    const struct {
        std::string line;
        const char* logged;
    } kCases[] = {
        {"\0 0 12 sdb\n"s, ""},
        {"8 0 \0 12 sdb\n"s, "8 0"},
        {"x\0\n"s, ""},
    };
    for (const auto& [line, logged] : kCases) {
        terminal_.SetPartitions("8 0 10 sda\n" + line + "8 1 11 sda1\n");
        terminal_.calls.clear();
        EXPECT_EQ(ReadPartitions(), (Texts{"sda 10"})) << line;
        EXPECT_EQ(terminal_.calls, InvalidLine(logged)) << line;
    }
}

TEST_F(ReadPartitionList, TakesALineOf254CharactersWhole) {
    const std::string line = LineOfLength(254);
    terminal_.SetPartitions(line + "\n8 0 11 sdb\n");
    EXPECT_EQ(ReadPartitions(), (Texts{line.substr(7) + " 10", "sdb 11"}));
    EXPECT_EQ(terminal_.calls, kNoLog);
}

TEST_F(ReadPartitionList, BreaksALineAfter255Characters) {
    const std::string start = LineOfLength(255);
    terminal_.SetPartitions(start + "tail\n8 0 11 sdb\n");
    EXPECT_EQ(ReadPartitions(), (Texts{start.substr(7) + " 10"}));
    EXPECT_EQ(terminal_.calls, InvalidLine("tail"));
}

TEST_F(ReadPartitionList, TakesTheNewlineAfter255CharactersForALine) {
    const std::string start = LineOfLength(255);
    terminal_.SetPartitions(start + "\n8 0 11 sdb\n");
    EXPECT_EQ(ReadPartitions(), (Texts{start.substr(7) + " 10"}));
    EXPECT_EQ(terminal_.calls, InvalidLine(""));
}

TEST_F(ReadPartitionList, LogsTheFirst254CharactersOfALongInvalidLine) {
    const std::string line(300, 'z');
    terminal_.SetPartitions(line + "\n8 0 11 sdb\n");
    EXPECT_EQ(ReadPartitions(), Texts{});
    EXPECT_EQ(terminal_.calls, InvalidLine(line.substr(0, 254)));
}

TEST_F(ReadPartitionList, HoldsAnyNumberOfCandidates) {
    std::string lines;
    Texts expected;
    for (int i = 1; i <= 3000; ++i) {
        lines += "8 0 " + std::to_string(i) + " sd" + std::to_string(i) + "\n";
        expected.push_back("sd" + std::to_string(i) + " " + std::to_string(i));
    }
    terminal_.SetPartitions(lines);
    EXPECT_EQ(ReadPartitions(), expected);
}

TEST_F(ReadPartitionList, ReadsThroughABufferOf16384Bytes) {
    terminal_.SetPartitions("8 0 10 sda\n");
    ReadPartitions();
    EXPECT_EQ(terminal_.stream_calls, (Texts{"setvbuf full 16384", "fclose", "free"}));
}

TEST_F(ReadPartitionList, ReadsAlsoWithoutThatBuffer) {
    terminal_.has_stream_buffer = false;
    terminal_.SetPartitions("8 0 10 sda\n");
    EXPECT_EQ(ReadPartitions(), (Texts{"sda 10"}));
    EXPECT_EQ(terminal_.stream_calls, (Texts{"fclose"}));
}

TEST_F(ReadPartitionList, ClosesTheFileAlsoAfterAnInvalidLine) {
    terminal_.SetPartitions("8 0 10 sda\n\n");
    ReadPartitions();
    EXPECT_EQ(terminal_.stream_calls, (Texts{"setvbuf full 16384", "fclose", "free"}));
    EXPECT_EQ(terminal_.open_streams, 0);
}

TEST_F(ReadPartitionList, KeepsACopyOfEachNameAndNothingElse) {
    terminal_.SetPartitions("8 0 10 sda\n8 0 0 sdb\n1 0 4 ram0\n8 1 11 sda1\nx\n");
    free(readPartitionList());
    EXPECT_EQ(terminal_.TextsOnHeap(), (Texts{"sda", "sda1"}));
}

TEST_F(ReadPartitionList, IsNoneWithoutMemoryForAnEmptyList) {
    terminal_.SetPartitions("8 0 10 sda\n");
    terminal_.has_list = false;
    EXPECT_EQ(ReadPartitions(), (Texts{"no list"}));
    EXPECT_EQ(terminal_.calls, kNoLog);
    EXPECT_EQ(terminal_.open_streams, 0);
    EXPECT_EQ(terminal_.TextsOnHeap(), Texts{});
}

TEST_F(ReadPartitionList, KeepsWhatItHasWhenItCannotGrow) {
    const Texts all = {"sda 10", "sda1 11", "sdb 12"};
    for (const int growths : {0, 1, 2, 3}) {
        terminal_.SetPartitions("8 0 10 sda\n8 1 11 sda1\n8 2 12 sdb\nx\n");
        terminal_.growths = growths;
        terminal_.calls.clear();
        EXPECT_EQ(ReadPartitions(), Texts(all.begin(), all.begin() + growths));
        EXPECT_EQ(terminal_.calls, growths < 3 ? kNoLog : InvalidLine("x"));  // reads no further
        EXPECT_EQ(terminal_.open_streams, 0);
    }
}

TEST_F(ReadPartitionList, EndsBeforeANameThatCannotBeCopied) {
    const Texts all = {"sda 10", "sda1 11", "sdb 12"};
    for (const int copies : {0, 1, 2, 3}) {
        terminal_.SetPartitions("8 0 10 sda\n8 1 11 sda1\n8 2 12 sdb\nx\n");
        terminal_.copies = copies;
        terminal_.calls.clear();
        EXPECT_EQ(ReadPartitions(), Texts(all.begin(), all.begin() + copies));
        EXPECT_EQ(terminal_.calls, copies < 3 ? kNoLog : InvalidLine("x"));
    }
}
