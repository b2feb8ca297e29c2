// Making folders, walking through one, copying one.
#include <orvautil/fileutils.h>
#include <stdio.h>
#include <string.h>

static void Write(const char* path, const char* text) {
    FILE* const file = fopen(path, "w");
    if (file != NULL) {
        fputs(text, file);
        fclose(file);
    }
}

// A filter leaves an entry out with a negative result.
static int LeaveNotesOut(CopyFolderItem* item) {
    return strcmp(item->entry->d_name, "notes.txt") == 0 ? -1 : 0;
}

int main(void) {
    // Good to know: what follows the last '/' is not made. So end the path of a folder in one.
    CreateMulvPath("data/logs/");
    CreateMulvPath("copy/never");
    printf("made: %d %d\n", CheckFileExists("data/logs"), CheckFileExists("copy/never"));

    Write("data/a.txt", "four");
    Write("data/notes.txt", "and nine.");
    printf("entries: %d\n", GetFileCountOfFolder("data"));

    // The cursor: one for the whole process, so close it before anything else opens a folder.
    if (TrOpenFolder("data") == 1) {
        struct dirent entry;
        struct stat status;
        long bytes = 0;
        int folders = 0;
        while (TrGetFileName(&entry, &status) == 1) {  // "." and ".." are passed over
            if (S_ISDIR(status.st_mode)) {
                folders += 1;
            } else {
                bytes += (long)status.st_size;
            }
        }
        TrCloseFolder();
        printf("found: %ld bytes in files, folders: %d\n", bytes, folders);
    }

    // Good to know: this runs a shell command for each entry, so names must be plain ones.
    printf("copied: %d\n", CopyFolder("data", "copy", LeaveNotesOut));
    printf("the copies: %d %d\n", CheckFileExists("copy/a.txt"), CheckFileExists("copy/notes.txt"));
    return 0;
}
