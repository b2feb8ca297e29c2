// Questions about files, and copies.
#include <orvautil/fileutils.h>
#include <orvautil/log.h>
#include <stdio.h>

static void Write(const char* path, const char* text) {
    FILE* const file = fopen(path, "w");
    if (file != NULL) {
        fputs(text, file);
        fclose(file);
    }
}

static long SizeOf(const char* path) {
    struct stat status;
    return stat(path, &status) == 0 ? (long)status.st_size : -1;
}

// A hook sees both streams before the first byte moves: this one passes over a header.
static void SkipHeader(CopyStreams* streams) {
    fseek(streams->source, sizeof "head\n" - 1, SEEK_SET);
}

int main(void) {
    Write("source.txt", "head\nbody\n");
    printf("is there: %d\n", CheckFileExists("source.txt"));
    fprintf(stderr, "%d percent of the disk are in use.\n", DiskSpaceUsed("."));
    // Good to know: the extension is all that follows the first dot.
    printf("pictures: %d %d\n", JudgePicFile("logo.PNG"), JudgePicFile("logo.old.png"));

    // The destination comes first, as in memcpy.
    SetLogLevelByStr("WD");
    printf("copied: %d\n", FileCopy("copy.txt", "source.txt"));
    // Good to know: a copy appends. The log tells that the sizes differ; the result does not.
    printf("copied again: %d\n", FileCopy("copy.txt", "source.txt"));
    printf("bytes: %ld\n", SizeOf("copy.txt"));

    remove("copy.txt");
    printf("copied: %d\n", CopyFileContent("copy.txt", "source.txt", SkipHeader));
    printf("bytes without head: %ld\n", SizeOf("copy.txt"));
    printf("no source: %d\n", CopyFileContent("copy.txt", "missing.txt", NULL));

    // A path in the data folder, which the variable may name.
    // Good to know: no '/' is put in, so the variable's value must end in one.
    char path[64];
    printf("%s\n", GetEnvFilePath("EXAMPLE_DATA", "users.txt", path, sizeof path));
    remove("copy.txt");
    return remove("source.txt");
}
