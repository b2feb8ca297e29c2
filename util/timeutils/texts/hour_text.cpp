// Clock texts between the 12-hour and the 24-hour form.

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "log/log_line.h"
#include "util/digits.h"
#include "util/timeutils.h"

namespace {

constexpr const char* kLogTag = log_tag::kTimeutils;
constexpr int kTextSize = 64;
constexpr int kHourWidth = 2;
constexpr int kNoon = 12;

bool IsEmpty(const char* buf) {
    return buf == nullptr || *buf == '\0';
}

// Appends length characters as far as text has room for them and a terminator. Returns the end.
char* Append(char (&text)[kTextSize], char* end, const char* characters, ptrdiff_t length) {
    return std::copy_n(characters, std::min(length, text + kTextSize - 1 - end), end);
}

// Writes buf's 24-hour form to text and cuts the marker off in buf. Returns the end of text, or
// nullptr when there is no marker.
char* To24Hours(char* buf, int size, char (&text)[kTextSize]) {
    const char* const am = strrchr(buf, 'A');
    const char* const marker = am != nullptr ? am : strrchr(buf, 'P');
    if (marker == nullptr) {
        return nullptr;
    }
    const ptrdiff_t length = std::max<ptrdiff_t>(marker - buf - 1, 0);  // less the blank
    const auto hour_width = static_cast<int>(std::min<ptrdiff_t>(length, kHourWidth));
    int hour =
        hour_width == kHourWidth ? ReadField<kHourWidth>(buf) : ReadOddField(buf, hour_width);
    if (am != nullptr) {
        hour = hour == kNoon ? 0 : hour;
    } else {
        hour = hour < kNoon ? hour + kNoon : hour;
    }
    char* const end = WriteNumber<kHourWidth>(text, hour);
    char* const text_end = Append(text, end, buf + hour_width, length - hour_width);
    *text_end = '\0';
    // The cut is made in place, also where it lies beyond size; without a size nothing is written.
    if (size > 0) {
        buf[length] = '\0';
    }
    return text_end;
}

// Writes buf's 12-hour form to text. Returns its end, or nullptr when buf has a marker already.
char* To12Hours(const char* buf, char (&text)[kTextSize]) {
    if (strpbrk(buf, "AP") != nullptr) {
        return nullptr;
    }
    const int hour = ReadField<kHourWidth>(buf);
    const char* const after_hour = buf + strnlen(buf, kHourWidth);
    const char* const marker = hour < kNoon ? " AM" : " PM";
    char* end = WriteNumber<kHourWidth>(text, hour % kNoon != 0 ? hour % kNoon : kNoon);
    end = Append(text, end, after_hour, static_cast<ptrdiff_t>(strlen(after_hour)));
    end = Append(text, end, marker, sizeof " AM" - 1);
    *end = '\0';
    return end;
}

}  // namespace

int HourTimeFormatToCurMode(char* buf, int size, int to24) {
    if (IsEmpty(buf)) {
        return -1;
    }
    char text[kTextSize];
    const char* const end = to24 != 0 ? To24Hours(buf, size, text) : To12Hours(buf, text);
    if (end == nullptr) {
        return 0;
    }
    PutText(buf, size, text, end);
    LOG(LOG_INFO, "Hour time format to current mode: %s", text);
    return 1;
}

int HourTimeFormatTo24Mode(char* buf, int size) {
    if (IsEmpty(buf)) {
        return -1;
    }
    char text[kTextSize];
    const char* const end = To24Hours(buf, size, text);
    if (end == nullptr) {
        return 0;
    }
    PutText(buf, size, text, end);
    LOG(LOG_INFO, "Hour time format to 24 mode: %s", text);
    return 1;
}
