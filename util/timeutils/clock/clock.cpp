// Reading the clock as texts, records and counts, sleeping, and setting it.

#include <sys/select.h>
#include <sys/sysinfo.h>
#include <sys/time.h>

#include <cerrno>
#include <cstring>

#include "log/log_line.h"
#include "util/fileutils.h"
#include "util/integers.h"
#include "util/time_units.h"
#include "util/timeutils.h"
#include "util/timeutils/records.h"

namespace {

constexpr const char* kLogTag = log_tag::kTimeutils;
constexpr int kNoDateCode = 9;  // for texts that hold no date
constexpr int kTmYear2000 = 2000 - kTmYearBase;
constexpr int kTmYear2037 = 2037 - kTmYearBase;

TTime LocalNow() {
    const time_t now = time(nullptr);
    return *localtime(&now);
}

// The years that clock texts and GetLocalTime leave as they are.
bool IsShownYear(const TTime& rec) {
    return rec.tm_year >= kTmYear2000 && rec.tm_year <= kTmYear2037;
}

// The whole seconds since start by the wall clock, in ms. Jumps with the clock.
uint32_t ElapsedMs(time_t start) {
    return kMsPerSecond * (static_cast<uint32_t>(time(nullptr)) - static_cast<uint32_t>(start));
}

// 0 when the time has run out.
int WaitMs(uint32_t ms) {
    struct timeval timeout;
    timeout.tv_sec = static_cast<time_t>(ms / kMsPerSecond);
    timeout.tv_usec = static_cast<suseconds_t>(ms % kMsPerSecond * kUsPerMs);
    return select(0, nullptr, nullptr, nullptr, &timeout);
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
    if (out == nullptr) {
        return;
    }
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
    if (out != nullptr) {
        *out = LocalNow();
    }
}

int GetLocalTime(int calendar_mode, TTime* out) {
    if (out == nullptr) {
        return 0;
    }
    const time_t now = time(nullptr);
    // The shared record itself: callers that hold its address read the converted date there.
    TTime* const shared = localtime(&now);
    if (!IsShownYear(*shared)) {
        shared->tm_year = 2000;  // not 100: kept exactly so
    }
    ChrisTmToLocalTm(calendar_mode, shared);
    return 1;
}

int TrGetTickCount(void) {
    struct timeval now;
    (void)gettimeofday(&now, nullptr);  // cannot fail with these arguments
    const auto seconds = static_cast<uint32_t>(now.tv_sec);
    const auto ms = static_cast<uint32_t>(now.tv_usec) / kUsPerMs;
    return WrapToInt32(seconds * kMsPerSecond + ms);
}

int GetSysSecond(void) {
    struct sysinfo info = {};
    (void)sysinfo(&info);  // without an answer it stays 0
    return WrapToInt32(info.uptime);
}

void Trmmsleep(unsigned int ms) {
    const time_t start = time(nullptr);
    uint32_t elapsed_ms = 0;  // in the first pass
    while (elapsed_ms <= ms) {
        const int result = WaitMs(ms - elapsed_ms);
        if (result == 0) {
            return;
        }
        if (result == -1) {
            LOG(LOG_DEBUG, "select ret is : %d, errno : %d", result, errno);
        }
        elapsed_ms = ElapsedMs(start);
    }
}

int SyncSysTime(TTime* rec) {
    if (rec == nullptr) {
        return 1;  // the clock must not become 1970
    }
    LOG(LOG_DEBUG, "set time test by qhm begin");
    (void)systemEx("date");  // prints the old time; a failure does no harm
    const auto seconds = static_cast<int>(EncodeTime(rec));
    SetClock(WrapToInt32(int64_t{seconds} + 1));  // a second ahead, on purpose
    (void)systemEx("date");
    LOG(LOG_DEBUG, "set time test by qhm end");
    return 1;
}
