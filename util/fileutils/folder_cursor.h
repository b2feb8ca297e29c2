// The one open folder of the process. Zero at program start.
#ifndef UTIL_FILEUTILS_FOLDER_CURSOR_H
#define UTIL_FILEUTILS_FOLDER_CURSOR_H

#include <dirent.h>

constexpr int kFolderNameSize = 256;

extern DIR* gFolderDir;                    // nullptr when no folder is open
extern char gFolderName[kFolderNameSize];  // as given to the last TrOpenFolder, cut

#endif
