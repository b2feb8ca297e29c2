/* SPDX-License-Identifier: MIT */
/*
 * Files, folders and shell commands.
 *
 * Paths and names are zero-terminated byte strings; buffers belong to the caller. Where a buffer's
 * size is passed, it counts the terminator, longer texts are cut to it, and with a size of 0 or
 * below nothing is written. A function logs and reports what its comment says and nothing else; its
 * log lines carry the source name fileutils.
 *
 * NULL never ends the caller. A function that needs the path, name or command gives its result for
 * a failure: 0, or -1 or -2 where it says so; one without result does nothing. An output that is
 * NULL is not written. What else NULL means stands at the function.
 *
 * Records are the C library's own struct dirent and struct stat. Programs that exchange them with
 * the library must be built without large-file flags, as the library is; others do not compile. So
 * on a 32-bit terminal a file of 2 GiB or more cannot be opened and has no status: it is not copied
 * and not delivered.
 *
 * The functions keep no state, but for the one folder that TrOpenFolder opens.
 */
#ifndef ORVAUTIL_FILEUTILS_H
#define ORVAUTIL_FILEUTILS_H

#include <dirent.h>
#include <stdio.h>
#include <sys/stat.h>

#include <orvautil/config.h>

ORVAUTIL_EXPECT_SIZE(struct dirent, ORVAUTIL_SIZEOF_DIRENT);
ORVAUTIL_EXPECT_SIZE(struct stat, ORVAUTIL_SIZEOF_STAT);

#ifdef __cplusplus
extern "C" {
#endif

/* What CopyFileContent hands to its hook. */
typedef struct CopyStreams {
    FILE* source;      /* open for reading */
    FILE* destination; /* open for appending */
} CopyStreams;

/* What CopyFolder hands to its filter. */
typedef struct CopyFolderItem {
    int index;            /* how many entries were copied so far */
    struct dirent* entry; /* the current entry; valid during the call */
    struct stat* status;  /* its status; valid during the call */
} CopyFolderItem;

#pragma GCC visibility push(default)

/* Questions about files. */

/*
 * Returns how much of the file system that holds path is in use, in percent, 0 to 100, rounded to
 * nearest. Blocks kept for the superuser are left out of the total.
 *
 * Good to know: 0 is also the result for any failure, and for a file system without blocks.
 */
int DiskSpaceUsed(const char* path);

/* Returns 1 if path exists, else 0, also when it cannot be looked up. Links are followed. */
int CheckFileExists(const char* path);

/*
 * Returns 1 if the file name ends as a picture's does (jpg, jpeg, bmp, png, gif, in any case), else
 * 0.
 *
 * Good to know: the extension is all that follows the first dot, so "a.b.png" is no picture.
 */
int JudgePicFile(const char* name);

/*
 * Copying a file. Destination first, as in memcpy. Both functions append: a destination that holds
 * data already keeps it. Nothing is forced to storage; run `sync` when that matters. A read error
 * ends a copy like the end of the file.
 *
 * The destination must not be the source itself. A file smaller than one buffer of the C library
 * (4 KiB on most file systems) is doubled, and the result is 1. A larger one grows until the disk
 * is full, and the result is -1.
 */

/*
 * Appends the bytes of src to dest, creating dest when it is missing. hook, unless NULL, is called
 * once before any byte moves: it may reposition the streams or read a header.
 *
 * Returns 1, or -1 when a path is NULL, a file cannot be opened or a write falls short. Logs
 * nothing.
 *
 * Good to know: the last bytes are written when the streams close. A failure there, such as a full
 * disk, is not seen, and the result is 1.
 */
int CopyFileContent(const char* dest, const char* src, void (*hook)(CopyStreams* streams));

/*
 * Appends the bytes of src to dest, creating dest when it is missing, and logs both sizes.
 *
 * Returns 1 once both files opened and the C library took every byte, else -1. A write that falls
 * short and a NULL path are logged.
 *
 * Good to know:
 *  - If dest already held data the two sizes differ, "file size error" is logged, and the result is
 *    still 1.
 *  - A failing flush is logged by its error text alone, and the result is still 1.
 *  - A file that cannot be opened is named on standard error, not in the log.
 */
int FileCopy(const char* dest, const char* src);

/*
 * Paths in the data folder: the value of the environment variable var where it is set, otherwise
 * "/mnt/mtdblock/data/", also for a var of NULL.
 */

/* Writes the data folder to out. Returns 1, also when the text is cut or not written. */
int GetAssignEnvPath(const char* var, char* out, int size);

/*
 * Writes the path of file in the data folder to out. A file of NULL counts as empty. Returns out.
 *
 * Good to know: no '/' is put between the two; the variable's value must end in one.
 */
char* GetEnvFilePath(const char* var, const char* file, char* out, int size);

/*
 * The folder cursor: one for the whole process. Not for two threads at once, and not to be nested.
 */

/*
 * Opens a folder for TrGetFileName. Returns 1, or 0 when it cannot be opened, which is not logged,
 * or path is NULL, which is.
 *
 * Good to know: a folder that is open is not closed first, so pair each call with TrCloseFolder. A
 * call that fails drops it all the same, and nothing is open then. NULL leaves it open.
 */
int TrOpenFolder(const char* path);

/*
 * Delivers the next regular file or directory of the open folder to entry and status; either may be
 * NULL. Symbolic links are followed: status is the target's, entry the link's own.
 *
 * Returns 1, or 0 at the end of the folder, when it cannot be read and when no folder is open; both
 * records are then untouched.
 *
 * Good to know:
 *  - Each entry that has a status is logged, also "." and ".." and other kinds of file, which are
 *    passed over.
 *  - An entry without status, such as a dangling link or a file of 2 GiB on a 32-bit target, is
 *    logged, reported on standard error and passed over.
 *  - The folder's path is cut to 255 characters, with the name to 511.
 *  - entry is written whole: what the kernel's record does not reach is filled with 0. A name that
 *    is longer than the field is cut and terminated.
 */
int TrGetFileName(struct dirent* entry, struct stat* status);

/* Closes the open folder, if any. Returns 1. */
int TrCloseFolder(void);

/* Whole folders. */

/*
 * Returns the number of entries of any kind in the folder, or 0 when it cannot be opened or path is
 * NULL; both are logged. The folder cursor is not touched.
 *
 * Good to know: two entries, "." and "..", are always taken off. A folder that opens but cannot be
 * read gives -2.
 */
int GetFileCountOfFolder(const char* path);

/*
 * Copies each regular file and directory in the folder src to dest by the shell command
 * "cp src/name dest -rf && sync". filter, unless NULL, is called for each entry; a negative result
 * leaves the entry out.
 *
 * Returns the number of commands that gave 0, or -1 when src cannot be opened or is NULL, which is
 * logged. So are each entry and each command.
 *
 * Good to know:
 *  - The folder cursor is used and closed, and a folder that the caller had open is dropped, but
 *    not for a NULL src. filter must not use it.
 *  - src with a name is cut to 79 characters, the command to 254. A cut command may fail, copy
 *    another file or copy without `sync`. Cut between the two '&' it runs in the background: it
 *    counts at once, whatever becomes of it.
 *  - The shell interprets the names, and src and dest.
 *  - A dest of NULL stands in the command as "(null)", which the shell refuses: nothing is copied,
 *    and the result is 0.
 */
int CopyFolder(const char* src, const char* dest, int (*filter)(CopyFolderItem* item));

/*
 * Creates every missing directory that is named by a part of path ending just before a '/'.
 * Permissions are 0777 less the umask.
 *
 * Good to know:
 *  - What follows the last '/' is not created: "a/b/c" creates a and a/b, "a/b/c/" all three.
 *  - The leading '/' of an absolute path counts too: the part before it is empty. It is logged as
 *    "create 0 p=[]" and cannot be created.
 *  - The path and each directory that is missing are logged as information. That a directory
 *    cannot be created is not, and the walk goes on.
 *  - A path is cut to its first 1,023 characters.
 */
void CreateMulvPath(const char* path);

/*
 * Processes. systemEx may run on several threads at once; CloseChildProcFd only where no other
 * thread runs.
 */

/*
 * Runs command through "/bin/sh -c" and waits for it. Descriptors, signals, environment and working
 * directory are inherited and not changed.
 *
 * Returns the wait status: 0 for success, 256 times the exit code, or the signal that ended the
 * command (plus 128 with a core dump); -2 for NULL; -1 when no child could be made, which is
 * reported on standard error.
 *
 * Good to know: a shell that cannot be started gives 0, as does a wait that a signal interrupts.
 * While the caller ignores SIGCHLD the result is always 0, because the kernel keeps no status.
 */
int systemEx(const char* command);

/*
 * Closes in the calling process every descriptor number that process pid has open. Meant for a
 * newly forked child with its own id, before it starts another program.
 *
 * Returns 1, also when the process does not exist; that is logged and nothing is closed.
 *
 * Good to know:
 *  - Standard input, output and error are closed too.
 *  - The list is read in blocks of about 1,300 numbers, upwards, through a descriptor that stands
 *    on the list of the own process. With it the reading ends: the numbers of its block are all
 *    closed, those of later blocks stay open. It has the lowest number that was free.
 */
int CloseChildProcFd(int pid);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
