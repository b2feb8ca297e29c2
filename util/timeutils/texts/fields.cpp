// Reading a number at a fixed position.

#include "util/timeutils/texts/fields.h"

#include <cstring>

#include "util/integers.h"

namespace {

constexpr int kFieldSize = sizeof "2024";

}  // namespace

int ReadField(const char* text, int position, int width) {
    char field[kFieldSize] = {};
    const auto start = static_cast<size_t>(position);
    if (strnlen(text, start) == start) {
        strncpy(field, text + start, static_cast<size_t>(width));
    }
    return ReadInt(field);
}
