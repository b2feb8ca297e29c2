// The one open folder of the process. Zero at program start.
#ifndef UTIL_FILEUTILS_FOLDER_CURSOR_H
#define UTIL_FILEUTILS_FOLDER_CURSOR_H

#include <dirent.h>

extern DIR* gFolderDir;        // nullptr when no folder is open
extern char gFolderName[256];  // as given to the last TrOpenFolder, cut to 255 characters

#endif
