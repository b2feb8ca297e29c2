// Dates in ten layouts.

#include <cstdint>
#include <cstring>
#include <iterator>

#include "util/digits.h"
#include "util/timeutils.h"

namespace {

// Where the fields stand in a text, for writing and reading it. Each has two characters, but for
// the year of the standard form, which has four.
struct DateLayout {
    int8_t year;
    int8_t month;
    int8_t day;
    char separator;
};

constexpr DateLayout kLayouts[] = {
    {0, 3, 6, '-'},  // 0  24-05-07
    {0, 3, 6, '/'},  // 1  24/05/07
    {0, 3, 6, '.'},  // 2  24.05.07
    {6, 0, 3, '-'},  // 3  05-07-24
    {6, 0, 3, '/'},  // 4  05/07/24
    {6, 0, 3, '.'},  // 5  05.07.24
    {6, 3, 0, '-'},  // 6  07-05-24
    {6, 3, 0, '/'},  // 7  07/05/24
    {6, 3, 0, '.'},  // 8  07.05.24
    {0, 5, 8, '-'},  // 9  2024-05-07
};
constexpr int kCodeBase = 10;  // only the last decimal digit of a code counts
static_assert(
    std::size(kLayouts) == kCodeBase,
    "The last digit of a code names its layout: ten layouts, and it cannot name another.");

constexpr int kStandardCode = 9;
constexpr int kFieldWidth = 2;
constexpr int kFieldStep = kFieldWidth + 1;  // with the separator
constexpr int kFields = 3;
constexpr int kLongYearWidth = 4;
constexpr int kDateLength = sizeof "2024-05-07" - 1;  // of the longest layout
constexpr int kCentury = 100;

constexpr int kLastPersian1400s = 16;    // greater two-digit years belong to the century before
constexpr int kLastGregorian2000s = 37;  // likewise

// The index of the code's layout. Negative codes put the year first, with '-' or '.'.
int LayoutIndex(int code) {
    const int index = code % kCodeBase;
    if (index >= 0) {
        return index;
    }
    return index % 3 == 0 ? 0 : 2;
}

// The full year for the two digits of a text.
int WidenYear(int year, int calendar_mode) {
    switch (calendar_mode) {
        case CALENDAR_PERSIAN:
            return year > kLastPersian1400s ? 1300 + year : 1400 + year;
        case CALENDAR_ISLAMIC:
            return 1400 + year;
        default:
            return year > kLastGregorian2000s ? 1900 + year : 2000 + year;
    }
}

}  // namespace

int FormatDate(char* dst, int code, int year, int month, int day) {
    if (dst == nullptr) {
        return 0;
    }
    const int index = LayoutIndex(code);
    const DateLayout& layout = kLayouts[index];
    const char separator = layout.separator;
    if (index == kStandardCode) {
        *WriteThree<kLongYearWidth>(dst, year, separator, month, day) = '\0';
        return 0;
    }
    int fields[kFields];
    fields[layout.year / kFieldStep] = year % kCentury;
    fields[layout.month / kFieldStep] = month;
    fields[layout.day / kFieldStep] = day;
    *WriteThree<kFieldWidth>(dst, fields[0], '-', fields[1], fields[2]) = '\0';
    dst[kFieldWidth] = separator;  // at these places also where a field before them is wider
    dst[kFieldStep + kFieldWidth] = separator;
    return 0;
}

int DeFormatDate(const char* text, int code, int calendar_mode, int* year, int* month, int* day) {
    const int index = LayoutIndex(code);
    const DateLayout& layout = kLayouts[index];
    const auto length = static_cast<int>(strnlen(text, kDateLength));
    const auto field = [&](int position) {
        return position < length ? ReadField<kFieldWidth>(text + position) : 0;
    };
    if (index == kStandardCode) {
        *year = ReadField<kLongYearWidth>(text);
    } else {
        *year = WidenYear(field(layout.year), calendar_mode);
    }
    *month = field(layout.month);
    *day = field(layout.day);
    return 1;
}

int FmtDateToStandardDate(char* buf, int size, int code, int calendar_mode) {
    if (buf == nullptr) {
        return 0;
    }
    int year;
    int month;
    int day;
    DeFormatDate(buf, code, calendar_mode, &year, &month, &day);
    char date[kThreeNumbersSize];
    const char separator = kLayouts[kStandardCode].separator;
    PutText(buf, size, date, WriteThree<kLongYearWidth>(date, year, separator, month, day));
    return 1;
}

int StandardDateToFmtDate(char* buf, int size, int code, int calendar_mode) {
    (void)size;  // callers pass it; the layouts have sizes of their own
    if (buf == nullptr) {
        return 0;
    }
    int year;
    int month;
    int day;
    DeFormatDate(buf, kStandardCode, calendar_mode, &year, &month, &day);
    FormatDate(buf, code, year, month, day);
    return 1;
}
