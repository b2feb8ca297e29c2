// TimeTimeToInt.

#include <vector>

#include "tests/fuzz/input.h"
#include "util/timeutils.h"

namespace {

constexpr char kDigits[] = "0123456789";

std::vector<int> NaiveNumbers(const std::string& text, std::vector<int> out) {
    size_t i = 0;
    for (size_t at = 0; at < text.size() && i < out.size();) {
        const size_t end = std::min(text.find_first_not_of(kDigits, at), text.size());
        if (end > at) {
            uint32_t value = 0;
            for (; at < end; ++at) {
                value = value * 10 + static_cast<uint32_t>(text[at] - '0');
            }
            out[i] = static_cast<int>(value);
        }
        at = std::min(text.find_first_of(kDigits, end), text.size());
        ++i;
    }
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const int count = input.Between(-2, 12);
    const std::string text = input.Text();
    std::vector<int> out(static_cast<size_t>(std::max(count, 0)), -777);
    out.reserve(1);  // for an address also where there is no number
    const std::vector<int> expected = NaiveNumbers(text, out);
    Require(TimeTimeToInt(ExactCopy(text).get(), out.data(), count) == (count == 0 ? -1 : 0),
            "the result");
    Require(out == expected, "the numbers of the naive one");
    return 0;
}
