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

enum { BMP_MANAGER_OPERATIONS = 9, BMP_MANAGER_UPDATE = 8 };

/* The operation at the index BMP_MANAGER_UPDATE. Returns 0 when the image was updated. */
typedef int (*BmpManagerUpdate)(const char* image, unsigned int value1, unsigned int value2);

/* Fills the table of operations. Returns 0 when all of them can be used. */
int bmp_manager_init_env(void* table[BMP_MANAGER_OPERATIONS]);

#ifdef __cplusplus
}
#endif

#endif
