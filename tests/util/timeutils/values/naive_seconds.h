// Seconds counts and records in 64 bits, where no sum wraps, and the old packed time once more.
#ifndef TESTS_UTIL_TIMEUTILS_VALUES_NAIVE_SECONDS_H
#define TESTS_UTIL_TIMEUTILS_VALUES_NAIVE_SECONDS_H

#include <cstdint>
#include <ctime>
#include <string>

#include "tests/util/timeutils/date_records.h"

namespace naive {

// The days from 1970-01-01 to a date of the Gregorian calendar of any year. Months and days out of
// range count on.
int64_t DaysSince1970(int64_t year, int64_t month, int64_t day);

// The seconds that the six fields of a record name, whatever their size.
int64_t SecondsSince1970(const struct tm& rec);

// The nine fields for a count of seconds in a zone that is so many seconds ahead of UTC.
struct tm RecordAt(int64_t seconds, int zone_seconds = 0);

// What mktime_1 returns: the exact count with the zone added and, in summer time, the bias taken
// off, or -1 before the year 1970, and where a count leaves 0 to INT_MAX on the way. Two sums are
// let through: one below 0 by a zone of INT_MIN, and one that wraps by a bias below 0.
int64_t CountOrRefuse(const struct tm& rec, int zone = 0, int bias = 0);

int OldEncodeTime(const struct tm& rec);
struct tm OldDecodeTime(int packed_time, struct tm rec);

// Reads the fields that a pattern of %Y %m %d %H %M %S and other characters names, as far as the
// text matches. After a whole match weekday and day of the year are set too.
struct tm ReadByPattern(const std::string& text, const std::string& pattern, struct tm rec);

}  // namespace naive

#endif
