// Records for tests: dates with the full year and months from 1, everything else marked.
#ifndef TESTS_UTIL_TIMEUTILS_DATE_RECORDS_H
#define TESTS_UTIL_TIMEUTILS_DATE_RECORDS_H

#include <array>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <ostream>

// A date of any calendar.
struct Date {
    int year;
    int month;  // [1, 12]
    int day;    // [1, 31]

    bool operator==(const Date&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Date& date) {
    return out << date.year << '-' << date.month << '-' << date.day;
}

struct Clock {
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// The low 32 bits, as a signed number.
inline int Cut(int64_t value) {
    return static_cast<int>(static_cast<uint32_t>(value));
}

inline Date DateIn(const struct tm& rec) {
    // Sums wrap, so that every tm_year and tm_mon has its date.
    return {Cut(int64_t{rec.tm_year} + 1900), Cut(int64_t{rec.tm_mon} + 1), rec.tm_mday};
}

// Every byte besides the date is kMark, padding and trailing fields included.
constexpr int kMark = 0x5A5A5A5A;

inline struct tm MarkedRecord(const Date& date) {
    struct tm rec;
    memset(&rec, 0x5A, sizeof rec);
    rec.tm_year = Cut(int64_t{date.year} - 1900);
    rec.tm_mon = Cut(int64_t{date.month} - 1);
    rec.tm_mday = date.day;
    return rec;
}

inline struct tm RecordOf(const Date& date, const Clock& clock = {}) {
    struct tm rec = MarkedRecord(date);
    rec.tm_hour = clock.hour;
    rec.tm_min = clock.minute;
    rec.tm_sec = clock.second;
    return rec;
}

// The nine fields in their order, from tm_sec to tm_isdst.
inline std::array<int, 9> FieldsOf(const struct tm& rec) {
    return {rec.tm_sec,  rec.tm_min,  rec.tm_hour, rec.tm_mday, rec.tm_mon,
            rec.tm_year, rec.tm_wday, rec.tm_yday, rec.tm_isdst};
}

inline bool SameBytes(const struct tm& a, const struct tm& b) {
    return memcmp(&a, &b, sizeof a) == 0;
}

#endif
