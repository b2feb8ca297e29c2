// Every date of 400 years written in every layout and read back.

#include <cstdio>
#include <cstring>
#include <sstream>

#include "tests/sweep/sweep.h"
#include "tests/util/timeutils/calendars/naive_walk.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils/texts.h"

namespace sweep {
namespace {

constexpr int kFirstYear = 1800;
constexpr int kYears = 400;
constexpr int kRoom = 16;
constexpr int kStandard = 9;

// The first of the hundred years that two digits stand for, by calendar mode.
constexpr int kFirstOfTwoDigits[] = {1938, 1317, 1400};

// The layouts as formats of printf.
struct Layout {
    const char* format;
    char order[4];  // which of Year, Month, Day comes first, second and third
};
constexpr Layout kLayouts[] = {
    {"%02d-%02d-%02d", "YMD"}, {"%02d/%02d/%02d", "YMD"}, {"%02d.%02d.%02d", "YMD"},
    {"%02d-%02d-%02d", "MDY"}, {"%02d/%02d/%02d", "MDY"}, {"%02d.%02d.%02d", "MDY"},
    {"%02d-%02d-%02d", "DMY"}, {"%02d/%02d/%02d", "DMY"}, {"%02d.%02d.%02d", "DMY"},
    {"%04d-%02d-%02d", "YMD"},
};

std::string Written(int code, const Date& date) {
    const Layout& layout = kLayouts[code];
    int fields[3];
    for (int i = 0; i < 3; ++i) {
        const char field = layout.order[i];
        fields[i] = field == 'M'        ? date.month
                    : field == 'D'      ? date.day
                    : code == kStandard ? date.year
                                        : date.year % 100;
    }
    char text[3 * 12];
    snprintf(text, sizeof text, layout.format, fields[0], fields[1], fields[2]);
    return text;
}

// The year that a text gives back: of two digits, the one among a hundred that ends so.
int ReadYear(int code, int mode, int year) {
    if (code == kStandard) {
        return year;
    }
    const int first = kFirstOfTwoDigits[mode];
    return first + ((year - first) % 100 + 100) % 100;
}

bool Writes(int code, const Date& date, const std::string& expected) {
    char text[kRoom] = {};
    char standard[kRoom] = {};
    FormatDate(text, code, date.year, date.month, date.day);
    strcpy(standard, Written(kStandard, date).c_str());
    StandardDateToFmtDate(standard, kRoom, code, 0);
    return text == expected && standard == expected;
}

bool Reads(int code, int mode, const std::string& text, const Date& expected) {
    Date date = {};
    DeFormatDate(text.c_str(), code, mode, &date.year, &date.month, &date.day);
    char standard[kRoom] = {};
    strcpy(standard, text.c_str());
    FmtDateToStandardDate(standard, kRoom, code, mode);
    return date == expected && standard == Written(kStandard, expected);
}

void CheckDate(const Date& date, Checks& checks) {
    for (int code = 0; code <= kStandard; ++code) {
        const auto describe = [&] {
            std::ostringstream text;
            text << "layout " << code << ", " << date;
            return text.str();
        };
        const std::string text = Written(code, date);
        checks.Expect(Writes(code, date, text), describe);
        for (int mode = 0; mode <= 2; ++mode) {
            const Date read = {ReadYear(code, mode, date.year), date.month, date.day};
            checks.Expect(Reads(code, mode, text, read), describe);
        }
    }
}

void Check(int unit, Checks& checks) {
    const int year = kFirstYear + unit;
    for (Date date = {year, 1, 1}; date.year == year && !checks.failed();
         date = naive::NextDay(date, naive::GregorianMonthDays)) {
        CheckDate(date, checks);
    }
}

}  // namespace

Sweep Dates() {
    return {"dates", "every date of 400 years in every layout, written and read", kYears, Check};
}

}  // namespace sweep
