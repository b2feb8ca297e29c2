// All 2^32 seconds counts: a clock and a calendar that go on by one second are the witness.

#include <climits>
#include <ctime>

#include "tests/sweep/sweep.h"
#include "tests/util/timeutils/calendars/naive_walk.h"
#include "tests/util/timeutils/date_records.h"
#include "tests/util/timeutils/values/naive_seconds.h"
#include "util/timeutils/values.h"

namespace sweep {
namespace {

constexpr int kUnits = 1 << 16;
constexpr int kUnitSeconds = 1 << 16;

void GoToNextDay(struct tm& rec) {
    const Date date = naive::NextDay(DateIn(rec), naive::GregorianMonthDays);
    rec.tm_yday = date.year == rec.tm_year + 1900 ? rec.tm_yday + 1 : 0;
    rec.tm_wday = rec.tm_wday == 6 ? 0 : rec.tm_wday + 1;
    rec.tm_year = date.year - 1900;
    rec.tm_mon = date.month - 1;
    rec.tm_mday = date.day;
}

void GoToNextSecond(struct tm& rec) {
    if (++rec.tm_sec < 60) {
        return;
    }
    rec.tm_sec = 0;
    if (++rec.tm_min < 60) {
        return;
    }
    rec.tm_min = 0;
    if (++rec.tm_hour < 24) {
        return;
    }
    rec.tm_hour = 0;
    GoToNextDay(rec);
}

// Counts before 1970 are refused, and leave weekday and day of the year alone.
bool Encodes(const struct tm& walked, int64_t seconds) {
    struct tm rec = walked;
    struct tm expected = walked;
    expected.tm_isdst = -1;
    if (seconds < 0) {
        rec.tm_wday = expected.tm_wday = kMark;
        rec.tm_yday = expected.tm_yday = kMark;
    }
    return EncodeTime(&rec) == (seconds < 0 ? -1 : seconds) && FieldsOf(rec) == FieldsOf(expected);
}

bool Decodes(const struct tm& walked, int64_t seconds) {
    struct tm rec;
    DecodeTime(&rec, static_cast<time_t>(seconds));
    return FieldsOf(rec) == FieldsOf(walked);
}

void Check(int unit, Checks& checks) {
    const int64_t first = INT_MIN + int64_t{unit} * kUnitSeconds;
    const int64_t end = first + kUnitSeconds;
    struct tm walked = naive::RecordAt(first);
    for (int64_t seconds = first; seconds < end && !checks.failed(); ++seconds) {
        const auto describe = [seconds] { return "seconds count " + std::to_string(seconds); };
        checks.Expect(Encodes(walked, seconds), describe);
        checks.Expect(Decodes(walked, seconds), describe);
        GoToNextSecond(walked);
    }
    checks.Expect(checks.failed() || FieldsOf(walked) == FieldsOf(naive::RecordAt(end)),
                  [end] { return "the walk up to " + std::to_string(end); });
}

}  // namespace

Sweep Seconds() {
    return {"seconds", "every seconds count encoded and decoded", kUnits, Check};
}

}  // namespace sweep
