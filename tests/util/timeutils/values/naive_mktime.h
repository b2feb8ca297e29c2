// mktime_1 once more, as it is defined: one month after the other, whatever time that takes.
#ifndef TESTS_UTIL_TIMEUTILS_VALUES_NAIVE_MKTIME_H
#define TESTS_UTIL_TIMEUTILS_VALUES_NAIVE_MKTIME_H

#include <ctime>

namespace naive {

// Reads the exported zone globals, as mktime_1 does.
time_t mktime_1(struct tm* rec);

}  // namespace naive

#endif
