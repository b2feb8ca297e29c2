// The table of NULL calls, by public header.
#ifndef TESTS_NULL_CASES_H
#define TESTS_NULL_CASES_H

#include <vector>

#include "tests/null/null_call.h"

std::vector<NullCase> LogCases();
std::vector<NullCase> ValueCases();
std::vector<NullCase> TextCases();
std::vector<NullCase> CalendarCases();
std::vector<NullCase> ClockCases();
std::vector<NullCase> EthernetCases();
std::vector<NullCase> FileCases();
std::vector<NullCase> StringCases();

#endif
