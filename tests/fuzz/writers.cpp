// FormatDate, TTimeToStr, TTimeToStrTime and IntTimeToStrTime: what printf writes.

#include <climits>

#include "tests/fuzz/input.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

namespace {

constexpr int kLongest = 80;  // bytes; no text is longer

// What is written into a buffer of exactly size bytes. Sizes beyond kLongest get that many.
template <typename Write>
std::string Written(int size, const Write& write) {
    const std::string buffer = BufferOf(std::min(size, kLongest));
    const auto block = BlockOf(buffer);
    write(block.get());
    return BytesOf(block, buffer.size());
}

// The text that snprintf makes, cut to size.
template <typename... Numbers>
std::string Printed(int size, const char* format, Numbers... numbers) {
    const size_t room = size > 0 ? static_cast<size_t>(size) : 0;
    return Written(size, [&](char* out) {
        if (room > 0) {
            snprintf(out, std::min(room, size_t{kLongest}), format, numbers...);
        }
    });
}

// The bytes in front of the terminator.
std::string TextOf(const std::string& bytes) {
    return bytes.substr(0, bytes.find('\0'));
}

std::string DateText(int code, const Date& date) {
    const int layout = code % 10;
    if (layout == 9) {
        return TextOf(Printed(kLongest, "%04d-%02d-%02d", date.year, date.month, date.day));
    }
    const int year = date.year % 100;
    const bool is_month_first = layout >= 3 && layout <= 5;
    const bool is_day_first = layout >= 6;
    const int first = is_month_first ? date.month : is_day_first ? date.day : year;
    const int second = is_month_first ? date.day : date.month;
    const int third = is_month_first || is_day_first ? year : date.day;
    std::string text = TextOf(Printed(kLongest, "%02d-%02d-%02d", first, second, third));
    text[2] = text[5] = layout % 3 == 0 ? '-' : layout % 3 == 1 ? '/' : '.';
    return text;
}

// The buffer is exactly as long as the text: the size does not count.
void CheckFormatDate(int code, const Date& date) {
    const std::string expected = DateText(code, date) + '\0';
    Require(Written(static_cast<int>(expected.size()),
                    [&](char* out) {
                        Require(FormatDate(out, code, date.year, date.month, date.day) == 0,
                                "FormatDate returns 0");
                    }) == expected,
            "FormatDate as printf");
}

void CheckTTimeToStr(const TTime& rec, int type, int size, int code) {
    const Date date = DateIn(rec);
    std::string expected = BufferOf(std::min(size, kLongest));
    int room = size;
    if (type == 1) {
        expected = DateText(code, date) + '\0';
        room = static_cast<int>(expected.size());
    } else if (type == 2) {
        expected = Printed(size, "%02d:%02d:%02d", rec.tm_hour, rec.tm_min, rec.tm_sec);
    } else if (type == 3) {
        expected = Printed(size, "%02d:%02d", rec.tm_hour, rec.tm_min);
    } else if (type == 4) {
        expected = Printed(size, "%04d-%02d-%02dT%02d:%02d:%02d", date.year, date.month, date.day,
                           rec.tm_hour, rec.tm_min, rec.tm_sec);
    }
    Require(Written(room,
                    [&](char* out) {
                        Require(TTimeToStr(rec, out, size, type, code) == 0,
                                "TTimeToStr returns 0");
                    }) == expected,
            "TTimeToStr as printf");
}

// The clock part is cut to 15 characters first.
void CheckTTimeToStrTime(const TTime& rec, int size) {
    const Date date = DateIn(rec);
    const std::string clock =
        TextOf(Printed(16, "%02d:%02d:%02d", rec.tm_hour, rec.tm_min, rec.tm_sec));
    Require(Written(size,
                    [&](char* out) {
                        Require(TTimeToStrTime(out, size, &rec) == 1, "TTimeToStrTime returns 1");
                    }) ==
                Printed(size, "%04d-%02d-%02dT%s", date.year, date.month, date.day, clock.c_str()),
            "TTimeToStrTime as printf");
}

void CheckIntTimeToStrTime(int hhmm, int size) {
    const bool fits = size > 5;
    Require(Written(size,
                    [&](char* out) {
                        Require(IntTimeToStrTime(out, size, hhmm) == (fits ? 0 : -1),
                                "the result of IntTimeToStrTime");
                    }) == (fits ? Printed(size, "%02d:%02d", hhmm / 100, hhmm % 100)
                                : BufferOf(std::min(size, kLongest))),
            "IntTimeToStrTime as printf");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const int type = input.Between(-1, 6);
    const int code = input.Int();
    const int buffer_size = input.Int();
    TTime rec = MarkedRecord({});
    rec.tm_year = input.Int();
    rec.tm_mon = input.Int();
    rec.tm_mday = input.Int();
    rec.tm_hour = input.Int();
    rec.tm_min = input.Int();
    rec.tm_sec = input.Int();
    CheckFormatDate(code, {rec.tm_year, rec.tm_mon, rec.tm_mday});
    CheckTTimeToStr(rec, type, buffer_size, code);
    CheckTTimeToStrTime(rec, buffer_size);
    CheckIntTimeToStrTime(input.Int(), buffer_size);
    return 0;
}
