/*
 * The least that a program like the tool can be: the calls that it makes for an unknown option, 90
 * exported functions, the same libraries. Its start to end is what the tool's is compared with.
 */
#include <stdio.h>
#include <unistd.h>

#include "platform/troption.h"

#define EXPORT(number)         \
    int Export##number(void);  \
    int Export##number(void) { \
        return number;         \
    }

/* clang-format off */
#define TEN_EXPORTS(tens) \
    EXPORT(tens##0) EXPORT(tens##1) EXPORT(tens##2) EXPORT(tens##3) EXPORT(tens##4) \
    EXPORT(tens##5) EXPORT(tens##6) EXPORT(tens##7) EXPORT(tens##8) EXPORT(tens##9)
/* clang-format on */

TEN_EXPORTS(1)
TEN_EXPORTS(2)
TEN_EXPORTS(3)
TEN_EXPORTS(4)
TEN_EXPORTS(5)
TEN_EXPORTS(6)
TEN_EXPORTS(7)
TEN_EXPORTS(8)
TEN_EXPORTS(9)

int main(int argc, char* argv[]) {
    (void)!freopen("/mnt/ramdisk/output.txt", "w", stdout);
    if (getopt(argc, argv, "d:") != -1) {
        puts("Usage: plain_tool [-d EIWD]");
        return 0;
    }
    return InitOption(); /* the option store is needed, as by the tool */
}
