// util/timeutils/values.h with NULL.

#include "tests/null/cases.h"
#include "util/timeutils.h"

std::vector<NullCase> ValueCases() {
    return {
        DATA_OBJECT(_timezone),
        DATA_OBJECT(_dstbias),
        DATA_OBJECT(_daylight),
        NULL_CASE(mktime_1, (Record()), "1715069350 rec=2024-5-7T8:9:10", Null{"rec", "-1"}),
        NULL_CASE(EncodeTime, (Record()), "1715069350 rec=2024-5-7T8:9:10", Null{"rec", "-1"}),
        NULL_CASE(DecodeTime, (Record(), 0), "out out=1970-1-1T0:0:0", Null{"out", "NULL"}),
        NULL_CASE(OldEncodeTime, (Record()), kAnything, Null{"rec", "0"}),
        NULL_CASE(OldDecodeTime, (0, Record()), "out out=2000-1-1T0:0:0", Null{"out", "NULL"}),
        NULL_CASE(StrTimeToTm, (Record(), Input("2023-01-02")), "1 rec=2023-1-2T8:9:10",
                  Null{"rec", kEnded}, Null{"text", "0"}),
        NULL_CASE(StrTimeToTTime, (Record(), Input("2023-01-02T03:04:05")), "1 rec=2023-1-2T3:4:5",
                  Null{"rec", "0"}, Null{"text", "0"}),
        NULL_CASE(StrTimeToSec, (Input("1970-01-01T00:00:01")), "1", Null{"text", "0"}),
        NULL_CASE(OldStrTimeToSec, (Input("2000-01-01T00:00:01")), "1", Null{"text", "0"}),
        NULL_CASE(SecToHMTime, (Room(), 32, 60), "1 buf=00:01", Null{"buf", "0"}),
        NULL_CASE(SecToYMDTime, (Room(), 32, 60), "1 buf=1970-01-01", Null{"buf", "0"}),
        NO_POINTERS(digitvalue),
        NULL_CASE(TimeTimeToInt, (Input("08:30"), Numbers(0, 0), 2), "0 out=8/30",
                  Null{"text", "-1"}, Null{"out", "-1"}),
        NULL_CASE(IntTimeToStrTime, (Room(), 6, 930), "0 dst=09:30", Null{"dst", "-1"}),
        NULL_CASE(ConvertStrToInt, (Input("7"), 42), "7", Null{"text", "42"}),
    };
}
