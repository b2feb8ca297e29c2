// A second implementation of the date and time texts, as naive as possible. Buffers go in and come
// out as all their bytes; the text in them ends at the first terminator.
#ifndef TESTS_UTIL_TIMEUTILS_TEXTS_NAIVE_TEXTS_H
#define TESTS_UTIL_TIMEUTILS_TEXTS_NAIVE_TEXTS_H

#include <cstdint>
#include <string>
#include <vector>

#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

namespace naive {

// The number at the start of text, as a C library whose long has 32 bits reads it.
int Number(const std::string& text);

// value with zeros in front, up to width characters, the sign included.
std::string Padded(int64_t value, size_t width);

// bytes with the first size - 1 characters of text and a terminator at the start.
std::string Put(std::string bytes, int size, const std::string& text);

std::string DateText(int code, const Date& date);
Date ReadDate(const std::string& text, int code, int calendar_mode);

std::string FmtDateToStandardDate(const std::string& bytes, int size, int code, int calendar_mode);
std::string StandardDateToFmtDate(const std::string& bytes, int code);

struct HourText {
    int result;
    std::string bytes;
    std::string logged;
};
HourText ConvertHourText(std::string bytes, int size, bool to24);

// What a splitter leaves of text and of the callers' numbers.
struct Split {
    std::string bytes;
    std::vector<int> numbers;
};
Split SplitNumbers(const std::string& text, char separator, std::vector<int> numbers);

std::string CompileDate(std::string text);

std::string TimeStamp(const TTime& rec);  // the text of TTimeToStrTime
std::string TTimeToStr(const TTime& rec, const std::string& bytes, int size, int text_type,
                       int code);
TTime ParseStrToTTime(const std::string& text, TTime rec, int text_type, int code,
                      int calendar_mode);

}  // namespace naive

#endif
