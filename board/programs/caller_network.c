/* Scenarios on the Ethernet address. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/select.h>

#include "board/programs/caller.h"
#include "util/timeutils.h"

enum { kBufferSize = 24, kUntouched = 0x55 };

typedef int (*Select)(int, fd_set*, fd_set*, fd_set*, struct timeval*);

/* What to do instead of sleeping: a command for each of the first pauses. */
static char** commands_in_pauses;
static int pauses;

/*
 * Stands in front of the C library's, for the tool too. While an address is set nothing sleeps:
 * five hundred pauses would take 50 seconds.
 */
int select(int count, fd_set* read, fd_set* write, fd_set* except, struct timeval* timeout) {
    if (commands_in_pauses == NULL) {
        return ((Select)dlsym(RTLD_NEXT, "select"))(count, read, write, except, timeout);
    }
    ++pauses;
    if (*commands_in_pauses != NULL) {
        const int kept_errno = errno;
        if (system(*commands_in_pauses++) != 0) {
            abort();
        }
        errno = kept_errno;
    }
    return 0;
}

/* SIZE FORM: prints the result, and in hexadecimal a buffer that was full of 55. */
static void RunGetMac(char** words) {
    unsigned char buffer[kBufferSize];
    memset(buffer, kUntouched, sizeof buffer);
    const int result = GetMac(buffer, atoi(words[0]), atoi(words[1]));
    printf("result %d ", result);
    for (int i = 0; i < kBufferSize; ++i) {
        printf("%02x", buffer[i]);
    }
    puts("");
}

/* INTERFACE ADDRESS COMMAND...: sets the address; a command runs in each pause. */
static void RunSetMac(char** words) {
    unsigned char mac[6];
    if (str2mac(words[1], mac) != 0) {
        abort();
    }
    commands_in_pauses = words + 2;
    errno = 0;
    const int result = set_mac_addr(words[0], mac);
    commands_in_pauses = NULL;
    printf("result %d, %d pauses\n", result, pauses);
}

const Scenario kNetworkScenarios[] = {
    {"GetMac", RunGetMac},
    {"set_mac_addr", RunSetMac},
    {NULL, NULL},
};
