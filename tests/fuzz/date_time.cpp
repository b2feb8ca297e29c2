// StrTimeToSec, OldStrTimeToSec, StrTimeToTTime and StrTimeToTm.

#include <climits>
#include <vector>

#include "tests/fuzz/input.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

namespace {

constexpr int kYears = 10'000;  // a text has at most four digits for one
constexpr int kMonths = 12;

// The days from 1970-01-01 to the first of each month of the years from 0 on, counted one by one.
class Days {
public:
    Days() {
        int day = 0;
        for (int year = 0; year < kYears; ++year) {
            for (const int length : {31, February(year), 31, 30, 31, 30, 31, 31, 30, 31, 30, 31}) {
                month_starts_.push_back(day);
                for (int i = 0; i < length; ++i) {
                    ++day;
                }
            }
        }
        const int epoch = MonthStart(1970, 0);
        for (int& start : month_starts_) {
            start -= epoch;
        }
    }

    int MonthStart(int year, int month) const {
        return month_starts_[static_cast<size_t>(year * kMonths + month)];
    }

private:
    static int February(int year) {
        const bool is_century = year % 100 == 0;
        return year % (is_century ? 400 : 4) == 0 ? 29 : 28;
    }

    std::vector<int> month_starts_;
};

const Days kDays;

struct Field {
    int TTime::*member;
    int least, most;
    size_t digits;
    int offset;      // what the member has less
    char separator;  // after it
};

constexpr Field kFields[] = {
    {&TTime::tm_year, 0, 9999, 4, 1900, '-'}, {&TTime::tm_mon, 1, 12, 2, 1, '-'},
    {&TTime::tm_mday, 1, 31, 2, 0, 'T'},      {&TTime::tm_hour, 0, 23, 2, 0, ':'},
    {&TTime::tm_min, 0, 59, 2, 0, ':'},       {&TTime::tm_sec, 0, 61, 2, 0, '\0'},
};
constexpr size_t kDateFields = 3;

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

int DayOf(const TTime& rec) {
    return kDays.MonthStart(rec.tm_year + 1900, rec.tm_mon) + rec.tm_mday - 1;
}

// Reads the first count fields, up to the first that does not match. White space may stand before
// each. A digit after which none can make a number in range ends it.
TTime Read(const std::string& text, size_t count, TTime rec) {
    size_t at = 0;
    for (size_t i = 0; i < count; ++i) {
        const Field& field = kFields[i];
        at = std::min(text.find_first_not_of(" \t\n\v\f\r", at), text.size());
        const size_t start = at;
        int value = 0;
        while (at < text.size() && IsDigit(text[at]) && at - start < field.digits &&
               value * 10 <= field.most) {
            value = value * 10 + (text[at++] - '0');
        }
        if (at == start || value < field.least || value > field.most) {
            return rec;
        }
        rec.*field.member = value - field.offset;
        if (i + 1 < count && (at == text.size() || text[at++] != field.separator)) {
            return rec;
        }
    }
    const int day = DayOf(rec);
    rec.tm_wday = (day % 7 + 7 + 4) % 7;  // 1970-01-01 was a Thursday
    rec.tm_yday = day - kDays.MonthStart(rec.tm_year + 1900, 0);
    return rec;
}

// Before the year 1 the C library's weekdays are others.
bool IsSame(TTime rec, const TTime& expected) {
    if (expected.tm_year < 1 - 1900) {
        rec.tm_wday = expected.tm_wday;
    }
    return SameBytes(rec, expected);
}

int64_t Seconds(int64_t days, const TTime& rec) {
    return ((days * 24 + rec.tm_hour) * 60 + rec.tm_min) * 60 + rec.tm_sec;
}

// In months of 31 days, from 2000-01-01 on.
int64_t OldDays(const TTime& rec) {
    const int64_t months = int64_t{rec.tm_year - 100} * kMonths + rec.tm_mon;
    return months * 31 + rec.tm_mday - 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text = Input(data, size).Text();
    const auto copy = ExactCopy(text);
    const TTime zeroes = Read(text, std::size(kFields), {});
    const int64_t seconds = Seconds(DayOf(zeroes), zeroes);
    const bool fits = seconds >= 0 && seconds <= INT_MAX;
    Require(StrTimeToSec(copy.get()) == (text.empty() ? 0
                                         : fits       ? seconds
                                                      : -1),
            "the seconds since 1970");
    Require(OldStrTimeToSec(copy.get()) == Cut(Seconds(OldDays(zeroes), zeroes)),
            "the old packed time");

    const TTime before = MarkedRecord({});
    TTime rec = before;
    Require(StrTimeToTTime(&rec, copy.get()) == 1, "StrTimeToTTime returns 1");
    Require(IsSame(rec, Read(text, std::size(kFields), before)), "the fields of StrTimeToTTime");
    rec = before;
    Require(StrTimeToTm(&rec, copy.get()) == 1, "StrTimeToTm returns 1");
    Require(IsSame(rec, Read(text, kDateFields, before)), "the fields of StrTimeToTm");
    return 0;
}
