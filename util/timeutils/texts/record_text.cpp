// Records written and read as texts.

#include <cstdio>
#include <cstring>

#include "log/log_line.h"
#include "util/integers.h"
#include "util/timeutils.h"
#include "util/timeutils/records.h"
#include "util/trstrutils.h"

namespace {

constexpr const char* kLogTag = log_tag::kTimeutils;
constexpr char kTimePattern[] = "%02d:%02d:%02d";
constexpr int kClockSize = 16;
constexpr int kDateSize = 12;
constexpr int kTimeSize = 10;

struct ClockTime {
    int hour;
    int minute;
};

// Splits at 'T' or, without one, at a blank.
void ParseDateTime(const char* text, int code, int calendar_mode, CalendarDate& date,
                   ClockTime& clock) {
    char date_text[kDateSize] = {};
    // Without a time the splitter's zero lands at the date's length, which may exceed kTimeSize.
    char time_text[kDateSize] = {};
    const char separator = strchr(text, 'T') != nullptr ? 'T' : ' ';
    SplitKeyValueByChar(text, date_text, kDateSize, time_text, kTimeSize, separator);
    DeFormatDate(date_text, code, calendar_mode, &date.year, &date.month, &date.day);
    ParseTimeNoSec(time_text, &clock.hour, &clock.minute);
}

}  // namespace

int TTimeToStr(TTime rec, char* buf, int size, int text_type, int code) {
    if (buf == nullptr) {
        return 0;
    }
    const CalendarDate date = DateOf(rec);
    switch (text_type) {
        case TEXT_DATE:
            FormatDate(buf, code, date.year, date.month, date.day);
            break;
        case TEXT_TIME:
            snprintf(buf, BufferSize(size), kTimePattern, rec.tm_hour, rec.tm_min, rec.tm_sec);
            break;
        case TEXT_TIME_NO_SECOND:
            snprintf(buf, BufferSize(size), "%02d:%02d", rec.tm_hour, rec.tm_min);
            break;
        case TEXT_DATE_TIME:
            snprintf(buf, BufferSize(size), "%04d-%02d-%02dT%02d:%02d:%02d", date.year, date.month,
                     date.day, rec.tm_hour, rec.tm_min, rec.tm_sec);
            break;
        default:
            break;
    }
    return 0;
}

int ParseStrToTTime(const char* text, TTime* out, int text_type, int code, int calendar_mode) {
    if (text == nullptr || out == nullptr) {
        return -1;
    }
    CalendarDate date = {};
    ClockTime clock = {};
    if (text_type == TEXT_DATE) {
        DeFormatDate(text, code, calendar_mode, &date.year, &date.month, &date.day);
    } else if (text_type == TEXT_DATE_TIME) {
        ParseDateTime(text, code, calendar_mode, date, clock);
    }
    // tm_sec stays: no text gives it.
    SetDate(out, date);
    out->tm_hour = clock.hour;
    out->tm_min = clock.minute;
    return 0;
}

int TTimeToStrTime(char* dst, int size, const TTime* rec) {
    if (dst == nullptr || rec == nullptr) {
        LOG(LOG_WARNING, "pTimeBuf pTTime buf is NULL!");
        return 0;
    }
    char clock[kClockSize];
    snprintf(clock, sizeof clock, kTimePattern, rec->tm_hour, rec->tm_min, rec->tm_sec);
    const CalendarDate date = DateOf(*rec);
    snprintf(dst, BufferSize(size), "%04d-%02d-%02dT%s", date.year, date.month, date.day, clock);
    return 1;
}
