// Numbers at fixed positions of a text.
#ifndef UTIL_TIMEUTILS_FIELDS_H
#define UTIL_TIMEUTILS_FIELDS_H

// The number in the width characters, at most 4, that stand at position. It ends at the first
// character that is no digit; nothing behind the text's end is read, and no number is 0.
int ReadField(const char* text, int position, int width);

#endif
