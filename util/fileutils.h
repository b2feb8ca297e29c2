/*
 * Files, folders and shell commands.
 *
 * Paths are zero-terminated byte strings. Failures are logged under the source name fileutils.
 */
#ifndef UTIL_FILEUTILS_H
#define UTIL_FILEUTILS_H

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Folders
 */

/*
 * Creates every missing directory that is named by a part of path ending just before a '/'.
 * Permissions are 0777 less the umask.
 *
 * Good to know:
 *  - What follows the last '/' is not created: "a/b/c" creates a and a/b, "a/b/c/" all three.
 *  - The leading '/' of an absolute path counts as a part too: an empty one, which is logged as
 *    created at index 0 and cannot be.
 *  - A directory that cannot be created is not reported, and the walk goes on.
 *  - A path is cut to its first 1,023 characters.
 */
void CreateMulvPath(const char* path);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
