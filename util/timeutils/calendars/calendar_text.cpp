// Date and time texts moved between the calendars.

#include "util/timeutils.h"

namespace {

// Reads a text, lets move change its date, and writes it back.
void RewriteText(char* text, int size, int text_type, int code, int parse_mode,
                 TTime* (*move)(int, TTime*), int calendar_mode) {
    TTime rec = {};
    ParseStrToTTime(text, &rec, text_type, code, parse_mode);
    move(calendar_mode, &rec);
    TTimeToStr(rec, text, size, text_type, code);
}

}  // namespace

int LocalTimeToChris(int calendar_mode, char* text, int size, int text_type, int code) {
    if (text == nullptr) {
        return -1;
    }
    if (calendar_mode == CALENDAR_GREGORIAN) {
        return 1;
    }
    RewriteText(text, size, text_type, code, calendar_mode, LocalTmToChrisTm, calendar_mode);
    return 0;
}

int ChrisToLocalTime(int calendar_mode, char* text, int size, int text_type, int code) {
    if (text == nullptr) {
        return -1;
    }
    if (calendar_mode != CALENDAR_GREGORIAN) {
        RewriteText(text, size, text_type, code, CALENDAR_GREGORIAN, ChrisTmToLocalTm,
                    calendar_mode);
    }
    return 1;
}
