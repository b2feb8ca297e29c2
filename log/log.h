/* SPDX-License-Identifier: MIT */
/*
 * The process-wide leveled log.
 *
 * A line goes to the standard output stream, and only if its level is enabled in the level mask.
 * The mask starts empty: nothing is logged until a level is enabled. Nothing is ever flushed here;
 * the stream's own buffering decides when a line reaches the file or the terminal.
 *
 * Texts are zero-terminated. Names that the log keeps are cut to 23 characters.
 *
 * NULL never ends the caller. PrintLog leaves the message empty for a format of NULL and writes
 * "(null)" for a file or function of NULL. The functions that set something then change nothing.
 *
 * There is no lock. Enable levels, register threads and set options while no other thread logs.
 * Lines that are written at the same moment may mix.
 */
#ifndef ORVAUTIL_LOG_H
#define ORVAUTIL_LOG_H

#include <orvautil/config.h>

#if defined LOG_DEBUG && !defined ORVAUTIL_PREFIXED_LEVELS
#error "<syslog.h> has other LOG_ levels: define ORVAUTIL_PREFIXED_LEVELS and use ORVAUTIL_LOG_..."
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The levels, a bit each. A line's level is one of them; the mask is any union. */
enum {
    ORVAUTIL_LOG_ERROR = 1,
    ORVAUTIL_LOG_WARNING = 2,
    ORVAUTIL_LOG_INFO = 4,
    ORVAUTIL_LOG_DEBUG = 8,
};

/*
 * Their short names. <syslog.h> gives LOG_DEBUG, LOG_INFO and LOG_WARNING other values, so a source
 * has its levels or these: both are refused, whichever comes first. It alone declares setlogmask,
 * which tells that it comes afterwards. A source that needs both defines ORVAUTIL_PREFIXED_LEVELS
 * and has the names above alone.
 */
#ifndef ORVAUTIL_PREFIXED_LEVELS
enum {
    LOG_ERROR = ORVAUTIL_LOG_ERROR,
    LOG_WARNING = ORVAUTIL_LOG_WARNING,
    LOG_INFO = ORVAUTIL_LOG_INFO,
    LOG_DEBUG = ORVAUTIL_LOG_DEBUG,
};
#define ORVAUTIL_REFUSE() _Pragma("GCC error \"beside <syslog.h> define ORVAUTIL_PREFIXED_LEVELS\"")
#define setlogmask(mask) ORVAUTIL_REFUSE() setlogmask(mask)
#endif

/* The keys of SetLogOption. */
enum {
    LOG_OPT_RUNMODE = 1, /* 0: plain lines; 1: lines carry the name of their thread */
};

#pragma GCC visibility push(default)

/*
 * Writes one line when its level is enabled:
 *
 *   [program:2024-03-05T14:07:09] Info [file function line]: message
 *
 * level is one of LOG_ERROR, LOG_WARNING, LOG_INFO and LOG_DEBUG. file is the caller's source name
 * without extension, function its function, line its source line. format and what follows are as
 * for printf; the message may have any length.
 *
 * In run mode 1 the name of the calling thread follows the time stamp in brackets of its own, which
 * are empty, "[]", for a thread without a name.
 *
 * Good to know:
 *  - A newline is added to every message, also to one that ends in a newline: such a message is
 *    followed by an empty line.
 *  - A level of several bits passes when any of them is enabled, and is named "Unknown". Only the
 *    low 8 bits can pass: levels 0 and 256 are never written, 257 is when errors are.
 *  - errno is the caller's: "%m" in format names the call that failed before this one, and errno
 *    is unchanged afterwards.
 *  - The time stamp is local time. Of a year with five digits it keeps the first four.
 */
void PrintLog(int level, const char* file, const char* function, int line, const char* format, ...)
    __attribute__((format(printf, 5, 6)));

#pragma GCC visibility pop

/*
 * Which levels are written. These functions, like all that follow, are the program's own: the tool
 * does not export its own, and liborvautil has them for the programs that are linked with it.
 */

#pragma GCC visibility push(default)

/*
 * Enables (on is 1) or disables (on is 0) the levels in bits.
 *
 * Returns 0, or -1 for any other value of on, which changes nothing.
 *
 * Good to know: the mask has 8 bits; higher bits are ignored.
 */
int SetLogLevel(unsigned int bits, int on);

/* Returns the mask of enabled levels. */
unsigned char GetLogLevel(void);

/*
 * Enables the levels whose letters stand anywhere in letters: E error, W warning, I info, D debug.
 *
 * Good to know: no level is ever disabled, and all other characters, lower-case letters included,
 * are ignored.
 */
void SetLogLevelByStr(const char* letters);

/* The names at the head of a line. */

/* Sets the program's name. Returns 0, also for NULL, which leaves the name as it was. */
int SetLogProgName(const char* name);

/*
 * Names the calling thread for the lines that it writes in run mode 1.
 *
 * Returns 1 if the thread has a name already, which it keeps; 0 if it got one now or if all five
 * places are taken. NULL takes no place.
 *
 * Good to know: once the five places are taken every thread gets 0, one that holds a place too. A
 * place is never given back: a new thread that gets the number of an ended one has its name.
 */
int RegisterLogThread(const char* name);

/*
 * Sets the option key to *value. The only key is LOG_OPT_RUNMODE, its values are 0 and 1; any
 * other key or value, or NULL, changes nothing.
 *
 * Returns 0.
 *
 * Good to know:
 *  - Setting the run mode prints "gRunMode:1" (or 0) to standard output, whatever the mask.
 *  - It also forgets all thread names, but not how many places were used: a thread that registers
 *    again takes the next place, and when five have been used no thread gets a name any more.
 */
int SetLogOption(int key, const int* value);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
