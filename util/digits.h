// Numbers written as digits and read from them, the way printf and strtol do it, without their
// cost.
#ifndef UTIL_DIGITS_H
#define UTIL_DIGITS_H

constexpr int kDecimalBase = 10;
constexpr int kIntSize = sizeof "-2147483648" - 1;  // characters of the longest int

// Writes value as "%02d" or "%04d" do for a width of 2 or 4, without a terminator. Returns the end.
template <int width>
char* WriteNumber(char* out, int value);

// Writes three numbers, the first one in width characters and the others in two, as
// "%04d-%02d-%02d" does. No terminator. Returns the end.
template <int width>
char* WriteThree(char* out, int first, char separator, int second, int third);

// Writes 08:09.
char* WriteHourAndMinute(char* out, int hour, int minute);

constexpr int kThreeNumbersSize = 3 * kIntSize + 2;

// Puts the text from begin to end into a caller's buffer as snprintf does: cut to size less one,
// terminated, and nothing at all for a size below 1.
void PutText(char* buf, int size, const char* begin, const char* end);

// The decimal number at the start of text, as strtol reads it: white space and a sign may come
// first, the first other character ends it, and no number is 0. Stops at the limits of int.
int ReadInt(const char* text);

// As ReadInt in the first width characters of text, at most 4: for fields of any width, and for
// those that begin with something else than a digit.
int ReadOddField(const char* text, int width);

// As ReadInt in the first width characters of text, at most 4.
template <int width>
inline int ReadField(const char* text) {
    int number = 0;
    for (int i = 0; i < width; ++i) {
        const int digit = text[i] - '0';
        if (digit < 0 || digit >= kDecimalBase) {
            return i > 0 ? number : ReadOddField(text, width);
        }
        number = number * kDecimalBase + digit;
    }
    return number;
}

#endif
