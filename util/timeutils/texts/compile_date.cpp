// The date of a build as eight digits.

#include <cstdio>
#include <cstring>
#include <iterator>

#include "log/log_line.h"
#include "util/integers.h"
#include "util/timeutils.h"

namespace {

constexpr const char* kLogTag = log_tag::kTimeutils;
constexpr int kTextSize = 40;
constexpr size_t kNameLength = 3;
constexpr const char* kMonthNames[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
static_assert(std::size(kMonthNames) == 12);

// [1, 12], or 0 for an unknown name.
int MonthOf(const char* word) {
    for (size_t i = 0; i < std::size(kMonthNames); ++i) {
        if (strncmp(word, kMonthNames[i], kNameLength) == 0) {
            return static_cast<int>(i) + 1;
        }
    }
    return 0;
}

}  // namespace

int ConvertCompileDate(const char* text, char* dst, int size) {
    if (text == nullptr || dst == nullptr) {
        return 0;
    }
    char date[kTextSize] = {};
    strncpy(date, text, sizeof date - 1);
    char word[kTextSize] = {};  // as long as the text, although names have three letters
    long day_number = 0;
    long year_number = 0;
    // What is missing stays 0.
    (void)sscanf(date, "%s %ld %ld", word, &day_number, &year_number);
    const int month = MonthOf(word);
    const int day = SaturateToInt(day_number);
    const int year = SaturateToInt(year_number);
    LOG(LOG_INFO, "%04d%02d%02d\n", year, month, day);
    snprintf(dst, BufferSize(size), "%04d%02d%02d", year, month, day);
    return 1;
}
