// util/trstrutils.h with NULL.

#include "tests/null/cases.h"
#include "util/trstrutils.h"

std::vector<NullCase> StringCases() {
    return {
        NULL_CASE(SplitByChar, (Input("a,b"), Room(), Room(), ','), "rest+2 first=a rest=b",
                  Null{"text", "rest"}, Null{"first", "rest+2 rest=b"},
                  Null{"rest", "NULL first=a"}),
        NULL_CASE(SplitKeyValueByChar, (Input("k=v"), Room(), 32, Room(), 32, '='),
                  "0 key=k value=v",  //
                  Null{"text", "0"}, Null{"key", "0 value=v"}, Null{"value", "0 key=k"}),
        NULL_CASE(ExtractValue, (Input("name=Tom,age=7"), Input("age"), ',', Room(), 32),
                  "1 out=7",  //
                  Null{"text", "-1 out="}, Null{"key", "-1 out="}, Null{"out", "1"}),
        NULL_CASE(ExtractValueInt, (Input("name=Tom,age=7"), Input("age"), ',', 42), "7",
                  Null{"text", "42"}, Null{"key", "42"}),
        NULL_CASE(TrimAroundSpace, (Text(" a ")), "done text=a", Null{"text", "done"}),
        NULL_CASE(Str2Upcase, (Text("abc"), 3), "0 text=ABC",
                  Null{"text", "-1 | Warning trstrutils Str2Upcase: pStr is NULL"}),
        NULL_CASE(Decode16, (Input("1a2b"), Bytes()), "2 out=1a2b2b3c4d5e", Null{"hex", "0"},
                  Null{"out", "2"}),
        NO_POINTERS(str2Hex),
        NULL_CASE(str2int, (Input("7"), 42), "7", Null{"text", "42"}),
        NULL_CASE(in_chksum, (Block<const unsigned short>(), 2), "65535", Null{"buffer", "65535"}),
        NULL_CASE(MergeSort, (Numbers(2, 1), 2), "done array=1/2", Null{"array", "done"}),
    };
}
