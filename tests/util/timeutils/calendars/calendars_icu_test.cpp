// The calendars against ICU, which others wrote: every day from 1600-01-01 to 2400-12-31.
//
// Gregorian and Islamic (civil) dates agree on all of them. ICU's Persian calendar has 8 leap years
// in 33, ours the 2820-year rule: of the 802 years from 978 to 1779, New Year differs by a day in
// the 39 listed below, so that each of them is a day off from its first day to its last. All other
// years agree, among them 1244 to 1403 without a gap.

#include <gtest/gtest.h>
#include <unicode/ucal.h>

#include <set>
#include <string>

#include "tests/util/timeutils/calendars/naive_calendars.h"
#include "tests/util/timeutils/calendars/naive_walk.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"
#include "util/timeutils/calendars/day_number.h"

namespace {

constexpr double kDayMs = 86400e3;
constexpr double kEpochJd = 2440587.5;  // 1970-01-01

// New Year of these years is a day earlier in ICU...
const std::set<int> kEarlierInIcu = {979,  983,  987,  1012, 1016, 1045, 1049, 1078,
                                     1082, 1111, 1115, 1144, 1177, 1210, 1243};
// ... and of these a day later.
const std::set<int> kLaterInIcu = {1404, 1437, 1470, 1503, 1532, 1536, 1565, 1569,
                                   1598, 1602, 1631, 1635, 1660, 1664, 1668, 1693,
                                   1697, 1701, 1726, 1730, 1734, 1759, 1763, 1767};

class IcuCalendar {
public:
    explicit IcuCalendar(const std::string& name) {
        const std::string locale = "en@calendar=" + name;
        calendar_ = ucal_open(u"UTC", 3, locale.c_str(), UCAL_TRADITIONAL, &error_);
        EXPECT_EQ(ucal_getType(calendar_, &error_), name);
        if (name == "gregorian") {
            ucal_setGregorianChange(calendar_, -1e15, &error_);  // never Julian
        }
    }
    ~IcuCalendar() {
        EXPECT_TRUE(U_SUCCESS(error_)) << u_errorName(error_);
        ucal_close(calendar_);
    }
    IcuCalendar(const IcuCalendar&) = delete;
    IcuCalendar& operator=(const IcuCalendar&) = delete;

    Date Of(double jd) {
        ucal_setMillis(calendar_, (jd - kEpochJd) * kDayMs, &error_);
        return {Get(UCAL_EXTENDED_YEAR), Get(UCAL_MONTH) + 1, Get(UCAL_DATE)};
    }
    int MonthDays(int year, int month) {
        Set({year, month, 1});
        return ucal_getLimit(calendar_, UCAL_DATE, UCAL_ACTUAL_MAXIMUM, &error_);
    }
    double JdOf(const Date& date) {
        Set(date);
        return ucal_getMillis(calendar_, &error_) / kDayMs + kEpochJd;
    }

private:
    void Set(const Date& date) {
        ucal_clear(calendar_);
        ucal_set(calendar_, UCAL_EXTENDED_YEAR, date.year);
        ucal_set(calendar_, UCAL_MONTH, date.month - 1);
        ucal_set(calendar_, UCAL_DATE, date.day);
    }
    int Get(UCalendarDateFields field) { return ucal_get(calendar_, field, &error_); }

    UErrorCode error_ = U_ZERO_ERROR;
    UCalendar* calendar_;
};

// Calls check with the day number and the date in the mode's calendar, from the library.
template <typename Check>
void ForEachDay(int mode, const Check& check) {
    const double last = GregorianToJd(2400, 12, 31);
    for (double jd = GregorianToJd(1600, 1, 1); jd <= last && !testing::Test::HasFatalFailure();
         jd += 1) {
        Date gregorian;
        JdToGregorian(jd, &gregorian.year, &gregorian.month, &gregorian.day);
        struct tm rec = MarkedRecord(gregorian);
        ChrisTmToLocalTm(mode, &rec);
        check(jd, DateIn(rec));
    }
}

void ExpectAgrees(int mode, const char* name) {
    IcuCalendar icu(name);
    ForEachDay(mode, [&](double jd, const Date& date) {
        ASSERT_EQ(date, icu.Of(jd));
        ASSERT_EQ(icu.JdOf(date), jd) << date;
        struct tm rec = MarkedRecord(date);
        LocalTmToChrisTm(mode, &rec);
        const Date chris = DateIn(rec);
        ASSERT_EQ(GregorianToJd(chris.year, chris.month, chris.day), jd) << date;
    });
}

// Month lengths, and the day number of each first day by the product and by the formulas.
void ExpectMonthsAgree(int mode, const char* name, double (*jd_of)(int, int, int),
                       double (*naive_jd)(const Date&)) {
    IcuCalendar icu(name);
    for (int year = 1; year <= 10'000; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const double jd = icu.JdOf({year, month, 1});
            ASSERT_EQ(GetMaxDaysOfMonth(mode, year, month), icu.MonthDays(year, month))
                << year << '-' << month;
            ASSERT_EQ(jd_of(year, month, 1), jd) << year << '-' << month;
            ASSERT_EQ(naive_jd({year, month, 1}), jd) << year << '-' << month;
        }
    }
}

}  // namespace

TEST(Icu, AgreesOnEveryGregorianDay) {
    ExpectAgrees(CALENDAR_GREGORIAN, "gregorian");
}

TEST(Icu, AgreesOnEveryIslamicDay) {
    ExpectAgrees(CALENDAR_ISLAMIC, "islamic-civil");
}

TEST(Icu, AgreesOnGregorianMonthsOf10000Years) {
    ExpectMonthsAgree(CALENDAR_GREGORIAN, "gregorian", GregorianToJd, naive::GregorianToJd);
}

TEST(Icu, AgreesOnIslamicMonthsOf10000Years) {
    ExpectMonthsAgree(CALENDAR_ISLAMIC, "islamic-civil", IslamicToJd, naive::IslamicToJd);
}

TEST(Icu, AgreesOnPersianDaysButInTheListedYears) {
    IcuCalendar icu("persian");
    int agreeing = 0;
    int differing = 0;
    ForEachDay(CALENDAR_PERSIAN, [&](double jd, const Date& ours) {
        const Date theirs = icu.Of(jd);
        Date expected = ours;
        if (kEarlierInIcu.contains(theirs.year)) {
            // Begun a day ahead of ours, their year has one day more.
            expected = ours.month == 12 && ours.day == 29 && ours.year == theirs.year
                           ? Date{ours.year, 12, 30}
                           : naive::NextDay(ours, naive::PersianMonthDays);
        } else if (kLaterInIcu.contains(ours.year)) {
            // Their year before has that day more.
            expected = ours.month == 1 && ours.day == 1
                           ? Date{ours.year - 1, 12, 30}
                           : naive::PreviousDay(ours, naive::PersianMonthDays);
        }
        ASSERT_EQ(theirs, expected) << ours;
        ++(theirs == ours ? agreeing : differing);
    });
    const size_t differing_years = kEarlierInIcu.size() + kLaterInIcu.size();
    EXPECT_EQ(differing_years, 39U);
    EXPECT_EQ(differing, 39 * 366);
    EXPECT_EQ(agreeing, 292'560 - 39 * 366);
}

TEST(Icu, AgreesOnEveryPersianDayFrom1244To1403) {
    IcuCalendar icu("persian");
    Date date = {1244, 1, 1};
    EXPECT_EQ(date, icu.Of(GregorianToJd(1865, 3, 21)));
    int days = 0;
    for (; date.year <= 1403; date = naive::NextDay(date, naive::PersianMonthDays), ++days) {
        ASSERT_EQ(icu.Of(PersianToJd(date.year, date.month, date.day)), date);
    }
    EXPECT_EQ(days, 58'438);
}

TEST(Icu, DiffersByADayIn1404) {
    // ICU makes 1403 a leap year, as printed calendars do; ours is 1404.
    IcuCalendar icu("persian");
    EXPECT_EQ(icu.MonthDays(1403, 12), 30);
    EXPECT_EQ(GetPersianMonthDay(1403, 12), 29);
    EXPECT_EQ(icu.MonthDays(1404, 12), 29);
    EXPECT_EQ(GetPersianMonthDay(1404, 12), 30);

    EXPECT_EQ(icu.Of(PersianToJd(1403, 12, 29)), (Date{1403, 12, 29}));
    EXPECT_EQ(icu.Of(PersianToJd(1404, 1, 1)), (Date{1403, 12, 30}));
    EXPECT_EQ(icu.Of(PersianToJd(1404, 1, 2)), (Date{1404, 1, 1}));
    EXPECT_EQ(icu.Of(PersianToJd(1404, 12, 30)), (Date{1404, 12, 29}));
    EXPECT_EQ(icu.Of(PersianToJd(1405, 1, 1)), (Date{1405, 1, 1}));
}
