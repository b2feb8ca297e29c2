// Records written and read as texts.

#include <algorithm>
#include <cstring>

#include "log/log_line.h"
#include "util/digits.h"
#include "util/timeutils.h"
#include "util/timeutils/records.h"
#include "util/trstrutils.h"

namespace {

constexpr const char* kLogTag = log_tag::kTimeutils;
constexpr int kClockLength = 15;  // a longer clock part is cut
constexpr int kTextSize = 2 * kThreeNumbersSize + sizeof "T";
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

// 2024-05-07T
char* WriteDateAndT(char* out, const CalendarDate& date) {
    out = WriteThree<4>(out, date.year, '-', date.month, date.day);
    *out++ = 'T';
    return out;
}

// 08:09:10
char* WriteClock(char* out, const TTime& rec) {
    return WriteThree<2>(out, rec.tm_hour, ':', rec.tm_min, rec.tm_sec);
}

}  // namespace

int TTimeToStr(TTime rec, char* buf, int size, int text_type, int code) {
    if (buf == nullptr) {
        return 0;
    }
    const CalendarDate date = DateOf(rec);
    char text[kTextSize];
    switch (text_type) {
        case TEXT_DATE:
            FormatDate(buf, code, date.year, date.month, date.day);
            break;
        case TEXT_TIME:
            PutText(buf, size, text, WriteClock(text, rec));
            break;
        case TEXT_TIME_NO_SECOND:
            PutText(buf, size, text, WriteHourAndMinute(text, rec.tm_hour, rec.tm_min));
            break;
        case TEXT_DATE_TIME:
            PutText(buf, size, text, WriteClock(WriteDateAndT(text, date), rec));
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
    char text[kTextSize];
    char* const clock = WriteDateAndT(text, DateOf(*rec));
    PutText(dst, size, text, std::min(WriteClock(clock, *rec), clock + kClockLength));
    return 1;
}
