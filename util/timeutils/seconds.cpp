// Seconds counts decoded, and as fixed texts.

#include <sys/sysinfo.h>

#include <cstring>

#include "util/bounds.h"
#include "util/timeutils.h"
#include "util/wrapping.h"

namespace {

constexpr char kDatePattern[] = "%Y-%m-%d";
constexpr char kTimePattern[] = "%H:%M";
constexpr char kDateTimePattern[] = "%Y-%m-%dT%H:%M:%S";

// A text in another form leaves fields unread; they are then 0.
TTime RecordOf(const char* text) {
    TTime rec = {};
    StrTimeToTTime(&rec, text);
    return rec;
}

int WriteLocalTime(char* buf, int size, const char* pattern, time_t t) {
    if (buf == nullptr) {
        return 0;
    }
    TTime rec;
    DecodeTime(&rec, t);
    memset(buf, 0, BufferSize(size));
    strftime(buf, BufferSize(size), pattern, &rec);
    return 1;
}

}  // namespace

TTime* DecodeTime(TTime* out, time_t t) {
    const time_t seconds = WrapToInt32(t);
    *out = *localtime(&seconds);
    return out;
}

int GetSysSecond(void) {
    struct sysinfo info = {};
    sysinfo(&info);
    return WrapToInt32(info.uptime);
}

int StrTimeToTm(struct tm* rec, const char* text) {
    if (text == nullptr) {
        return 0;
    }
    strptime(text, kDatePattern, rec);
    return 1;
}

int StrTimeToTTime(TTime* rec, const char* text) {
    if (rec == nullptr || text == nullptr) {
        return 0;
    }
    strptime(text, kDateTimePattern, rec);
    return 1;
}

time_t StrTimeToSec(const char* text) {
    if (text == nullptr || *text == '\0') {
        return 0;
    }
    TTime rec = RecordOf(text);
    return EncodeTime(&rec);
}

int OldStrTimeToSec(const char* text) {
    if (text == nullptr) {
        return 0;
    }
    const TTime rec = RecordOf(text);
    return OldEncodeTime(&rec);
}

int SecToHMTime(char* buf, int size, time_t t) {
    return WriteLocalTime(buf, size, kTimePattern, t);
}

int SecToYMDTime(char* buf, int size, time_t t) {
    return WriteLocalTime(buf, size, kDatePattern, t);
}
