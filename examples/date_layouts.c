// Dates in the ten layouts, written and read by one code.
#include <orvautil/timeutils.h>
#include <stdio.h>

enum { STANDARD = 9, DAY_FIRST = 8 };  // codes: YYYY-MM-DD and DD.MM.YY

int main(void) {
    for (int code = 0; code <= STANDARD; ++code) {
        char text[11];  // no size is passed: layout 9 needs 11 bytes, the others 9
        FormatDate(text, code, 2024, 5, 7);
        printf("layout %d  %s\n", code, text);
    }

    char date[11] = "07.05.24";
    FmtDateToStandardDate(date, sizeof date, DAY_FIRST, CALENDAR_GREGORIAN);
    printf("standard  %s\n", date);
    StandardDateToFmtDate(date, sizeof date, DAY_FIRST, CALENDAR_GREGORIAN);
    printf("and back  %s\n", date);

    // Good to know: two digits of a year become four by rules of their own in each calendar.
    int year, month, day;
    DeFormatDate("01.01.37", DAY_FIRST, CALENDAR_GREGORIAN, &year, &month, &day);
    printf("year 37   %d\n", year);
    DeFormatDate("01.01.38", DAY_FIRST, CALENDAR_GREGORIAN, &year, &month, &day);
    printf("year 38   %d\n", year);
    DeFormatDate("01.01.38", DAY_FIRST, CALENDAR_PERSIAN, &year, &month, &day);
    printf("Persian   %d\n", year);

    // A record as a text of one of four types; seconds are read back as they were before.
    TTime rec = {.tm_sec = 59};
    ParseStrToTTime("2024-05-07T08:09:10", &rec, TEXT_DATE_TIME, STANDARD, CALENDAR_GREGORIAN);
    char text[20];
    for (int type = TEXT_DATE; type <= TEXT_DATE_TIME; ++type) {
        TTimeToStr(rec, text, sizeof text, type, STANDARD);
        printf("type %d    %s\n", type, text);
    }

    ConvertCompileDate("May  7 2024", text, sizeof text);  // the form of __DATE__
    printf("built     %s\n", text);
    return 0;
}
