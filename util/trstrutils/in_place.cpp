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
    size_t end = strlen(text);
    while (end > 0 && text[end - 1] == ' ') {
        --end;
    }
    text[end] = '\0';
    const size_t start = strspn(text, " ");
    memmove(text, text + start, end - start + 1);
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
