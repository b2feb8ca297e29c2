// log/log.h with NULL.

#include "log/log.h"
#include "tests/null/cases.h"

namespace {

// The level of a line that is written, and of one that is not.
int WrittenLevel() {
    return LOG_INFO;
}

int UnwrittenLevel() {
    SetLogLevel(0xFF, 0);
    return LOG_INFO;
}

}  // namespace

std::vector<NullCase> LogCases() {
    return {
        NULL_CASE(PrintLog, (WrittenLevel(), Input("f"), Input("g"), 1, Input("m")),
                  "done | Info f g: m",  //
                  Null{"file", "done | Info (null) g: m"},
                  Null{"function", "done | Info f (null): m"}, Null{"format", "done | Info f g: "}),
        NULL_CASE(PrintLog, (UnwrittenLevel(), Input("f"), Input("g"), 1, Input("m")), "done",
                  Null{"file", "done"}, Null{"function", "done"}, Null{"format", "done"})
            .As("WhileOff"),
    };
}
