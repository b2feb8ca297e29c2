// The Persian and the Islamic calendar beside the Gregorian one.
#include <orvautil/timeutils.h>
#include <stdio.h>

enum { STANDARD = 9 };  // the date layout YYYY-MM-DD

static void ShowMonth(const char* name, int mode, int year, int month) {
    printf("%-9s %d-%02d has %d days, %s year\n", name, year, month,
           GetMaxDaysOfMonth(mode, year, month),
           IsLeapYearByCalendar(mode, year) ? "in a leap" : "in a common");
}

int main(void) {
    // A record holds a date of any calendar: the year less 1900, the month less 1.
    TTime rec = {.tm_year = 2024 - 1900, .tm_mon = 5 - 1, .tm_mday = 17};
    ChrisTmToLocalTm(CALENDAR_PERSIAN, &rec);
    printf("Persian   %d-%02d-%02d\n", rec.tm_year + 1900, rec.tm_mon + 1, rec.tm_mday);
    LocalTmToChrisTm(CALENDAR_PERSIAN, &rec);
    printf("and back  %d-%02d-%02d\n", rec.tm_year + 1900, rec.tm_mon + 1, rec.tm_mday);

    // The same in a text, which needs 20 bytes when it has a time.
    // Good to know: to the calendar 1 is success, from it 0; and seconds come out as 00.
    char text[20] = "2024-05-17T08:09:10";
    int result = ChrisToLocalTime(CALENDAR_ISLAMIC, text, sizeof text, TEXT_DATE_TIME, STANDARD);
    printf("Islamic   %s, result %d\n", text, result);
    result = LocalTimeToChris(CALENDAR_ISLAMIC, text, sizeof text, TEXT_DATE_TIME, STANDARD);
    printf("and back  %s, result %d\n", text, result);

    ShowMonth("Persian", CALENDAR_PERSIAN, 1403, 12);
    ShowMonth("Islamic", CALENDAR_ISLAMIC, 1445, 12);
    // Good to know: for Gregorian years IsLeapYearByCalendar is always 0; ask IsLeapYear.
    ShowMonth("Gregorian", CALENDAR_GREGORIAN, 2024, 2);
    printf("IsLeapYear(2024) is %d\n", IsLeapYear(2024));
    return 0;
}
