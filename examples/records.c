// Time records and seconds counts, and what the time zone does to them.
#include <orvautil/timeutils.h>
#include <stdio.h>

static void Show(const char* what, const TTime* rec) {
    printf("%-8s %d-%02d-%02d %02d:%02d:%02d\n", what, rec->tm_year + 1900, rec->tm_mon + 1,
           rec->tm_mday, rec->tm_hour, rec->tm_min, rec->tm_sec);
}

int main(void) {
    // The record is the C library's own struct tm. All fields count, so begin with zeros.
    TTime rec = {.tm_year = 2024 - 1900, .tm_mon = 5 - 1, .tm_mday = 7, .tm_hour = 8};
    const time_t seconds = EncodeTime(&rec);
    printf("encoded  %ld, a day of the week: %d\n", (long)seconds, rec.tm_wday);

    // Good to know: encoding knows no zone, decoding gives local time. So a round trip moves the
    // record by the zone: by two hours in central Europe in summer.
    TTime local;
    Show("decoded", DecodeTime(&local, seconds));

    // Fields out of range are brought into it: this is how to add days.
    TTime later = {.tm_year = 2024 - 1900, .tm_mon = 2 - 1, .tm_mday = 28 + 2};
    mktime_1(&later);
    Show("later", &later);

    // 32-bit seconds reach from 1970 to 2038; outside of that the result is -1.
    TTime old = {.tm_year = 1969 - 1900, .tm_mon = 12 - 1, .tm_mday = 31};
    printf("in 1969  %ld\n", (long)EncodeTime(&old));

    // The old packed time counts 31-day months from 2000 on, with no zone in either direction.
    const int packed = OldEncodeTime(&rec);
    TTime unpacked = {0};
    Show("unpacked", OldDecodeTime(packed, &unpacked));
    return 0;
}
