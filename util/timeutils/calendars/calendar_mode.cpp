// Questions and conversions by calendar mode.

#include "util/timeutils.h"
#include "util/timeutils/calendars/day_number.h"

int IsLeapYearByCalendar(int calendar_mode, int year) {
    switch (calendar_mode) {
        case CALENDAR_PERSIAN:
            return IsPersianLeap(year);
        case CALENDAR_ISLAMIC:
            return IsIslamicLeap(year);
        default:
            return 0;  // Gregorian years too: callers ask IsLeapYear
    }
}

int GetMaxDaysOfMonth(int calendar_mode, int year, int month) {
    switch (calendar_mode) {
        case CALENDAR_GREGORIAN:
            return GetMaxDaysOfGregoMonth(year, month);
        case CALENDAR_PERSIAN:
            return GetPersianMonthDay(year, month);
        case CALENDAR_ISLAMIC:
            return GetIslamicMonthDay(year, month);
        default:
            return year;  // callers rely on it
    }
}

TTime* LocalTmToChrisTm(int calendar_mode, TTime* rec) {
    if (rec == nullptr) {
        return rec;
    }
    switch (calendar_mode) {
        case CALENDAR_PERSIAN:
            return PersianTmToChrisTm(rec);
        case CALENDAR_ISLAMIC:
            return IslamicTmToChrisTm(rec);
        default:
            return rec;
    }
}

TTime* ChrisTmToLocalTm(int calendar_mode, TTime* rec) {
    if (rec == nullptr) {
        return rec;
    }
    switch (calendar_mode) {
        case CALENDAR_PERSIAN:
            return ChrisTmToPersianTm(rec);
        case CALENDAR_ISLAMIC:
            return ChrisTmToIslamicTm(rec);
        default:
            return rec;
    }
}
