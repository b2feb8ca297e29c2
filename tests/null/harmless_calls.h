// What no call of the table may do to the machine. Link with WRAP ioctl settimeofday systemEx.
#ifndef TESTS_NULL_HARMLESS_CALLS_H
#define TESTS_NULL_HARMLESS_CALLS_H

#include <string>
#include <vector>

// The commands that were to be run and the settings of the clock, in their order.
const std::vector<std::string>& HarmlessCalls();

#endif
