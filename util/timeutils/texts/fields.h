// Numbers at fixed positions of a text.
#ifndef UTIL_TIMEUTILS_TEXTS_FIELDS_H
#define UTIL_TIMEUTILS_TEXTS_FIELDS_H

// The number in the width characters, at most 4, that stand at position. As strtol has it, white
// space and a sign may precede the digits, the first other character ends them, and no number is
// 0. Nothing after the text's end is read.
int ReadField(const char* text, int position, int width);

#endif
