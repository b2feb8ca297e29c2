// The naive texts of records.

#include <climits>
#include <utility>

#include "tests/util/timeutils/texts/naive_texts.h"

namespace {

std::string ClockText(const TTime& rec) {
    return naive::Padded(rec.tm_hour, 2) + ":" + naive::Padded(rec.tm_min, 2) + ":" +
           naive::Padded(rec.tm_sec, 2);
}

// What stands before and after the first 'T' or, without one, the first blank.
std::pair<std::string, std::string> DateAndTime(const std::string& text) {
    const size_t t = text.find('T');
    const size_t end = t != std::string::npos ? t : text.find(' ');
    if (end == std::string::npos) {
        return {text.substr(0, 11), ""};
    }
    return {text.substr(0, end).substr(0, 11), text.substr(end + 1).substr(0, 9)};
}

}  // namespace

namespace naive {

std::string TimeStamp(const TTime& rec) {
    return DateText(9, DateIn(rec)) + "T" + ClockText(rec).substr(0, 15);
}

std::string TTimeToStr(const TTime& rec, const std::string& bytes, int size, int text_type,
                       int code) {
    switch (text_type) {
        case 1:
            return Put(bytes, INT_MAX, DateText(code, DateIn(rec)));
        case 2:
            return Put(bytes, size, ClockText(rec));
        case 3:
            return Put(bytes, size, Padded(rec.tm_hour, 2) + ":" + Padded(rec.tm_min, 2));
        case 4:
            return Put(bytes, size, DateText(9, DateIn(rec)) + "T" + ClockText(rec));
        default:
            return bytes;
    }
}

TTime ParseStrToTTime(const std::string& text, TTime rec, int text_type, int code,
                      int calendar_mode) {
    Date date = {};
    std::vector<int> clock = {0, 0};
    if (text_type == 1) {
        date = ReadDate(text, code, calendar_mode);
    }
    if (text_type == 4) {
        const auto& [date_text, time_text] = DateAndTime(text);
        date = ReadDate(date_text, code, calendar_mode);
        clock = SplitNumbers(time_text, ':', clock).numbers;
    }
    rec.tm_year = Cut(int64_t{date.year} - 1900);
    rec.tm_mon = Cut(int64_t{date.month} - 1);
    rec.tm_mday = date.day;
    rec.tm_hour = clock[0];
    rec.tm_min = clock[1];
    return rec;
}

}  // namespace naive
