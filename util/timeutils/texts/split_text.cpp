// The numbers of a date or clock text, taken apart at its separators.

#include <cstring>
#include <initializer_list>

#include "util/digits.h"
#include "util/timeutils.h"

namespace {

void ReadInto(int* number, const char* text) {
    if (number != nullptr) {
        *number = ReadInt(text);
    }
}

// Reads first and, after a separator each, others, until a separator is missing. The separators
// that were passed are overwritten, one after the last number is not.
void SplitNumbers(char* text, char separator, int* first, std::initializer_list<int*> others) {
    if (text == nullptr) {
        return;
    }
    ReadInto(first, text);
    for (int* const number : others) {
        text = strchr(text, separator);
        if (text == nullptr) {
            return;
        }
        *text++ = '\0';
        ReadInto(number, text);
    }
}

}  // namespace

void ParseDate(char* text, int* year, int* month, int* day) {
    SplitNumbers(text, '-', year, {month, day});
}

void ParseTime(char* text, int* hour, int* minute, int* second) {
    SplitNumbers(text, ':', hour, {minute, second});
}

void ParseTimeNoSec(char* text, int* hour, int* minute) {
    SplitNumbers(text, ':', hour, {minute});
}

void ParseDateNoYear(char* text, int* month, int* day) {
    SplitNumbers(text, '-', month, {day});
}
