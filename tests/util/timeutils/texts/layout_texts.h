// One date in the ten layouts.
#ifndef TESTS_UTIL_TIMEUTILS_TEXTS_LAYOUT_TEXTS_H
#define TESTS_UTIL_TIMEUTILS_TEXTS_LAYOUT_TEXTS_H

#include <string>

// For 2024-05-07, by the last digit of the code.
inline const std::string kLayoutTexts[] = {"24-05-07", "24/05/07",  "24.05.07", "05-07-24",
                                           "05/07/24", "05.07.24",  "07-05-24", "07/05/24",
                                           "07.05.24", "2024-05-07"};

#endif
