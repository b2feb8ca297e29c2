/* SPDX-License-Identifier: MIT */
/* The address of the Ethernet interface. The conventions are those of util/timeutils.h. */
#ifndef ORVAUTIL_TIMEUTILS_ETHERNET_H
#define ORVAUTIL_TIMEUTILS_ETHERNET_H

#include <orvautil/config.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * The Ethernet address, of 6 bytes, most significant first.
 */

/*
 * Reads six groups of hexadecimal digits, separated by colons, into the 6 bytes at out.
 *
 * Returns 0, or -1 for a malformed or NULL text, which leaves out as it was.
 *
 * Good to know: a group may have one digit, none (0), or more than two if its value is at most 255.
 * The value wraps at 32 bits and may be negative: "ffffffff" gives the byte ff. What follows a
 * sixth colon is not looked at.
 */
int str2mac(const char* text, unsigned char* out);

/*
 * Reads the address of eth0 into buf: as "00:1a:2b:3c:4d:5e" if form is 1, which needs 18 bytes, as
 * 6 bytes if form is 2, or as many of the 6 bytes as size holds in any other form.
 *
 * Returns 1, or 0 when size is too small or the address cannot be read, which is logged; buf is
 * then left as it was. 0 too for a NULL buf that bytes would go to.
 */
int GetMac(void* buf, int size, int form);

/*
 * Sets the address of an interface and reads it back, up to 500 times with pauses of 100 ms, until
 * the interface shows it. Names are cut to 15 characters.
 *
 * Returns the result of the last reading: 0 when the address could be read, also when it still is
 * another one; -1 when not, or when an argument is NULL or there is no socket, which is logged.
 *
 * Good to know: the interface is neither taken down nor brought up; many drivers want it down. Each
 * attempt logs the current error text twice, after success too.
 */
int set_mac_addr(const char* interface, const unsigned char* mac);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
