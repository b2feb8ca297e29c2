/*
 * Calls functions on pins, flash and boot logo, which are not exported, and prints their results.
 *
 *   board_splash_calls WORD...
 *
 * Each word is a function's name with its arguments behind '=' and ',', as in GpioPinCmd1=7,1.
 * Bytes are in hexadecimal, then their count, as in GpioPutBytes=010203040506,6.
 *
 * Two more words tell what a call left behind: CountDescriptors, and IsLoaded=LIBRARY.
 *
 * Prints a line "name result" for each call, behind what the call itself printed.
 */
#include "splash/splash.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { kMaxBytes = 16, kHexadecimal = 16, kMaxDescriptors = 64 };

/* What stands behind the first ',' of the arguments, as a number. */
static unsigned int Second(const char* arguments) {
    const char* const comma = strchr(arguments, ',');
    return comma != NULL ? (unsigned int)strtoul(comma + 1, NULL, 0) : 0;
}

static int PutBytes(const char* hex) {
    unsigned char bytes[kMaxBytes] = {0};
    for (int i = 0; i < kMaxBytes && hex[2 * i] != ','; ++i) {
        const char digits[] = {hex[2 * i], hex[2 * i + 1], '\0'};
        bytes[i] = (unsigned char)strtoul(digits, NULL, kHexadecimal);
    }
    return GpioPutBytes(bytes, Second(hex));
}

static int CountDescriptors(void) {
    int count = 0;
    for (int descriptor = 0; descriptor < kMaxDescriptors; ++descriptor) {
        count += fcntl(descriptor, F_GETFD) != -1;
    }
    return count;
}

static int IsLoaded(const char* library) {
    return dlopen(library, RTLD_NOW | RTLD_NOLOAD) != NULL;
}

/* -100, which no function returns, for a name that is unknown. */
static int Call(const char* name, const char* arguments) {
    if (strcmp(name, "OpenGpioNand") == 0) {
        return OpenGpioNand();
    }
    if (strcmp(name, "CloseGpioNand") == 0) {
        return CloseGpioNand();
    }
    if (strcmp(name, "GpioReadPin") == 0) {
        return GpioReadPin(atoi(arguments));
    }
    if (strcmp(name, "GpioPinCmd1") == 0) {
        return GpioPinCmd1(atoi(arguments), (int)Second(arguments));
    }
    if (strcmp(name, "GpioPinCmd3") == 0) {
        return GpioPinCmd3(atoi(arguments), (int)Second(arguments));
    }
    if (strcmp(name, "GpioPutBytes") == 0) {
        return PutBytes(arguments);
    }
    if (strcmp(name, "NandSetRote") == 0) {
        return NandSetRote(arguments);
    }
    if (strcmp(name, "UpdateSplashLogo") == 0) {
        return UpdateSplashLogo((unsigned int)strtoul(arguments, NULL, 0), Second(arguments));
    }
    if (strcmp(name, "CountDescriptors") == 0) {
        return CountDescriptors();
    }
    if (strcmp(name, "IsLoaded") == 0) {
        return IsLoaded(arguments);
    }
    return -100;
}

int main(int argc, char* argv[]) {
    for (int i = 1; i < argc; ++i) {
        char* const equals = strchr(argv[i], '=');
        if (equals != NULL) {
            *equals = '\0';
        }
        const int result = Call(argv[i], equals != NULL ? equals + 1 : "");
        printf("%s %d\n", argv[i], result);
    }
    return 0;
}
