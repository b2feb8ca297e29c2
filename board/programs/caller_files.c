/* Scenarios on files and folders. */
#include <dirent.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>

#include "board/programs/caller.h"
#include "util/fileutils.h"

static void RunDiskSpaceUsed(char** words) {
    printf("result %d\n", DiskSpaceUsed(words[0]));
}

static void RunFileCopy(char** words) {
    printf("result %d\n", FileCopy(words[0], words[1]));
}

static void SkipFirstByte(CopyStreams* streams) {
    fseek(streams->source, 1, SEEK_SET);
}

/* DESTINATION SOURCE ["skip"]: with the third word all but the first byte. */
static void RunCopyFileContent(char** words) {
    printf("result %d\n",
           CopyFileContent(words[0], words[1], words[2] != NULL ? SkipFirstByte : NULL));
}

static void RunGetFileCount(char** words) {
    printf("result %d\n", GetFileCountOfFolder(words[0]));
}

/* FOLDER: every entry with kind, permissions and size. */
static void RunTrGetFileName(char** words) {
    printf("open %d\n", TrOpenFolder(words[0]));
    struct dirent entry;
    struct stat status;
    while (TrGetFileName(&entry, &status) == 1) {
        printf("%s %o %ld\n", entry.d_name, (unsigned int)status.st_mode, (long)status.st_size);
    }
    printf("close %d\n", TrCloseFolder());
}

static const char* unwanted;

static int IsWanted(CopyFolderItem* item) {
    printf("%d %s %o\n", item->index, item->entry->d_name, (unsigned int)item->status->st_mode);
    return strcmp(item->entry->d_name, unwanted) == 0 ? -1 : 0;
}

/* SOURCE DESTINATION [NAME]: without the entry of that name. */
static void RunCopyFolder(char** words) {
    unwanted = words[2];
    printf("result %d\n", CopyFolder(words[0], words[1], unwanted != NULL ? IsWanted : NULL));
}

const Scenario kFileScenarios[] = {
    {"DiskSpaceUsed", RunDiskSpaceUsed},
    {"FileCopy", RunFileCopy},
    {"CopyFileContent", RunCopyFileContent},
    {"GetFileCountOfFolder", RunGetFileCount},
    {"TrGetFileName", RunTrGetFileName},
    {"CopyFolder", RunCopyFolder},
    {NULL, NULL},
};
