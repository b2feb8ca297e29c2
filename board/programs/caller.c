/*
 * A library to be preloaded into the tool. It runs one scenario in the tool's process, where the
 * names of the exported functions are found in the executable, as the terminal's programs find
 * them.
 *
 *   LD_PRELOAD=.../libcaller.so orvatool -d EIWD -- SCENARIO WORD...
 *
 * The tool has enabled its log and named itself when it asks for its options. It then gets here
 * instead, and nothing else of it runs. A scenario prints to the tool's output, behind a line
 * "calling"; descriptors that it leaves open are counted in a line of their own.
 */
#include "board/programs/caller.h"

#include <dirent.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static const Scenario* const kTables[] = {kClockScenarios, kFileScenarios, kNetworkScenarios,
                                          kProcessScenarios};

static char** arguments;

/* glibc hands a constructor what it hands to main. */
__attribute__((constructor)) static void Start(int argc, char** argv) {
    (void)argc;
    arguments = argv;
    unsetenv("LD_PRELOAD"); /* the commands that are started here stay as they are */
}

static int CountDescriptors(void) {
    int count = 0;
    DIR* const folder = opendir("/proc/self/fd");
    if (folder == NULL) {
        perror("/proc/self/fd");
        exit(1);
    }
    while (readdir(folder) != NULL) {
        ++count;
    }
    closedir(folder);
    return count;
}

static const Scenario* FindScenario(const char* name) {
    for (size_t i = 0; i < sizeof kTables / sizeof *kTables; ++i) {
        for (const Scenario* scenario = kTables[i]; scenario->name != NULL; ++scenario) {
            if (strcmp(scenario->name, name) == 0) {
                return scenario;
            }
        }
    }
    fprintf(stderr, "caller: no scenario is named %s\n", name);
    exit(1);
}

/* The option store's function, which the tool calls once its log is ready. */
int InitOption(void);
int InitOption(void) {
    char** words = arguments;
    while (strcmp(*words, "--") != 0) {
        ++words;
    }
    const Scenario* const scenario = FindScenario(words[1]);
    puts("calling");
    fflush(stdout); /* what the commands of a call print goes behind it */
    const int before = CountDescriptors();
    scenario->run(words + 2);
    const int after = CountDescriptors();
    if (after != before) {
        printf("descriptors left open: %d\n", after - before);
    }
    exit(0);
}
