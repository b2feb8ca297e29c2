// Peers for values of keys, splitting, and texts changed in place.

#include <absl/strings/ascii.h>
#include <absl/strings/str_split.h>
#include <glib.h>

#include <cstring>

#include "bench/cases/strings.h"
#include "bench/peers/portable.h"
#include "bench/peers/row.h"
#include "bench/peers/rows.h"

namespace {

void CopyCut(char* dest, int size, const char* source, size_t length) {
    const size_t kept = std::min(length, static_cast<size_t>(size) - 1);
    memcpy(dest, source, kept);
    dest[kept] = '\0';
}

PEER int SplitByStrchr(const char* text, char* key, int key_size, char* value, int value_size,
                       char separator) {
    const char* const at = strchrnul(text, separator);
    CopyCut(key, key_size, text, static_cast<size_t>(at - text));
    CopyCut(value, value_size, at + 1, strlen(at + 1));
    return 0;
}

PEER int SplitByAbsl(const char* text, char* key, int key_size, char* value, int value_size,
                     char separator) {
    const std::pair<absl::string_view, absl::string_view> parts =
        absl::StrSplit(text, absl::MaxSplits(separator, 1));
    CopyCut(key, key_size, parts.first.data(), parts.first.size());
    CopyCut(value, value_size, parts.second.data(), parts.second.size());
    return 0;
}

PEER void TrimByAbsl(char* text) {
    const absl::string_view trimmed = absl::StripAsciiWhitespace(text);
    memmove(text, trimmed.data(), trimmed.size());
    text[trimmed.size()] = '\0';
}

PEER void TrimByGlib(char* text) {
    g_strstrip(text);
}

PEER int UpcaseByAbsl(char* text, int length) {
    for (int i = 0; i < length; ++i) {
        text[i] = absl::ascii_toupper(static_cast<unsigned char>(text[i]));
    }
    return 0;
}

PEER int UpcaseByGlib(char* text, int length) {
    for (int i = 0; i < length; ++i) {
        text[i] = g_ascii_toupper(text[i]);
    }
    return 0;
}

// absl works on a string of its own; 20 bytes are more than it holds without a heap block.
PEER int UpcaseStringByAbsl(char* text, int length) {
    const std::string upper =
        absl::AsciiStrToUpper(absl::string_view(text, static_cast<size_t>(length)));
    memcpy(text, upper.data(), upper.size());
    return 0;
}

template <int kKeys>
void AddValueRow() {
    Row<ValueOfKey<kKeys>, ExtractValue>()
        .template Peer<ValueBy<FindByStrstr>>("strstr")
        .template Peer<ValueBy<FindByMemmem>>("memmem");
}

}  // namespace

void AddStringRows() {
    AddValueRow<4>();
    AddValueRow<32>();
    AddValueRow<256>();
    Row<SplitKeyValue, SplitKeyValueByChar>()
        .Peer<SplitByStrchr>("strchr, memcpy")
        .Peer<SplitByAbsl>("absl StrSplit");
    Row<Trim, TrimAroundSpace>()
        .Peer<TrimByAbsl>("absl StripAsciiWhitespace")
        .Peer<TrimByGlib>("g_strstrip");
    Row<Upcase, Str2Upcase>()
        .Peer<UpcaseByAbsl>("absl ascii_toupper")
        .Peer<UpcaseStringByAbsl>("absl AsciiStrToUpper")
        .Peer<UpcaseByGlib>("g_ascii_toupper");
}
