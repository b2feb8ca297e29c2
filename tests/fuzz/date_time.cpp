// StrTimeToSec, OldStrTimeToSec, StrTimeToTTime and StrTimeToTm.

#include <climits>

#include "tests/fuzz/input.h"
#include "util/timeutils.h"

namespace {

// Of a text that has the form, the seconds are those of the C library.
void CheckSeconds(const std::string& text, time_t seconds) {
    struct tm rec = {};
    if (strptime(text.c_str(), "%Y-%m-%dT%H:%M:%S", &rec) == nullptr) {
        return;
    }
    const int year = rec.tm_year;
    const time_t exact = timegm(&rec);
    if (year >= 70 && exact <= INT_MAX) {
        Require(seconds == exact, "the seconds of the C library");
    }
    if (year < 69 || exact > INT_MAX) {
        Require(seconds == -1, "-1 outside 1970 to 2038");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text = Input(data, size).Text();
    const auto copy = ExactCopy(text);
    const time_t seconds = StrTimeToSec(copy.get());
    Require(seconds >= -1 && seconds <= INT_MAX, "in range");
    if (text.empty()) {
        Require(seconds == 0, "0 for an empty text");
    } else {
        CheckSeconds(text, seconds);
    }

    TTime rec = {};
    Require(StrTimeToTTime(&rec, copy.get()) == 1, "StrTimeToTTime returns 1");
    Require(OldStrTimeToSec(copy.get()) == OldEncodeTime(&rec), "both read alike");
    Require(StrTimeToTm(&rec, copy.get()) == 1, "StrTimeToTm returns 1");
    return 0;
}
