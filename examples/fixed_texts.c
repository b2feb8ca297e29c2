// Texts of one form each: standard dates and times, clock times, the splitters.
#include <orvautil/timeutils.h>
#include <stdio.h>

int main(void) {
    TTime rec = {0};
    StrTimeToTTime(&rec, "2024-05-07T08:09:10");
    char text[20];  // what "2024-05-07T08:09:10" and its terminator need
    TTimeToStrTime(text, sizeof text, &rec);
    printf("record    %s\n", text);

    // Good to know: a text is read without zone, but seconds are written as local time.
    const time_t seconds = StrTimeToSec("2024-05-07T08:09:10");
    char clock_time[6];
    char date[11];
    SecToHMTime(clock_time, sizeof clock_time, seconds);
    SecToYMDTime(date, sizeof date, seconds);
    printf("local     %s %s\n", date, clock_time);

    // Good to know: a number that the text does not give stays as it was.
    int numbers[3] = {-1, -1, -1};
    TimeTimeToInt("19:45", numbers, 3);
    printf("numbers   %d %d %d\n", numbers[0], numbers[1], numbers[2]);
    IntTimeToStrTime(clock_time, sizeof clock_time, 930);
    printf("930       %s\n", clock_time);

    char hours[9] = "19:45";  // the 12-hour form is 3 bytes longer
    HourTimeFormatToCurMode(hours, sizeof hours, 0);
    printf("12 hours  %s\n", hours);
    HourTimeFormatTo24Mode(hours, sizeof hours);
    printf("24 hours  %s\n", hours);
    // Good to know: the marker needs its blank, or a digit is lost.
    char no_blank[9] = "07:45PM";
    HourTimeFormatTo24Mode(no_blank, sizeof no_blank);
    printf("no blank  %s\n", no_blank);

    char day[] = "2024-05-17";  // the splitters write into their text
    int year, month, day_of_month;
    ParseDate(day, &year, &month, &day_of_month);
    printf("split     %d %d %d, and the text is now \"%s\"\n", year, month, day_of_month, day);
    return 0;
}
