// What the parts of timeutils share about the broken-down record.
#ifndef UTIL_TIMEUTILS_RECORDS_H
#define UTIL_TIMEUTILS_RECORDS_H

#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils.h"

// A date of any calendar, with the full year.
struct CalendarDate {
    int year;
    int month;  // from 1; not checked
    int day;    // from 1; not checked
};

inline CalendarDate DateOf(const TTime& rec) {
    return {WrapToInt32(int64_t{rec.tm_year} + kTmYearBase), WrapToInt32(int64_t{rec.tm_mon} + 1),
            rec.tm_mday};
}

// Writes the three date fields and leaves all others.
inline void SetDate(TTime* rec, const CalendarDate& date) {
    rec->tm_year = WrapToInt32(int64_t{date.year} - kTmYearBase);
    rec->tm_mon = WrapToInt32(int64_t{date.month} - 1);
    rec->tm_mday = date.day;
}

#endif
