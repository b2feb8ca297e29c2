// Every day of the years -10,000 to 10,000 through each calendar, both ways. The witnesses are the
// published formulas in doubles and, where leap rule and formulas agree, the walk from day to day.

#include <sstream>

#include "tests/sweep/sweep.h"
#include "tests/util/timeutils/calendars/naive_calendars.h"
#include "tests/util/timeutils/calendars/naive_walk.h"
#include "tests/util/timeutils/date_records.h"
#include "tests/util/timeutils/values/naive_seconds.h"
#include "util/timeutils/calendars.h"
#include "util/timeutils/calendars/day_number.h"

namespace sweep {
namespace {

constexpr int kFirstYear = -10'000;
constexpr int kLastYear = 10'000;
constexpr double kJdOf1970 = 2440587.5;

struct Calendar {
    int mode;
    double (*naive_jd)(const Date& date);
    Date (*naive_date)(double jd);
    naive::MonthDays walked_days;  // of a month by the leap rule, in whole numbers
    int first_walked_year;         // from it on, that rule and the formulas agree
};

const Calendar kCalendars[] = {
    {CALENDAR_GREGORIAN, naive::GregorianToJd, naive::JdToGregorian, naive::GregorianMonthDays, 1},
    {CALENDAR_PERSIAN, naive::PersianToJd, naive::JdToPersian, naive::PersianMonthDays, 475},
    {CALENDAR_ISLAMIC, naive::IslamicToJd, naive::JdToIslamic, naive::IslamicMonthDays, 1},
};

Date Converted(TTime* (*convert)(int, TTime*), int mode, const Date& date) {
    struct tm rec = MarkedRecord(date);
    convert(mode, &rec);
    return SameBytes(rec, MarkedRecord(DateIn(rec))) ? DateIn(rec) : Date{};
}

Date GregorianOf(double jd) {
    Date date;
    JdToGregorian(jd, &date.year, &date.month, &date.day);
    return date;
}

// The date as a Gregorian one, and that one as one of the calendar again.
bool BothWays(const Calendar& calendar, const Date& date) {
    const double jd = calendar.naive_jd(date);
    const Date gregorian = naive::JdToGregorian(jd);
    if (calendar.mode == CALENDAR_GREGORIAN) {
        return GregorianToJd(date.year, date.month, date.day) == jd && GregorianOf(jd) == gregorian;
    }
    return Converted(LocalTmToChrisTm, calendar.mode, date) == gregorian &&
           Converted(ChrisTmToLocalTm, calendar.mode, gregorian) ==
               calendar.naive_date(naive::GregorianToJd(gregorian));
}

// The day by counting days, and back to the date.
bool IsOnDay(const Calendar& calendar, const Date& date, double day) {
    return calendar.naive_jd(date) == day && calendar.naive_date(day) == date;
}

// The length of each month and of the year, by the formulas and by the walk.
void CheckLengths(const Calendar& calendar, int year, Checks& checks) {
    const double days = calendar.naive_jd({year + 1, 1, 1}) - calendar.naive_jd({year, 1, 1});
    int walked = 0;
    for (int month = 1; month <= 12; ++month) {
        const int length = calendar.walked_days(year, month);
        walked += length;
        checks.Expect(GetMaxDaysOfMonth(calendar.mode, year, month) == length, [&] {
            return "length of month " + std::to_string(month) + " of " + std::to_string(year);
        });
    }
    const bool is_leap = walked == (calendar.mode == CALENDAR_ISLAMIC ? 355 : 366);
    const int leap = calendar.mode == CALENDAR_GREGORIAN
                         ? IsLeapYear(year)
                         : IsLeapYearByCalendar(calendar.mode, year);
    checks.Expect(walked == days && leap == (is_leap ? 1 : 0),
                  [&] { return "length of year " + std::to_string(year); });
}

void CheckYear(const Calendar& calendar, int year, Checks& checks) {
    const bool is_walked = year >= calendar.first_walked_year;
    double day = calendar.naive_jd({year, 1, 1});
    if (is_walked) {
        CheckLengths(calendar, year, checks);
    }
    for (int month = 1; month <= 12; ++month) {
        // Where the rules disagree a day more, which is another one's too.
        const int days = is_walked ? calendar.walked_days(year, month) : 31;
        for (Date date = {year, month, 1}; date.day <= days && !checks.failed(); ++date.day) {
            const auto describe = [&] {
                std::ostringstream text;
                text << "mode " << calendar.mode << ", " << date;
                return text.str();
            };
            checks.Expect(BothWays(calendar, date), describe);
            if (is_walked) {
                checks.Expect(IsOnDay(calendar, date, day), describe);
                day += 1;
            }
        }
    }
}

void Check(int unit, Checks& checks) {
    const int year = kFirstYear + unit;
    for (const Calendar& calendar : kCalendars) {
        CheckYear(calendar, year, checks);
    }
    if (year > 0) {  // the day numbers of all three hang on this one
        const double days = static_cast<double>(naive::DaysSince1970(year, 1, 1));
        checks.Expect(GregorianToJd(year, 1, 1) == kJdOf1970 + days,
                      [&] { return "day number of 1 January " + std::to_string(year); });
    }
}

}  // namespace

Sweep Calendars() {
    return {"calendars", "every day of 20,001 years of three calendars, both ways",
            kLastYear - kFirstYear + 1, Check};
}

}  // namespace sweep
