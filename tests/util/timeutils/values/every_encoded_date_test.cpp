// EncodeTime on every date of 1970 to 2038, against a count of days and the C library.

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <ctime>

#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

namespace {

int MonthDays(const Date& date) {
    switch (date.month) {
        case 2:
            return date.year % 4 == 0 ? 29 : 28;  // 2000 is a leap year like the others
        case 4:
        case 6:
        case 9:
        case 11:
            return 30;
        default:
            return 31;
    }
}

// Calls check with each date, the days since 1970-01-01 and the days since its 1 January.
template <typename Check>
void ForEachDate(const Check& check) {
    int days = 0;
    for (int year = 1970; year <= 2038; ++year) {
        const int new_year = days;
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= MonthDays({year, month, 0}); ++day) {
                check(Date{year, month, day}, days, days - new_year);
                ++days;
            }
        }
    }
    ASSERT_EQ(days, 25202);  // 69 years, 17 of them leap years
}

void ExpectEncoded(const Date& date, const Clock& clock, int64_t seconds) {
    struct tm rec = RecordOf(date, clock);
    struct tm other = rec;
    const bool fits = seconds <= INT_MAX;
    ASSERT_EQ(EncodeTime(&rec), fits ? seconds : -1) << date;
    if (fits) {
        ASSERT_EQ(timegm(&other), seconds) << date;
        ASSERT_EQ(rec.tm_wday, other.tm_wday) << date;
        ASSERT_EQ(rec.tm_yday, other.tm_yday) << date;
    }
}

}  // namespace

TEST(EncodeTime, CountsEveryDayFrom1970To2038) {
    ForEachDate([](const Date& date, int days, int /*day_of_year*/) {
        const int64_t midnight = int64_t{days} * 86400;
        ExpectEncoded(date, {0, 0, 0}, midnight);
        ExpectEncoded(date, {23, 59, 59}, midnight + 86399);
    });
}

TEST(EncodeTime, KnowsWeekdayAndDayOfYearOfEveryDay) {
    ForEachDate([](const Date& date, int days, int day_of_year) {
        struct tm rec = RecordOf(date, {12, 0, 0});
        EncodeTime(&rec);
        ASSERT_EQ(DateIn(rec), date);
        ASSERT_EQ(rec.tm_wday, (days + 4) % 7) << date;
        ASSERT_EQ(rec.tm_yday, day_of_year) << date;
    });
}

TEST(EncodeTime, CountsEverySecondOfADay) {
    for (int second = 0; second < 86400; ++second) {
        struct tm rec = RecordOf({2000, 2, 29}, {second / 3600, second / 60 % 60, second % 60});
        ASSERT_EQ(EncodeTime(&rec), 951782400 + second);
    }
}
