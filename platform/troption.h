/*
 * The terminal's option store: named settings that survive a restart.
 *
 * On the terminal this is the firmware's libtroption.so. The stand-in here reads a text file with
 * one key=value pair on each line, so that the tool runs on machines without that firmware.
 */
#ifndef PLATFORM_TROPTION_H
#define PLATFORM_TROPTION_H

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Opens the store. Called once, before the first read.
 *
 * Returns 1 when the store can be read, else 0.
 */
int InitOption(void);

/*
 * Reads the option key into value as a terminated text, cut to size - 1 characters.
 *
 * Returns 1 when the option was found, else 0; value is then left as it was.
 */
int LoadOptionStr(const char* key, char* value, int size);

#ifdef __cplusplus
}
#endif

#endif
