// The old packed time: every month has 31 days and every year 372, on purpose.

#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils.h"

namespace {

constexpr int kDaysPerMonth = 31;
constexpr int kDaysPerYear = kMonthsPerYear * kDaysPerMonth;
constexpr int kFirstTmYear = 2000 - kTmYearBase;
constexpr int kFirstDay = kFirstTmYear * kDaysPerYear + 1;  // 2000-01-01 gives 0

}  // namespace

int OldEncodeTime(const TTime* rec) {
    if (rec == nullptr) {
        return 0;
    }
    // Late dates, and fields of any size, wrap.
    const int64_t days = int64_t{rec->tm_year} * kDaysPerYear +
                         int64_t{rec->tm_mon} * kDaysPerMonth + rec->tm_mday - kFirstDay;
    const int64_t minutes = int64_t{rec->tm_hour} * kMinutesPerHour + rec->tm_min;
    return WrapToInt32(days * kSecondsPerDay + minutes * kSecondsPerMinute + rec->tm_sec);
}

TTime* OldDecodeTime(int packed_time, TTime* out) {
    if (out == nullptr) {
        return out;
    }
    const int days = packed_time / kSecondsPerDay;
    out->tm_sec = packed_time % kSecondsPerMinute;
    out->tm_min = packed_time / kSecondsPerMinute % kMinutesPerHour;
    out->tm_hour = packed_time / kSecondsPerHour % kHoursPerDay;
    out->tm_mday = days % kDaysPerMonth + 1;
    out->tm_mon = days / kDaysPerMonth % kMonthsPerYear;
    out->tm_year = days / kDaysPerYear + kFirstTmYear;
    return out;
}
