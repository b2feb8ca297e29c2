// The old packed time: every month has 31 days and every year 372, on purpose.

#include "util/timeutils.h"
#include "util/wrapping.h"

namespace {

constexpr int kSecondsPerMinute = 60;
constexpr int kMinutesPerHour = 60;
constexpr int kHoursPerDay = 24;
constexpr int kSecondsPerHour = kMinutesPerHour * kSecondsPerMinute;
constexpr int kSecondsPerDay = kHoursPerDay * kSecondsPerHour;
constexpr int kDaysPerMonth = 31;
constexpr int kMonthsPerYear = 12;
constexpr int kDaysPerYear = kMonthsPerYear * kDaysPerMonth;
constexpr int kFirstTmYear = 100;                                // 2000
constexpr uint32_t kFirstDay = kFirstTmYear * kDaysPerYear + 1;  // 2000-01-01 gives 0

}  // namespace

int OldEncodeTime(const TTime* rec) {
    // Unsigned: late dates, and fields of any size, wrap.
    const auto field = [](int value) { return static_cast<uint32_t>(value); };
    const uint32_t days = field(rec->tm_year) * kDaysPerYear + field(rec->tm_mon) * kDaysPerMonth +
                          field(rec->tm_mday) - kFirstDay;
    const uint32_t minutes = field(rec->tm_hour) * kMinutesPerHour + field(rec->tm_min);
    return WrapToInt32(days * kSecondsPerDay + minutes * kSecondsPerMinute + field(rec->tm_sec));
}

TTime* OldDecodeTime(int packed_time, TTime* out) {
    const int days = packed_time / kSecondsPerDay;
    out->tm_sec = packed_time % kSecondsPerMinute;
    out->tm_min = packed_time / kSecondsPerMinute % kMinutesPerHour;
    out->tm_hour = packed_time / kSecondsPerHour % kHoursPerDay;
    out->tm_mday = days % kDaysPerMonth + 1;
    out->tm_mon = days / kDaysPerMonth % kMonthsPerYear;
    out->tm_year = days / kDaysPerYear + kFirstTmYear;
    return out;
}
