// ExtractValue and ExtractValueInt.

#include "tests/fuzz/input.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const int separator = input.Between(0, 255);
    const int out_max = input.Between(-1, 64);
    const std::string key = input.Text(static_cast<size_t>(input.Between(0, 210)));
    const std::string text = input.Text();

    naive::Outcome outcome = {-2, BufferOf(out_max), ""};
    const naive::Outcome expected =
        naive::ExtractValue(text, key, separator, outcome.first, out_max);
    const auto out = BlockOf(outcome.first);
    outcome.result =
        ExtractValue(ExactCopy(text).get(), ExactCopy(key).get(), separator, out.get(), out_max);
    outcome.first = BytesOf(out, outcome.first.size());
    Require(outcome == expected, "ExtractValue as the naive one");

    const int number = ExtractValueInt(ExactCopy(text).get(), ExactCopy(key).get(), separator, -77);
    Require(number == naive::ExtractValueInt(text, key, separator, -77),
            "ExtractValueInt as the naive one");
    return 0;
}
