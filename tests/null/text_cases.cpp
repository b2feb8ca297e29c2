// util/timeutils/texts.h with NULL.

#include "tests/null/cases.h"
#include "util/timeutils.h"

namespace {

constexpr int kGregorian = CALENDAR_GREGORIAN;
constexpr int kStandard = 9;  // the layout of 2024-05-07
constexpr int kMonthFirst = 4;

}  // namespace

std::vector<NullCase> TextCases() {
    return {
        NULL_CASE(FormatDate, (Room(), kStandard, 2024, 5, 7), "0 dst=2024-05-07",
                  Null{"dst", "0"}),
        NULL_CASE(DeFormatDate,
                  (Input("2024-05-07"), kStandard, kGregorian, Number(), Number(), Number()),
                  "1 year=2024 month=5 day=7",  //
                  Null{"text", kEnded}, Null{"year", kEnded}, Null{"month", kEnded},
                  Null{"day", kEnded}),
        NULL_CASE(FmtDateToStandardDate, (Text("05/07/24"), 32, kMonthFirst, kGregorian),
                  "1 buf=2024-05-07", Null{"buf", "0"}),
        NULL_CASE(StandardDateToFmtDate, (Text("2024-05-07"), 32, kMonthFirst, kGregorian),
                  "1 buf=05/07/24", Null{"buf", "0"}),
        NULL_CASE(ConvertCompileDate, (Input("May 17 2024"), Room(), 32),
                  "1 dst=20240517 | Info timeutils ConvertCompileDate: 20240517\\n",
                  Null{"text", "0"}, Null{"dst", "0"}),
        NULL_CASE(HourTimeFormatToCurMode, (Text("07:45 PM"), 32, 1),
                  "1 buf=19:45 | Info timeutils HourTimeFormatToCurMode: "
                  "Hour time format to current mode: 19:45",
                  Null{"buf", "-1"}),
        NULL_CASE(HourTimeFormatTo24Mode, (Text("07:45 PM"), 32),
                  "1 buf=19:45 | Info timeutils HourTimeFormatTo24Mode: "
                  "Hour time format to 24 mode: 19:45",
                  Null{"buf", "-1"}),
        NULL_CASE(ParseDate, (Text("2024-05-07"), Number(), Number(), Number()),
                  "done text=2024 year=2024 month=5 day=7",  //
                  Null{"text", "done"}, Null{"year", "done text=2024 month=5 day=7"},
                  Null{"month", "done text=2024 year=2024 day=7"},
                  Null{"day", "done text=2024 year=2024 month=5"}),
        NULL_CASE(ParseTime, (Text("08:09:10"), Number(), Number(), Number()),
                  "done text=08 hour=8 minute=9 second=10",  //
                  Null{"text", "done"}, Null{"hour", "done text=08 minute=9 second=10"},
                  Null{"minute", "done text=08 hour=8 second=10"},
                  Null{"second", "done text=08 hour=8 minute=9"}),
        NULL_CASE(ParseTimeNoSec, (Text("08:09"), Number(), Number()),
                  "done text=08 hour=8 minute=9",  //
                  Null{"text", "done"}, Null{"hour", "done text=08 minute=9"},
                  Null{"minute", "done text=08 hour=8"}),
        NULL_CASE(ParseDateNoYear, (Text("05-07"), Number(), Number()),
                  "done text=05 month=5 day=7",  //
                  Null{"text", "done"}, Null{"month", "done text=05 day=7"},
                  Null{"day", "done text=05 month=5"}),
        NULL_CASE(TTimeToStr, (*Record(), Room(), 32, TEXT_DATE_TIME, kStandard),
                  "0 buf=2024-05-07T08:09:10", Null{"buf", "0"}),
        NULL_CASE(TTimeToStr, (*Record(), Room(), 32, TEXT_DATE, kStandard), "0 buf=2024-05-07",
                  Null{"buf", "0"})
            .As("Date"),
        NULL_CASE(ParseStrToTTime,
                  (Input("2023-01-02T03:04"), Record(), TEXT_DATE_TIME, kStandard, kGregorian),
                  "0 out=2023-1-2T3:4:10", Null{"text", "-1"}, Null{"out", "-1"}),
        NULL_CASE(
            TTimeToStrTime, (Room(), 32, Record()), "1 dst=2024-05-07T08:09:10",
            Null{"dst", "0 | Warning timeutils TTimeToStrTime: pTimeBuf pTTime buf is NULL!"},
            Null{"rec", "0 | Warning timeutils TTimeToStrTime: pTimeBuf pTTime buf is NULL!"}),
    };
}
