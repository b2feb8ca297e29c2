// Peers that write and read whole times: fmt, the C library, from_chars.

#include <date/solar_hijri.h>
#include <fmt/chrono.h>
#include <fmt/compile.h>

#include <charconv>
#include <chrono>
#include <cstring>

#include "bench/cases/texts.h"
#include "bench/peers/row.h"
#include "bench/peers/rows.h"

namespace {

PEER int FmtChrono(char* dst, int size, const TTime* rec) {
    *fmt::format_to_n(dst, static_cast<size_t>(size) - 1, "{:%Y-%m-%dT%H:%M:%S}", *rec).out = '\0';
    return 1;
}

// With a size fmt compiles to something 20 times slower; so the text is cut afterwards.
PEER int FmtCompiled(char* dst, int size, const TTime* rec) {
    char text[80];
    const char* const end = fmt::format_to(text, FMT_COMPILE("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}"),
                                           rec->tm_year + kTmYearBase, rec->tm_mon + 1,
                                           rec->tm_mday, rec->tm_hour, rec->tm_min, rec->tm_sec);
    const size_t length = std::min(static_cast<size_t>(end - text), static_cast<size_t>(size) - 1);
    memcpy(dst, text, length);
    dst[length] = '\0';
    return 1;
}

PEER int Strftime(char* dst, int size, const TTime* rec) {
    strftime(dst, static_cast<size_t>(size), "%Y-%m-%dT%H:%M:%S", rec);
    return 1;
}

PEER int Snprintf(char* dst, int size, const TTime* rec) {
    snprintf(dst, static_cast<size_t>(size), "%04d-%02d-%02dT%02d:%02d:%02d",
             rec->tm_year + kTmYearBase, rec->tm_mon + 1, rec->tm_mday, rec->tm_hour, rec->tm_min,
             rec->tm_sec);
    return 1;
}

template <auto kWrite>
PEER int OfRecord(TTime rec, char* buf, int size, int /*text_type*/, int /*code*/) {
    return kWrite(buf, size, &rec);
}

PEER int ReadByStrptime(TTime* rec, const char* text) {
    strptime(text, "%Y-%m-%dT%H:%M:%S", rec);
    return 1;
}

int ReadNumber(const char* text, int width) {
    int number = 0;
    std::from_chars(text, text + width, number);
    return number;
}

PEER int ReadByFromChars(TTime* rec, const char* text) {
    using namespace std::chrono;
    const year_month_day date{year{ReadNumber(text, 4)},
                              month{static_cast<unsigned>(ReadNumber(text + 5, 2))},
                              day{static_cast<unsigned>(ReadNumber(text + 8, 2))}};
    rec->tm_year = static_cast<int>(date.year()) - kTmYearBase;
    rec->tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    rec->tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    rec->tm_hour = ReadNumber(text + 11, 2);
    rec->tm_min = ReadNumber(text + 14, 2);
    rec->tm_sec = ReadNumber(text + 17, 2);
    const sys_days days{date};
    rec->tm_yday = static_cast<int>((days - sys_days{date.year() / January / 1}).count());
    rec->tm_wday = static_cast<int>(weekday{days}.c_encoding());
    return 1;
}

// sscanf, whole numbers by the date headers, snprintf. The seconds come out as 00, as ours.
PEER int MoveByScanf(int /*calendar_mode*/, char* text, int size, int /*text_type*/, int /*code*/) {
    int fields[5];
    sscanf(text, "%4d-%2d-%2d%*c%2d:%2d", &fields[0], &fields[1], &fields[2], &fields[3],
           &fields[4]);
    const std::chrono::sys_days days{std::chrono::year_month_day{
        std::chrono::year{fields[0]}, std::chrono::month{static_cast<unsigned>(fields[1])},
        std::chrono::day{static_cast<unsigned>(fields[2])}}};
    const solar_hijri::year_month_day date{solar_hijri::sys_days{days}};
    snprintf(text, static_cast<size_t>(size), "%04d-%02u-%02uT%02d:%02d:00",
             static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
             static_cast<unsigned>(date.day()), fields[3], fields[4]);
    return 1;
}

}  // namespace

void AddTimeTextRows() {
    Row<WriteTime, TTimeToStrTime>()
        .Peer<FmtChrono>("fmt chrono")
        .Peer<FmtCompiled>("fmt, compiled, six numbers")
        .Peer<Strftime>("strftime")
        .Peer<Snprintf>("snprintf");
    Row<WriteRecord, TTimeToStr>()
        .Peer<OfRecord<FmtChrono>>("fmt chrono")
        .Peer<OfRecord<FmtCompiled>>("fmt, compiled, six numbers")
        .Peer<OfRecord<Strftime>>("strftime")
        .Peer<OfRecord<Snprintf>>("snprintf");
    Row<MoveText, ChrisToLocalTime>().Peer<MoveByScanf>("sscanf, date, snprintf");
    Row<ReadTime, StrTimeToTTime>()
        .Peer<ReadByFromChars>("from_chars, std::chrono")
        .Floor<ReadByStrptime>("strptime");
}
