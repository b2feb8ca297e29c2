/*
 * A library to be preloaded into the tool. It shows the tool a terminal of the test's making and
 * writes down, in their order, the calls that reach it and the text that the tool prints.
 *
 * PROBE_ROOT       the files under /proc/partitions, /proc/scsi and /proc/bus are looked for here
 * PROBE_TRACE      the file that the trace goes to, unless its descriptor is open already
 * PROBE_MOUNT      results of mount, as in "-1,0"; the last one repeats
 * PROBE_UMOUNT     results of umount
 * PROBE_ERRNO      errno after each shell command; unset: as before the command
 *
 * The trace has a line for each call. What the tool printed since the last one stands before it,
 * each line behind "out "; "out-" leads a line that had not ended. Nothing here changes errno.
 * The stack below main is full of dirt, and gets dirty again with each call that is traced,
 * unless the trace was open already.
 */
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include "tests/process/probe.h"
#include "tests/support/dirty_stack.h"

enum {
    kPathSize = 1024,
    kTraceFd = 100,       /* out of the way of the tool's own */
    kLowDescriptors = 64, /* those that are looked at for leaks */
    kStart = 1709644029,  /* 2024-03-05 13:07:09 UTC */
    kTickStep = 250,      /* ms from one reading of the clock to the next */
};

static int start_descriptors[kLowDescriptors];
static int is_limited; /* by a test whose limits leave no room to open the trace, nor for dirt */

/* The next definition of a function, which is the C library's. */
#define REAL(function) ((__typeof__(&(function)))dlsym(RTLD_NEXT, #function))

void WriteTrace(const char* text, size_t size) {
    if (write(kTraceFd, text, size) != (ssize_t)size) {
        abort();
    }
}

static void DirtyWideStack(void) {
    if (!is_limited) {
        DirtyStack();
    }
}

static int IsOpen(int descriptor) {
    return fcntl(descriptor, F_GETFD) != -1;
}

static void Trace(const char* format, ...) __attribute__((format(printf, 1, 2)));
static void Trace(const char* format, ...) {
    const int kept_errno = errno;
    TraceOutput();
    char line[2 * kPathSize];
    va_list values;
    va_start(values, format);
    const int length = vsnprintf(line, sizeof line - 1, format, values);
    va_end(values);
    line[length] = '\n';
    WriteTrace(line, (size_t)length + 1);
    DirtyWideStack();
    errno = kept_errno;
}

static void TraceNewDescriptors(void) {
    const int kept_errno = errno;
    for (int descriptor = 0; descriptor < kLowDescriptors; ++descriptor) {
        if (IsOpen(descriptor) && !start_descriptors[descriptor]) {
            Trace("open descriptor %d", descriptor);
        }
    }
    errno = kept_errno;
}

static void OpenTrace(void) {
    is_limited = fcntl(kTraceFd, F_SETFD, FD_CLOEXEC) != -1;
    if (is_limited) {
        return;
    }
    const int file = open(getenv("PROBE_TRACE"), O_WRONLY | O_APPEND | O_CREAT, 0644);
    if (file < 0 || dup3(file, kTraceFd, O_CLOEXEC) < 0) {
        perror("probe: opening the trace");
        abort();
    }
    close(file);
}

__attribute__((constructor)) static void Start(void) {
    OpenTrace();
    for (int descriptor = 0; descriptor < kLowDescriptors; ++descriptor) {
        start_descriptors[descriptor] = IsOpen(descriptor);
    }
    PrepareOutput();
    unsetenv("LD_PRELOAD"); /* the commands that the tool starts are not watched */
    CountAllocations();
}

typedef int MainFunction(int, char**, char**);
static MainFunction* tools_main;

static int MainInDirt(int argc, char** argv, char** environment) {
    DirtyWideStack();
    return tools_main(argc, argv, environment);
}

/* Called by the program's entry. */
int __libc_start_main(MainFunction* main, int argc, char** argv, void (*init)(void),
                      void (*fini)(void), void (*loader_fini)(void), void* stack_end) {
    tools_main = main;
    return REAL(__libc_start_main)(MainInDirt, argc, argv, init, fini, loader_fini, stack_end);
}

__attribute__((destructor)) static void End(void) {
    TraceNewDescriptors();
    Trace("exit");
}

/* Where the tool really finds path. */
static const char* Redirected(const char* path, char* buffer) {
    if (strncmp(path, "/proc/", 6) != 0) {
        return path;
    }
    snprintf(buffer, kPathSize, "%s%s", getenv("PROBE_ROOT"), path);
    return buffer;
}

/* The next of the results in the variable, -1 with errno EINVAL. */
static int NextResult(const char* variable, int* position) {
    const char* results = getenv(variable);
    const int result = atoi(results + *position);
    const char* comma = strchr(results + *position, ',');
    if (comma != NULL) {
        *position = (int)(comma - results) + 1;
    }
    if (result == -1) {
        errno = EINVAL;
    }
    return result;
}

/* Streams and folders. */

FILE* freopen(const char* path, const char* mode, FILE* stream) {
    Trace("freopen %s %s %s", path, mode, stream == stdout ? "stdout" : "another stream");
    return REAL(freopen)(path, mode, stream);
}

FILE* fopen(const char* path, const char* mode) {
    char buffer[kPathSize];
    if (strncmp(path, "/proc/", 6) == 0) {
        Trace("fopen %s %s", path, mode);
    }
    return REAL(fopen)(Redirected(path, buffer), mode);
}

DIR* opendir(const char* path) {
    char buffer[kPathSize];
    Trace("opendir %s", path);
    return REAL(opendir)(Redirected(path, buffer));
}

int scandir(const char* path, struct dirent*** entries, int (*filter)(const struct dirent*),
            int (*compare)(const struct dirent**, const struct dirent**)) {
    char buffer[kPathSize];
    Trace("scandir %s", path);
    return REAL(scandir)(Redirected(path, buffer), entries, filter, compare);
}

int access(const char* path, int mode) {
    Trace("access [%s] %d", path, mode);
    return REAL(access)(path, mode);
}

int mkdir(const char* path, mode_t mode) {
    Trace("mkdir [%s] %04o", path, (unsigned int)mode);
    return REAL(mkdir)(path, mode);
}

/* Mounting: nothing is really mounted. */

int mount(const char* source, const char* target, const char* type, unsigned long flags,
          const void* data) {
    static int position;
    Trace("mount %s %s %s %lu %s", source, target, type, flags, data == NULL ? "none" : "data");
    return NextResult("PROBE_MOUNT", &position);
}

int umount(const char* target) {
    static int position;
    Trace("umount %s", target);
    return NextResult("PROBE_UMOUNT", &position);
}

int umount2(const char* target, int flags) {
    Trace("umount2 %s %d", target, flags);
    return -1;
}

void sync(void) {
    Trace("sync");
}

/* Commands: they are really run. */

int system(const char* command) {
    const int kept_errno = errno;
    const char* number = getenv("PROBE_ERRNO");
    Trace("system %s", command);
    TraceNewDescriptors();
    const int result = REAL(system)(command);
    errno = number != NULL ? atoi(number) : kept_errno;
    return result;
}

/* The option store. */

int InitOption(void) {
    Trace("InitOption");
    return ((int (*)(void))dlsym(RTLD_NEXT, "InitOption"))();
}

int LoadOptionStr(const char* key, char* value, int size) {
    int used = 0;
    for (int i = 0; i < size; ++i) {
        used |= value[i];
    }
    Trace("LoadOptionStr %s %s %d", key, used ? "a used buffer" : "zeroes", size);
    return ((int (*)(const char*, char*, int))dlsym(RTLD_NEXT, "LoadOptionStr"))(key, value, size);
}

/* The clock: each reading in milliseconds is a step later. */

time_t time(time_t* out) {
    if (out != NULL) {
        *out = kStart;
    }
    return kStart;
}

int gettimeofday(struct timeval* now, void* zone) {
    static int steps;
    (void)zone;
    now->tv_sec = kStart + steps * kTickStep / 1000;
    now->tv_usec = steps * kTickStep % 1000 * 1000;
    ++steps;
    return 0;
}
