// Clock texts between the 12-hour and the 24-hour form.

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "log/log_line.h"
#include "util/integers.h"
#include "util/timeutils.h"
#include "util/timeutils/texts/fields.h"

namespace {

constexpr const char* kLogTag = log_tag::kTimeutils;
constexpr int kTextSize = 64;
constexpr int kHourWidth = 2;
constexpr int kNoon = 12;

bool IsEmpty(const char* buf) {
    return buf == nullptr || *buf == '\0';
}

// Writes buf's 24-hour form to text and cuts the marker off in buf. False when there is no marker.
bool To24Hours(char* buf, int size, char (&text)[kTextSize]) {
    const char* const am = strrchr(buf, 'A');
    const char* const marker = am != nullptr ? am : strrchr(buf, 'P');
    if (marker == nullptr) {
        return false;
    }
    const int length = std::max(static_cast<int>(marker - buf) - 1, 0);  // less the blank
    const int hour_width = std::min(length, kHourWidth);
    int hour = ReadField(buf, 0, hour_width);
    if (am != nullptr) {
        hour = hour == kNoon ? 0 : hour;
    } else {
        hour = hour < kNoon ? hour + kNoon : hour;
    }
    snprintf(text, sizeof text, "%02d%.*s", hour, length - hour_width, buf + hour_width);
    // The cut is made in place, also where it lies beyond size; without a size nothing is written.
    if (size > 0) {
        buf[length] = '\0';
    }
    return true;
}

// Writes buf's 12-hour form to text. False when buf has a marker already.
bool To12Hours(const char* buf, char (&text)[kTextSize]) {
    if (strpbrk(buf, "AP") != nullptr) {
        return false;
    }
    const int hour = ReadField(buf, 0, kHourWidth);
    const int shown = hour % kNoon != 0 ? hour % kNoon : kNoon;
    const char* const after_hour = buf + strnlen(buf, kHourWidth);
    snprintf(text, sizeof text, "%02d%s %s", shown, after_hour, hour < kNoon ? "AM" : "PM");
    return true;
}

}  // namespace

int HourTimeFormatToCurMode(char* buf, int size, int to24) {
    if (IsEmpty(buf)) {
        return -1;
    }
    char text[kTextSize];
    if (!(to24 != 0 ? To24Hours(buf, size, text) : To12Hours(buf, text))) {
        return 0;
    }
    snprintf(buf, BufferSize(size), "%s", text);
    LOG(LOG_INFO, "Hour time format to current mode: %s", text);
    return 1;
}

int HourTimeFormatTo24Mode(char* buf, int size) {
    if (IsEmpty(buf)) {
        return -1;
    }
    char text[kTextSize];
    if (!To24Hours(buf, size, text)) {
        return 0;
    }
    snprintf(buf, BufferSize(size), "%s", text);
    LOG(LOG_INFO, "Hour time format to 24 mode: %s", text);
    return 1;
}
