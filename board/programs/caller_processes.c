/* Scenarios on shell commands and on the descriptors of a new process. */
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include "board/programs/caller.h"
#include "util/fileutils.h"

enum { kManyDescriptors = 100 };

static void RunSystem(char** words) {
    printf("result %d\n", systemEx(words[0]));
}

static pid_t Fork(void) {
    fflush(stdout);
    const pid_t child = fork();
    if (child < 0) {
        abort();
    }
    return child;
}

static void PrintEndOf(pid_t child) {
    int status = -1;
    waitpid(child, &status, 0);
    printf("status %d\n", status);
}

/* FOLDER COMMAND: the command, where the folder is all that there is. */
static void RunSystemInside(char** words) {
    const pid_t child = Fork();
    if (child == 0) {
        if (chroot(words[0]) != 0 || chdir("/") != 0) {
            _exit(1);
        }
        printf("result %d\n", systemEx(words[1]));
        fflush(stdout);
        _exit(0);
    }
    PrintEndOf(child);
}

/*
 * FILE COMMAND: closes all in a child and opens FILE there, which gets the result and the number
 * of its own descriptor, then starts the command.
 */
static void RunCloseInChild(char** words) {
    const pid_t child = Fork();
    if (child == 0) {
        for (int i = 0; i < kManyDescriptors; ++i) {
            (void)open("/dev/null", O_RDONLY);
        }
        const int result = CloseChildProcFd(getpid());
        const int file = open(words[0], O_WRONLY | O_CREAT, 0644);
        dprintf(file, "result %d, next %d\n", result, file);
        execl("/bin/sh", "sh", "-c", words[1], (char*)NULL);
        _exit(1);
    }
    PrintEndOf(child);
}

/* PID */
static void RunClose(char** words) {
    printf("result %d\n", CloseChildProcFd(atoi(words[0])));
}

const Scenario kProcessScenarios[] = {
    {"systemEx", RunSystem},
    {"systemExInside", RunSystemInside},
    {"CloseInChild", RunCloseInChild},
    {"CloseChildProcFd", RunClose},
    {NULL, NULL},
};
