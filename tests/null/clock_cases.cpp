// util/timeutils/clock.h with NULL.

#include "tests/null/cases.h"
#include "util/timeutils.h"

namespace {

constexpr int kStandard = 9;  // the layout of 2024-05-07

}  // namespace

std::vector<NullCase> ClockCases() {
    return {
        NULL_CASE(GetCurDateTime, (Room(), 32, TEXT_DATE_TIME, kStandard), kAnything,
                  Null{"dst", "-1"}),
        NULL_CASE(GetCurDate, (Room(), 32, kStandard), kAnything, Null{"dst", "-1"}),
        NULL_CASE(GetCurTime, (Room(), 32), kAnything, Null{"dst", "-1"}),
        NULL_CASE(GetCurTimeNoSec, (Room(), 32), kAnything, Null{"dst", "-1"}),
        NULL_CASE(GetClockDT, (Block<TClockDT>()), "done out=changed", Null{"out", "done"}),
        NULL_CASE(GetTime, (Record()), kAnything, Null{"out", "done"}),
        NULL_CASE(GetLocalTime, (CALENDAR_GREGORIAN, Record()), "1", Null{"out", "0"}),
        NO_POINTERS(Trmmsleep),
        NULL_CASE(SyncSysTime, (Record()),
                  "1 rec=2024-5-7T8:9:10 $ date $ settimeofday $ date"
                  " | Debug timeutils SyncSysTime: set time test by qhm begin"
                  " | Debug timeutils SyncSysTime: set time test by qhm end",
                  Null{"rec", "1"}),
        NO_POINTERS(TrGetTickCount),
        NO_POINTERS(GetSysSecond),
    };
}
