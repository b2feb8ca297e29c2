/* SPDX-License-Identifier: MIT */
/*
 * Texts and numbers: splitting, values of keys, trimming, hexadecimal, checksum, sorting.
 *
 * Texts are zero-terminated byte strings; no encoding is understood. All buffers belong to the
 * caller, nothing is allocated but by MergeSort, and no state is kept: every function may run on
 * any thread. Where a buffer's size is passed, it counts the terminator, and a size of 0 or below
 * means that nothing is written. Where none is passed, the function trusts its caller.
 *
 * A separator is one byte. Where it is passed as int, it is compared with the text's bytes as
 * values from 0 to 255: pass a separator above 0x7F unsigned. A negative one never ends a part or a
 * value.
 *
 * NULL never ends the caller, and only Str2Upcase logs it. An input of NULL gives the result that
 * the function names for it, and nothing is written unless the function says so. An output of NULL
 * is skipped; the result and the other outputs are as ever.
 */
#ifndef ORVAUTIL_TRSTRUTILS_H
#define ORVAUTIL_TRSTRUTILS_H

#include <orvautil/config.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/* Splitting a text at the first separator. */

/*
 * Copies what precedes the first separator into first and what follows it into rest, both
 * terminated. Each buffer must hold the whole text; first must not overlap text.
 *
 * Returns the address that follows rest's terminator; rest itself when text or rest is NULL.
 *
 * Good to know: a text without separator, an empty one too, goes to first whole. rest then keeps
 * its contents, the byte before it, rest[-1], is set to 0, and the result is rest itself. Clear
 * rest before the call, and place it where the byte before it may be overwritten.
 */
char* SplitByChar(const char* text, char* first, char* rest, int separator);

/*
 * Splits text into a key and a value: what precedes the first separator and what follows it, each
 * cut to its buffer's size less one and terminated.
 *
 * Returns 0, also for a text of NULL.
 *
 * Good to know: when nothing follows (no separator, or it is the last byte) the value is not
 * copied. A single 0 is written at value[length of the stored key], wherever that lies, and all
 * other bytes of value keep their contents. Clear value before the call, and give it the room. With
 * a key_size of 0 or below nothing is written then. When key is NULL the length is the one that a
 * key of key_size bytes would have.
 */
int SplitKeyValueByChar(const char* text, char* key, int key_size, char* value, int value_size,
                        char separator);

/*
 * Values of keys in lists such as "name=Tom,age=7". A key must open the text or follow a
 * separator directly; keys match exactly, case and spaces included, and the first match wins.
 */

/*
 * Copies the value of key into out, of which out_max bytes may be written.
 *
 * Returns the value's length, 1 to out_max - 1, with out terminated; 0 for an empty value, with
 * out empty; -1 when text or key is NULL or the key is missing, with out empty.
 *
 * Good to know:
 *  - A value of out_max bytes or more returns 0 as well: out then holds its first out_max bytes
 *    and no terminator.
 *  - Keys over 197 bytes are never found.
 *  - Keys are found after the low byte of separator, also where it ends no value.
 */
int ExtractValue(const char* text, const char* key, int separator, char* out, int out_max);

/*
 * Returns the value of key as a decimal number, or default_value when text or key is NULL, the key
 * is missing or its value is empty or has 40 bytes or more.
 *
 * Good to know: leading white space and a sign are accepted, the number ends at the first other
 * character, and a value without digits is 0, not default_value. Numbers beyond 32 bits give the
 * nearest limit.
 */
int ExtractValueInt(const char* text, const char* key, int separator, int default_value);

/* Texts changed in place. */

/*
 * Removes spaces at both ends. A text of spaces becomes empty; NULL is left alone.
 *
 * Good to know: only the character 0x20 is a space here; tabs and line ends stay.
 */
void TrimAroundSpace(char* text);

/*
 * Replaces a to z by A to Z in the first length bytes of text.
 *
 * Returns 0, or -1 for a NULL text, which is logged as "pStr is NULL". A length below 1 changes
 * nothing.
 *
 * Good to know: a terminator does not end the work; length bytes must be there.
 */
int Str2Upcase(char* text, int length);

/* Hexadecimal digits. */

/*
 * Decodes pairs of hexadecimal digits of either case into out, which must hold half the text's
 * length in bytes. An odd last character is ignored; out is not terminated.
 *
 * Returns the number of bytes decoded, or 0 when hex is NULL or a pair is not hexadecimal; the
 * bytes before that pair are written all the same.
 *
 * Good to know: the characters : ; < = > ? pass as the digits 10 to 15.
 */
int Decode16(const char* hex, unsigned char* out);

/*
 * Returns the byte, 0 to 255, that the characters high and low name in hexadecimal.
 *
 * Good to know: nothing is checked. A character that is no hexadecimal digit counts as its code
 * less 48, and the result is cut to 8 bits: 'g' and '1' give 0x71.
 */
int str2Hex(int high, int low);

/* Decimal numbers. */

/*
 * Returns the decimal number in text, which '-' may precede, or default_value when text is NULL or
 * empty, is '-' alone or holds anything but digits and spaces before its end.
 *
 * Good to know:
 *  - Spaces are skipped as long as the value is 0: "  42", "- 7" and "0 42" give 42, -7 and 42,
 *    and a text of spaces gives 0.
 *  - A space after a value other than 0 ends the number; what follows is not looked at.
 *  - '+', tabs and line ends give default_value.
 *  - Numbers beyond 32 bits wrap.
 */
int str2int(const char* text, int default_value);

/* Checksum and sorting. */

/*
 * Returns the Internet checksum (RFC 1071) of length bytes, 0 to 0xFFFF. buffer must be aligned
 * for 16-bit access. A length of 0 or below and a buffer of NULL give 0xFFFF.
 *
 * Good to know: words are read in the machine's byte order. Store the result into the packet in
 * that same order; do not swap it.
 */
int in_chksum(const unsigned short* buffer, int length);

/*
 * Sorts count numbers ascending, in place. A count below 2 and an array of NULL do nothing.
 *
 * Good to know: each merge takes a heap block for the numbers that it merges. When there is none,
 * "Error:out of memory!" is logged, the sort goes on, and the array ends partly sorted.
 */
void MergeSort(int* array, int count);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
