/*
 * The boot logo, the pins and one region of the raw NAND flash.
 *
 * The functions talk to the board's drivers through /dev/gpio and /dev/nand and to the image
 * manager library. They are linked into the tool for programs that need them and are not exported.
 * All messages go straight to standard output. One thread at a time: the descriptors, their use
 * count and the record of a NAND request are shared.
 *
 * Every function on pins or flash wants the devices open: pair OpenGpioNand and CloseGpioNand and
 * work between them. Without the devices "invalid operation!" is printed.
 *
 * NULL never ends the caller: a function that takes a pointer then does nothing, prints nothing and
 * gives its result for a failure.
 */
#ifndef SPLASH_SPLASH_H
#define SPLASH_SPLASH_H

#ifdef __cplusplus
extern "C" {
#endif

/* The devices. */

/*
 * Opens both devices, or counts one more use when they are open.
 *
 * Returns 1, or 0 when /dev/gpio cannot be opened, which is printed.
 *
 * Good to know: without /dev/nand, which is printed, the result is 1 and NAND requests go to
 * /dev/gpio. The count has 8 bits: after 256 uses the devices are opened anew.
 */
int OpenGpioNand(void);

/*
 * Takes one use off, or closes /dev/gpio when it is the last one.
 *
 * Returns 1, or 0 when /dev/gpio could not be opened or never was.
 *
 * Good to know:
 *  - After the last use the count and the descriptors stay as they are, and /dev/nand stays open. A
 *    later OpenGpioNand opens nothing, and requests go to whatever has the number by then.
 *  - A further close after the last one returns 1 too, and closes whatever has the number by then.
 *  - Descriptor 0 is never closed; the result is then 0.
 */
int CloseGpioNand(void);

/* The pins. */

/*
 * Returns the value of a pin as the driver reports it, or -1 when the devices are not open.
 *
 * Good to know: whether the request worked is not looked at. A driver that sets nothing gives 0.
 */
int GpioReadPin(int pin);

/* Issues request 3 for a pin with value 0 or 1; other values do nothing. Returns 0. */
int GpioPinCmd3(int pin, int value);

/* Issues request 1 for a pin with value 0 or 1; other values do nothing. Returns 0. */
int GpioPinCmd1(int pin, int value);

/*
 * Hands the first 6 of count bytes to the driver.
 *
 * Returns the result of the request, or -1 when bytes is NULL, count is 5 or less or the devices
 * are not open.
 */
int GpioPutBytes(const void* bytes, unsigned int count);

/* The flash. */

/*
 * Writes the number in text (decimal, 0x hexadecimal, 0 octal; 32 bits) to bytes 4 to 7 of NAND
 * page 512 and keeps all else of the pages 512 to 576: they are read, block 8 is erased, and they
 * are written back.
 *
 * Prints the text and the number first, as a signed one, and the count of pages at the end.
 *
 * Returns 1, or 0 when text is NULL, the devices are not open or the block cannot be erased;
 * nothing is then written.
 *
 * Good to know:
 *  - The region has 65 pages, the block 64: the last page is rewritten without being erased.
 *  - A page that cannot be read is rewritten as erased flash, every byte 0xFF, the number's bytes
 *    excepted. What that does to the last page, which was not erased, is up to the driver.
 *  - A text without a number counts as 0, one beyond the range of unsigned long as its limit.
 *  - The results of the page writes are not checked.
 *  - The pages stand on the stack: 133,120 bytes.
 */
int NandSetRote(const char* text);

/* The boot logo. */

/*
 * Updates the image "bmp.splash" through the image manager library, which is loaded for the call;
 * the two values are its own.
 *
 * Returns 0; -1 when the library cannot be loaded, -2 when it has no entry point, -3 when the entry
 * point fails. Each outcome is printed.
 *
 * Good to know:
 *  - A failing update returns 0 too; only the message tells.
 *  - The message about a library that cannot be loaded ends in errno's text, which newer C
 *    libraries do not set here: it may say "Success".
 */
int UpdateSplashLogo(unsigned int value1, unsigned int value2);

#ifdef __cplusplus
}
#endif

#endif
