// A date moved by a converter of records.
#ifndef TESTS_UTIL_TIMEUTILS_CALENDARS_CONVERTED_DATE_H
#define TESTS_UTIL_TIMEUTILS_CALENDARS_CONVERTED_DATE_H

#include <gtest/gtest.h>

#include "tests/util/timeutils/date_records.h"

// The date that a converter of records makes of another. It must change nothing else.
inline Date Converted(struct tm* (*convert)(struct tm*), const Date& date) {
    struct tm rec = MarkedRecord(date);
    EXPECT_EQ(convert(&rec), &rec);
    const Date result = DateIn(rec);
    EXPECT_TRUE(SameBytes(rec, MarkedRecord(result))) << date;
    return result;
}

#endif
