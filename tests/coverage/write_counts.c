/*
 * Leaves the counts of a process in the folder of profiles when it ends.
 *
 * The compiler's own way opens its file through the C library, where the tests' replaced functions
 * and the preloaded probe would see it. Here only the kernel does.
 */
#include <fcntl.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

int __llvm_profile_runtime; /* defined here, it keeps the compiler's own way out */

uint64_t __llvm_profile_get_size_for_buffer(void);
int __llvm_profile_write_buffer(char* buffer);

__attribute__((destructor)) static void WriteCounts(void) {
    const uint64_t size = __llvm_profile_get_size_for_buffer();
    char* counts = (char*)syscall(SYS_mmap, NULL, size, PROT_READ | PROT_WRITE,
                                  MAP_PRIVATE | MAP_ANONYMOUS, -1, 0L);
    struct timespec now;
    syscall(SYS_clock_gettime, CLOCK_MONOTONIC, &now);
    char path[1024]; /* of this process alone, also when its number is used again */
    snprintf(path, sizeof path, "%s/%ld-%ld-%ld.profraw", PROFILES, syscall(SYS_getpid),
             (long)now.tv_sec, now.tv_nsec);
    const long file = syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_EXCL, 0644);
    if (__llvm_profile_write_buffer(counts) != 0 ||
        syscall(SYS_write, file, counts, size) != (long)size) {
        abort();
    }
    syscall(SYS_close, file); /* the probe looks for what stayed open */
}

/* Children of the tests, and of the product's vfork, end without destructors. */
void _exit(int status) {
    WriteCounts();
    for (;;) {
        syscall(SYS_exit_group, status);
    }
}
