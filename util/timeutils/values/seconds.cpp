// Seconds counts decoded, and records read from and written as fixed texts.

#include <cstring>

#include "util/integers.h"
#include "util/timeutils.h"

namespace {

constexpr char kDatePattern[] = "%Y-%m-%d";
constexpr char kTimePattern[] = "%H:%M";
constexpr char kDateTimePattern[] = "%Y-%m-%dT%H:%M:%S";

// A text in another form leaves fields unread; they are then 0.
TTime RecordOf(const char* text) {
    TTime rec = {};
    (void)StrTimeToTTime(&rec, text);  // whatever could be read counts
    return rec;
}

int WriteLocalTime(char* buf, int size, const char* pattern, time_t seconds) {
    if (buf == nullptr) {
        return 0;
    }
    TTime rec;
    DecodeTime(&rec, seconds);
    memset(buf, 0, BufferSize(size));
    // What does not fit leaves the bytes undefined.
    if (strftime(buf, BufferSize(size), pattern, &rec) == 0 && size > 0) {
        buf[size - 1] = '\0';
    }
    return 1;
}

}  // namespace

TTime* DecodeTime(TTime* out, time_t seconds) {
    if (out == nullptr) {
        return out;
    }
    const time_t low_seconds = WrapToInt32(seconds);  // 32 bits, also where time_t has 64
    *out = *localtime(&low_seconds);
    return out;
}

int StrTimeToTm(struct tm* rec, const char* text) {
    if (text == nullptr) {
        return 0;
    }
    (void)strptime(text, kDatePattern, rec);  // what does not match keeps its value
    return 1;
}

int StrTimeToTTime(TTime* rec, const char* text) {
    if (rec == nullptr || text == nullptr) {
        return 0;
    }
    (void)strptime(text, kDateTimePattern, rec);  // what does not match keeps its value
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

int SecToHMTime(char* buf, int size, time_t seconds) {
    return WriteLocalTime(buf, size, kTimePattern, seconds);
}

int SecToYMDTime(char* buf, int size, time_t seconds) {
    return WriteLocalTime(buf, size, kDatePattern, seconds);
}
