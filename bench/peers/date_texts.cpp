// Peers that write and read dates and clock times.

#include <fmt/compile.h>

#include <charconv>
#include <cstring>

#include "bench/cases/texts.h"
#include "bench/peers/row.h"
#include "bench/peers/rows.h"

namespace {

constexpr int kStandardCode = 9;

PEER int Strftime(char* dst, int code, int year, int month, int day) {
    constexpr const char* kPatterns[] = {"%y-%m-%d", "%y/%m/%d", "%y.%m.%d", "%m-%d-%y",
                                         "%m/%d/%y", "%m.%d.%y", "%d-%m-%y", "%d/%m/%y",
                                         "%d.%m.%y", "%Y-%m-%d"};
    TTime rec = {};
    rec.tm_year = year - kTmYearBase;
    rec.tm_mon = month - 1;
    rec.tm_mday = day;
    strftime(dst, sizeof "2024-05-07", kPatterns[code], &rec);
    return 0;
}

PEER int FmtCompiled(char* dst, int code, int year, int month, int day) {
    const char separator = "-/."[code % 3];
    const auto write = [&](int first, int second, int third) {
        *fmt::format_to(dst, FMT_COMPILE("{:02}{}{:02}{}{:02}"), first, separator, second,
                        separator, third) = '\0';
    };
    if (code == kStandardCode) {
        *fmt::format_to(dst, FMT_COMPILE("{:04}-{:02}-{:02}"), year, month, day) = '\0';
    } else if (code < 3) {
        write(year % 100, month, day);
    } else if (code < 6) {
        write(month, day, year % 100);
    } else {
        write(day, month, year % 100);
    }
    return 0;
}

PEER int ReadByFromChars(const char* text, int code, int /*calendar_mode*/, int* year, int* month,
                         int* day) {
    const auto read = [text](int position, int width, int* number) {
        *number = 0;
        std::from_chars(text + position, text + position + width, *number);
    };
    if (code == kStandardCode) {
        read(0, 4, year);
        read(5, 2, month);
        read(8, 2, day);
        return 1;
    }
    read(code < 3 ? 0 : 6, 2, year);
    read(code < 3 ? 3 : code < 6 ? 0 : 3, 2, month);
    read(code < 3 ? 6 : code < 6 ? 3 : 0, 2, day);
    *year += *year > 37 ? 1900 : 2000;
    return 1;
}

PEER int HourByStrptime(char* buf, int size, int to24) {
    TTime rec;
    strptime(buf, to24 != 0 ? "%I:%M %p" : "%H:%M", &rec);
    strftime(buf, static_cast<size_t>(size), to24 != 0 ? "%H:%M" : "%I:%M %p", &rec);
    return 1;
}

PEER void SplitByFromChars(char* text, int* year, int* month, int* day) {
    const char* const end = text + strlen(text);
    const char* at = text;
    for (int* const number : {year, month, day}) {
        at = std::from_chars(at, end, *number).ptr + 1;
    }
}

PEER void SplitByStrtol(char* text, int* year, int* month, int* day) {
    *year = static_cast<int>(strtol(text, &text, 10));
    *month = static_cast<int>(strtol(text + 1, &text, 10));
    *day = static_cast<int>(strtol(text + 1, &text, 10));
}

PEER int ClockByFromChars(const char* text, int* out, int count) {
    const char* const end = text + strlen(text);
    for (int i = 0; i < count && text < end; ++i) {
        text = std::from_chars(text, end, out[i]).ptr + 1;
    }
    return 0;
}

PEER int ClockBySscanf(const char* text, int* out, int /*count*/) {
    sscanf(text, "%d:%d", &out[0], &out[1]);
    return 0;
}

}  // namespace

void AddDateTextRows() {
    Row<WriteDate, FormatDate>()
        .Peer<Strftime>("strftime")
        .Peer<FmtCompiled>("fmt, compiled, three numbers");
    Row<ReadDate, DeFormatDate>().Peer<ReadByFromChars>("from_chars");
    Row<HourTexts, HourTimeFormatToCurMode>().Peer<HourByStrptime>("strptime, strftime");
    Row<SplitDate, ParseDate>().Peer<SplitByFromChars>("from_chars").Peer<SplitByStrtol>("strtol");
    Row<SplitClock, TimeTimeToInt>()
        .Peer<ClockByFromChars>("from_chars")
        .Peer<ClockBySscanf>("sscanf");
}
