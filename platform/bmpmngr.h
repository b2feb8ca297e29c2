/*
 * The terminal's image manager: the pictures that the boot loader shows.
 *
 * On the terminal this is the firmware's /usr/lib/libbmpmngr.so, loaded at run time. The stand-in
 * here changes no picture. It is told by environment variables what to answer and where to note
 * what it was asked:
 *
 *   ORVATOOL_BMPMNGR_INIT    the result of bmp_manager_init_env, 0 when unset
 *   ORVATOOL_BMPMNGR_UPDATE  the result of the update operation, 0 when unset
 *   ORVATOOL_BMPMNGR_NOTES   a file that gets a line for each call
 */
#ifndef PLATFORM_BMPMNGR_H
#define PLATFORM_BMPMNGR_H

#ifdef __cplusplus
extern "C" {
#endif

/* The nine operations, of which only the last one is known here. */
typedef struct ImageManagerTable {
    void* others[8];
    /* Returns 0 when the image was updated. The values are the library's own. */
    int (*update)(const char* image, unsigned int value1, unsigned int value2);
} ImageManagerTable;

/* The entry point's name, for looking it up. */
#define BMP_MANAGER_ENTRY_POINT "bmp_manager_init_env"

/* Fills the table. Returns 0 when all operations can be used. */
int bmp_manager_init_env(ImageManagerTable* table);

#ifdef __cplusplus
}
#endif

#endif
