// Trimming and upper-casing a text where it stands.

#include <cstring>

#include "log/log_line.h"
#include "util/trstrutils.h"

namespace {

constexpr const char* kLogTag = log_tag::kTrstrutils;

}  // namespace

void TrimAroundSpace(char* text) {
    if (text == nullptr || *text == '\0') {
        return;
    }
    char* start = text;
    while (*start == ' ') {
        ++start;
    }
    char* end = start + strlen(start);
    while (end > start && end[-1] == ' ') {
        --end;
    }
    *end = '\0';
    if (start != text) {
        memmove(text, start, static_cast<size_t>(end - start) + 1);
    }
}

int Str2Upcase(char* text, int length) {
    if (text == nullptr) {
        LOG(LOG_WARNING, "%s is NULL", "pStr");
        return -1;
    }
    for (int i = 0; i < length; ++i) {
        if (text[i] >= 'a' && text[i] <= 'z') {
            text[i] = static_cast<char>(text[i] - 'a' + 'A');
        }
    }
    return 0;
}
