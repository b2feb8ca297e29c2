// What mktime_1 makes of a record, against what is expected of it.
#ifndef TESTS_UTIL_TIMEUTILS_VALUES_MKTIME_CHECKS_H
#define TESTS_UTIL_TIMEUTILS_VALUES_MKTIME_CHECKS_H

#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>

#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

// In a zone and with a bias, the record becomes `normal`; the weekday counts where it is whole.
inline void ExpectCounted(const struct tm& given, int zone, int bias, int64_t count,
                          const struct tm& normal, bool weekday_is_whole) {
    _timezone = zone;
    _dstbias = bias;
    struct tm rec = given;
    const time_t seconds = mktime_1(&rec);
    _timezone = 0;
    _dstbias = 0;
    ASSERT_EQ(seconds, count) << testing::PrintToString(FieldsOf(given)) << ' ' << zone << ' '
                              << bias;
    if (!weekday_is_whole) {
        rec.tm_wday = normal.tm_wday;
    }
    ASSERT_EQ(FieldsOf(rec), FieldsOf(normal)) << testing::PrintToString(FieldsOf(given));
}

#endif
