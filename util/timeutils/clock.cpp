// Reading the clock as texts and records, and setting it.

#include <sys/time.h>

#include <cerrno>
#include <cstring>

#include "log/log_line.h"
#include "util/bounds.h"
#include "util/fileutils.h"
#include "util/timeutils.h"
#include "util/timeutils/log_tag.h"
#include "util/timeutils/records.h"

namespace {

constexpr int kNoDateCode = 9;  // for texts that hold no date

TTime LocalNow() {
    const time_t now = time(nullptr);
    return *localtime(&now);
}

// Newer C libraries refuse a time and a zone in one call. The time is then set alone: the zone that
// they report is not the kernel's, and writing it back would lose that one.
void SetClock(int seconds) {
    struct timeval now = {};
    struct timezone zone = {};
    (void)gettimeofday(&now, &zone);  // without a zone, none is set
    now.tv_sec = seconds;
    now.tv_usec = 0;
    if (settimeofday(&now, &zone) != 0 && errno == EINVAL) {
        (void)settimeofday(&now, nullptr);  // without the right to set it the clock stays
    }
}

}  // namespace

int GetCurDateTime(char* dst, int size, int text_type, int code) {
    if (dst == nullptr) {
        return -1;
    }
    memset(dst, 0, BufferSize(size));
    TTime now = LocalNow();
    if (!IsShownYear(now)) {
        now.tm_year = kTmYear2000;
    }
    return TTimeToStr(now, dst, size, text_type, code);
}

int GetCurDate(char* dst, int size, int code) {
    return GetCurDateTime(dst, size, TEXT_DATE, code);
}

int GetCurTime(char* dst, int size) {
    return GetCurDateTime(dst, size, TEXT_TIME, kNoDateCode);
}

int GetCurTimeNoSec(char* dst, int size) {
    return GetCurDateTime(dst, size, TEXT_TIME_NO_SECOND, kNoDateCode);
}

void GetClockDT(TClockDT* out) {
    const TTime now = LocalNow();
    const auto field = [](int value) { return static_cast<unsigned short>(value); };
    out->year = field(now.tm_year + kTmYearBase);
    out->month = field(now.tm_mon + 1);
    out->day = field(now.tm_mday);
    out->hour = field(now.tm_hour);
    out->minute = field(now.tm_min);
    out->second = field(now.tm_sec);
    out->day_of_week = field(now.tm_wday);
    out->day_of_year = field(now.tm_yday + 1);
}

void GetTime(TTime* out) {
    *out = LocalNow();
}

int SyncSysTime(TTime* rec) {
    LOG(LOG_DEBUG, "set time test by qhm begin");
    (void)systemEx("date");  // prints the old time; a failure does no harm
    const auto seconds = static_cast<int>(EncodeTime(rec));
    SetClock(WrappingAdd(seconds, 1));  // a second ahead, on purpose
    (void)systemEx("date");
    LOG(LOG_DEBUG, "set time test by qhm end");
    return 1;
}
