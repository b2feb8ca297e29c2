/*
 * Calls the functions inside the tool's process: docs/in_process.md tells how it is built and run.
 *
 * Preloaded into the tool, this library is asked to start it. It starts CallFunctions instead of
 * the tool's main; what is called there are the functions of the executable, and the data objects
 * are the executable's too.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <orvautil/timeutils.h>
#include <orvautil/trstrutils.h>

typedef int Main(int argc, char** argv, char** environment);
typedef int StartMain(Main* main, int argc, char** argv, void (*init)(void), void (*fini)(void),
                      void (*loader_fini)(void), void* stack_end);

static int CallFunctions(int argc, char** argv, char** environment) {
    TTime start;
    (void)argc, (void)argv, (void)environment;
    unsetenv("LD_PRELOAD"); /* commands that are started from here are not tools */
    memset(&start, 0, sizeof start);
    start.tm_year = 70;
    start.tm_mday = 1;
    printf("process: %s\n", program_invocation_short_name);
    printf("days of February 2024: %d\n", GetMaxDaysOfGregoMonth(2024, 2));
    _timezone = 3600; /* the executable's own, which its functions read */
    printf("first second of 1970, an hour west: %ld\n", (long)mktime_1(&start));
    printf("ff in hexadecimal: %d\n", str2Hex('f', 'f'));
    return 0;
}

/* Stands in front of the C library's, which the executable's entry calls. */
int __libc_start_main(Main* main, int argc, char** argv, void (*init)(void), void (*fini)(void),
                      void (*loader_fini)(void), void* stack_end);
int __libc_start_main(Main* main, int argc, char** argv, void (*init)(void), void (*fini)(void),
                      void (*loader_fini)(void), void* stack_end) {
    StartMain* const start = (StartMain*)dlsym(RTLD_NEXT, "__libc_start_main");
    (void)main; /* the tool's own: call it where the tool shall do its work too */
    return start(CallFunctions, argc, argv, init, fini, loader_fini, stack_end);
}
