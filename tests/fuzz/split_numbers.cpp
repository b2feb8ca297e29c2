// ParseDate, ParseTime, ParseTimeNoSec and ParseDateNoYear.

#include "tests/fuzz/input.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

namespace {

constexpr int kUnset = -777;

template <typename Parse>
void Check(const std::string& text, char separator, size_t count, const Parse& parse) {
    std::vector<int> numbers(count, kUnset);
    const naive::Split expected = naive::SplitNumbers(text, separator, numbers);
    const auto copy = ExactCopy(text);
    parse(copy.get(), numbers.data());
    Require(numbers == expected.numbers, "the numbers of the naive one");
    Require(BytesOf(copy, text.size() + 1) == expected.bytes + '\0', "the bytes of the naive one");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text = Input(data, size).Text();
    Check(text, '-', 3, [](char* copy, int* out) { ParseDate(copy, out, out + 1, out + 2); });
    Check(text, ':', 3, [](char* copy, int* out) { ParseTime(copy, out, out + 1, out + 2); });
    Check(text, ':', 2, [](char* copy, int* out) { ParseTimeNoSec(copy, out, out + 1); });
    Check(text, '-', 2, [](char* copy, int* out) { ParseDateNoYear(copy, out, out + 1); });
    return 0;
}
