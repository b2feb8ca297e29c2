// Every day from 1600-01-01 to 2400-12-31 through the converters of records.

#include <gtest/gtest.h>

#include "tests/util/timeutils/calendars/naive_walk.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils/calendars/day_number.h"

namespace {

// One day in the three calendars.
struct Day {
    Date gregorian;
    Date persian;
    Date islamic;

    Day Next() const {
        return {naive::NextDay(gregorian, naive::GregorianMonthDays),
                naive::NextDay(persian, naive::PersianMonthDays),
                naive::NextDay(islamic, naive::IslamicMonthDays)};
    }
    Day Previous() const {
        return {naive::PreviousDay(gregorian, naive::GregorianMonthDays),
                naive::PreviousDay(persian, naive::PersianMonthDays),
                naive::PreviousDay(islamic, naive::IslamicMonthDays)};
    }
};

constexpr Date kFirstDay = {1600, 1, 1};
constexpr Date kLastDay = {2400, 12, 31};
constexpr int kDays = 292'560;
constexpr Day kEpoch = {{1970, 1, 1}, {1348, 10, 11}, {1389, 10, 22}};

// Calls check with each day from kFirstDay to kLastDay, walking away from 1970 on both sides.
template <typename Check>
void ForEachDay(const Check& check) {
    int days = 0;
    for (Day day = kEpoch; !testing::Test::HasFatalFailure(); day = day.Previous(), ++days) {
        check(day);
        if (day.gregorian == kFirstDay) {
            break;
        }
    }
    for (Day day = kEpoch; day.gregorian != kLastDay && !testing::Test::HasFatalFailure(); ++days) {
        day = day.Next();
        check(day);
    }
    EXPECT_EQ(days + 1, kDays);
}

// The bytes besides the three fields count too.
void ExpectConverts(TTime* (*convert)(TTime*), struct tm* rec, const Date& expected) {
    ASSERT_EQ(convert(rec), rec);
    ASSERT_EQ(DateIn(*rec), expected);
    ASSERT_TRUE(SameBytes(*rec, MarkedRecord(expected))) << expected;
}

}  // namespace

TEST(Calendars, ConvertEveryDayBetweenPersianAndIslamicByWayOfTheGregorianDate) {
    ForEachDay([](const Day& day) {
        struct tm rec = MarkedRecord(day.islamic);
        ExpectConverts(IslamicTmToChrisTm, &rec, day.gregorian);
        ExpectConverts(ChrisTmToPersianTm, &rec, day.persian);
        ExpectConverts(PersianTmToChrisTm, &rec, day.gregorian);
        ExpectConverts(ChrisTmToIslamicTm, &rec, day.islamic);
    });
}

TEST(Calendars, NumberEveryDayAlike) {
    ForEachDay([](const Day& day) {
        const auto& [gregorian, persian, islamic] = day;
        const double jd = GregorianToJd(gregorian.year, gregorian.month, gregorian.day);
        ASSERT_EQ(PersianToJd(persian.year, persian.month, persian.day), jd) << gregorian;
        ASSERT_EQ(IslamicToJd(islamic.year, islamic.month, islamic.day), jd) << gregorian;
    });
}

TEST(Calendars, NumberTheDaysWithoutAGap) {
    double expected = GregorianToJd(kFirstDay.year, kFirstDay.month, kFirstDay.day);
    EXPECT_EQ(expected, 2305447.5);
    for (Date date = kFirstDay; date != kLastDay;) {
        date = naive::NextDay(date, naive::GregorianMonthDays);
        expected += 1;
        ASSERT_EQ(GregorianToJd(date.year, date.month, date.day), expected) << date;
    }
    EXPECT_EQ(expected, 2305447.5 + kDays - 1);
}
