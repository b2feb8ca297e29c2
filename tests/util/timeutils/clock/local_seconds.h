// The seconds count of a local time, by the C library.
#ifndef TESTS_UTIL_TIMEUTILS_CLOCK_LOCAL_SECONDS_H
#define TESTS_UTIL_TIMEUTILS_CLOCK_LOCAL_SECONDS_H

#include <ctime>

#include "tests/util/timeutils/date_records.h"

inline time_t LocalSeconds(const Date& date, const Clock& clock = {}) {
    struct tm rec = RecordOf(date, clock);
    rec.tm_isdst = -1;
    return mktime(&rec);
}

#endif
