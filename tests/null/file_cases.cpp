// util/fileutils.h with NULL.

#include "util/fileutils.h"

#include "tests/null/cases.h"

namespace {

constexpr char kNoFileName[] =
    "-1 | Warning fileutils FileCopy: pSrcFileName or pDestFileName buf is NULL!";
constexpr char kFolderCopied[] =
    "1 $ cp folder/inside dest -rf && sync"
    " | Info fileutils CopyFolder: photName:inside, type:8"
    " | Info fileutils CopyFolder: command:cp folder/inside dest -rf && sync";

// Both take what they get.
void LeaveStreams(CopyStreams*) {}

int TakeItem(CopyFolderItem*) {
    return 0;
}

// An entry to be filled, with the folder open for it.
struct dirent* EntryOfOpenFolder() {
    TrOpenFolder("folder");
    return Block<struct dirent>();
}

}  // namespace

std::vector<NullCase> FileCases() {
    return {
        NULL_CASE(DiskSpaceUsed, (Input("/")), kAnything, Null{"path", "0"}),
        NULL_CASE(CheckFileExists, (Input("file")), "1", Null{"path", "0"}),
        NULL_CASE(JudgePicFile, (Input("a.png")), "1", Null{"name", "0"}),
        NULL_CASE(CopyFileContent, (Input("copy"), Input("file"), LeaveStreams), "1",
                  Null{"dest", "-1"}, Null{"src", "-1"}, Null{"hook", "1"}),
        NULL_CASE(FileCopy, (Input("copy"), Input("file")),
                  "1 | Debug fileutils FileCopy: src file size:5 dst file size:5",
                  Null{"dest", kNoFileName}, Null{"src", kNoFileName}),
        NULL_CASE(GetAssignEnvPath, (Input("NULL_TEST"), Room(), 32), "1 out=/x/",
                  Null{"var", "1 out=/mnt/mtdblock/data/"}, Null{"out", "1"}),
        NULL_CASE(GetEnvFilePath, (Input("NULL_TEST"), Input("f"), Room(), 32), "out out=/x/f",
                  Null{"var", "out out=/mnt/mtdblock/data/f"}, Null{"file", "out out=/x/"},
                  Null{"out", "NULL"}),
        NULL_CASE(TrOpenFolder, (Input("folder")), "1",
                  Null{"path", "0 | Warning fileutils TrOpenFolder: PFolderName is NULL"}),
        NULL_CASE(TrGetFileName, (EntryOfOpenFolder(), Block<struct stat>()),
                  "1 entry=changed status=changed",  //
                  Null{"entry", "1 status=changed"}, Null{"status", "1 entry=changed"}),
        NO_POINTERS(TrCloseFolder),
        NULL_CASE(GetFileCountOfFolder, (Input("folder")), "1",
                  Null{"path", "0 | Warning fileutils GetFileCountOfFolder: PFolderName is NULL"}),
        NULL_CASE(CopyFolder, (Input("folder"), Input("dest"), TakeItem), kFolderCopied,
                  Null{"src",
                       "-1 | Warning fileutils TrOpenFolder: PFolderName is NULL"
                       " | Warning fileutils CopyFolder: opendir (null) fail"},
                  Null{"dest",
                       "1 $ cp folder/inside (null) -rf && sync"  // which the shell refuses
                       " | Info fileutils CopyFolder: photName:inside, type:8"
                       " | Info fileutils CopyFolder: command:cp folder/inside (null) -rf && sync"},
                  Null{"filter", kFolderCopied}),
        NULL_CASE(CreateMulvPath, (Input("a/")),
                  "done | Info fileutils CreateMulvPath: a/:2\\n"
                  " | Info fileutils CreateMulvPath: create 1 p=[a]\\n",
                  Null{"path", "done"}),
        NULL_CASE(systemEx, (Input("true")), "0 $ true", Null{"command", "-2"}),
        NO_POINTERS(CloseChildProcFd),
    };
}
