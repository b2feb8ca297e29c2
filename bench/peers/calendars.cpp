// Peers for the calendars: std::chrono with Howard Hinnant's date headers, and Qt.

#include <date/islamic.h>
#include <date/solar_hijri.h>

#include <QCalendar>
#include <chrono>

#include "bench/cases/records.h"
#include "bench/peers/row.h"
#include "bench/peers/rows.h"

namespace {

// Calendars of one shape: two of the date headers, and that of std::chrono.
struct Gregorian {
    using Days = std::chrono::sys_days;
    using Date = std::chrono::year_month_day;
    using Year = std::chrono::year;
    using Month = std::chrono::month;
    using Day = std::chrono::day;
    static constexpr auto kLast = std::chrono::last;
};

struct Persian {
    using Days = solar_hijri::sys_days;
    using Date = solar_hijri::year_month_day;
    using Year = solar_hijri::year;
    using Month = solar_hijri::month;
    using Day = solar_hijri::day;
    static constexpr auto kLast = solar_hijri::last;
};

struct Islamic {
    using Days = islamic::sys_days;
    using Date = islamic::year_month_day;
    using Year = islamic::year;
    using Month = islamic::month;
    using Day = islamic::day;
    static constexpr auto kLast = islamic::last;
};

template <class From, class To>
TTime* Move(TTime* rec) {
    const typename From::Date date{typename From::Year{rec->tm_year + kTmYearBase},
                                   typename From::Month{static_cast<unsigned>(rec->tm_mon + 1)},
                                   typename From::Day{static_cast<unsigned>(rec->tm_mday)}};
    const typename To::Date moved{typename To::Days{typename From::Days{date}}};
    rec->tm_year = static_cast<int>(moved.year()) - kTmYearBase;
    rec->tm_mon = static_cast<int>(static_cast<unsigned>(moved.month())) - 1;
    rec->tm_mday = static_cast<int>(static_cast<unsigned>(moved.day()));
    return rec;
}

PEER TTime* DateFromGregorian(int calendar_mode, TTime* rec) {
    return calendar_mode == CALENDAR_PERSIAN ? Move<Gregorian, Persian>(rec)
                                             : Move<Gregorian, Islamic>(rec);
}

PEER TTime* DateToGregorian(int calendar_mode, TTime* rec) {
    return calendar_mode == CALENDAR_PERSIAN ? Move<Persian, Gregorian>(rec)
                                             : Move<Islamic, Gregorian>(rec);
}

template <class Calendar>
int LastDay(int year, int month) {
    const auto last = typename Calendar::Year{year} /
                      typename Calendar::Month{static_cast<unsigned>(month)} / Calendar::kLast;
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

PEER int DateMonthDays(int calendar_mode, int year, int month) {
    switch (calendar_mode) {
        case CALENDAR_GREGORIAN:
            return LastDay<Gregorian>(year, month);
        case CALENDAR_PERSIAN:
            return LastDay<Persian>(year, month);
        default:
            return LastDay<Islamic>(year, month);
    }
}

PEER int QtMonthDays(int calendar_mode, int year, int month) {
    static const QCalendar kCalendars[] = {QCalendar(QCalendar::System::Gregorian),
                                           QCalendar(QCalendar::System::Jalali),
                                           QCalendar(QCalendar::System::IslamicCivil)};
    return kCalendars[calendar_mode].daysInMonth(month, year);
}

template <class Case, auto kOurs, auto kDate>
void AddRow() {
    Row<Case, kOurs>().template Peer<kDate>("std::chrono and date");
}

}  // namespace

void AddCalendarRows() {
    AddRow<ToCalendar<CALENDAR_PERSIAN>, ChrisTmToLocalTm, DateFromGregorian>();
    AddRow<FromCalendar<CALENDAR_PERSIAN>, LocalTmToChrisTm, DateToGregorian>();
    AddRow<ToCalendar<CALENDAR_ISLAMIC>, ChrisTmToLocalTm, DateFromGregorian>();
    AddRow<FromCalendar<CALENDAR_ISLAMIC>, LocalTmToChrisTm, DateToGregorian>();
    Row<MonthDays, GetMaxDaysOfMonth>()
        .Peer<DateMonthDays>("std::chrono and date")
        .Peer<QtMonthDays>("Qt QCalendar");
}
