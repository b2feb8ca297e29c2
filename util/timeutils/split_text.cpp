// The numbers of a date or clock text, taken apart at its separators.

#include <cstring>
#include <initializer_list>

#include "util/bounds.h"
#include "util/timeutils.h"

namespace {

// Reads a number into each of numbers until a separator is missing. Separators are overwritten.
void SplitNumbers(char* text, char separator, std::initializer_list<int*> numbers) {
    for (int* const number : numbers) {
        if (text == nullptr) {
            return;
        }
        *number = ReadInt(text);
        text = strchr(text, separator);
        if (text != nullptr) {
            *text++ = '\0';
        }
    }
}

}  // namespace

void ParseDate(char* text, int* year, int* month, int* day) {
    SplitNumbers(text, '-', {year, month, day});
}

void ParseTime(char* text, int* hour, int* minute, int* second) {
    SplitNumbers(text, ':', {hour, minute, second});
}

void ParseTimeNoSec(char* text, int* hour, int* minute) {
    SplitNumbers(text, ':', {hour, minute});
}

void ParseDateNoYear(char* text, int* month, int* day) {
    SplitNumbers(text, '-', {month, day});
}
