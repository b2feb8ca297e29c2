/* The parts of the caller: a program of the terminal that lives in the tool's process. */
#ifndef BOARD_PROGRAMS_CALLER_H
#define BOARD_PROGRAMS_CALLER_H

/* A sequence of calls that the tests run by its name. words are what follows the name. */
typedef struct Scenario {
    const char* name;
    void (*run)(char** words);
} Scenario;

/* The scenarios by topic; each table ends with a null name. */
extern const Scenario kClockScenarios[];
extern const Scenario kFileScenarios[];
extern const Scenario kNetworkScenarios[];
extern const Scenario kProcessScenarios[];

#endif
