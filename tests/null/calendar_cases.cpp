// util/timeutils/calendars.h with NULL.

#include "tests/null/cases.h"
#include "util/timeutils.h"

namespace {

constexpr int kStandard = 9;  // the layout of 2024-05-07

}  // namespace

std::vector<NullCase> CalendarCases() {
    return {
        DATA_OBJECT(_ytab),
        NO_POINTERS(IsLeapYear),
        NO_POINTERS(GetMaxDaysOfGregoMonth),
        NO_POINTERS(GetPersianMonthDay),
        NO_POINTERS(GetIslamicMonthDay),
        NO_POINTERS(IsLeapYearByCalendar),
        NO_POINTERS(GetMaxDaysOfMonth),
        NULL_CASE(LocalTmToChrisTm, (CALENDAR_PERSIAN, Record()), kAnything, Null{"rec", "NULL"}),
        NULL_CASE(ChrisTmToLocalTm, (CALENDAR_PERSIAN, Record()), "rec rec=1403-2-18T8:9:10",
                  Null{"rec", "NULL"}),
        NULL_CASE(LocalTimeToChris,
                  (CALENDAR_PERSIAN, Text("1403-02-18"), 32, TEXT_DATE, kStandard),
                  "0 text=2024-05-07", Null{"text", "-1"}),
        NULL_CASE(ChrisToLocalTime,
                  (CALENDAR_PERSIAN, Text("2024-05-07"), 32, TEXT_DATE, kStandard),
                  "1 text=1403-02-18", Null{"text", "-1"}),
    };
}
