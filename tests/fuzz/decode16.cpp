// Decode16.

#include "tests/fuzz/input.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string hex = Input(data, size).Text();
    naive::Outcome outcome = {-1, std::string(hex.size() / 2, 'o'), ""};
    const naive::Outcome expected = naive::Decode16(hex, outcome.first);
    const auto out = BlockOf(outcome.first);
    outcome.result = Decode16(ExactCopy(hex).get(), reinterpret_cast<unsigned char*>(out.get()));
    outcome.first = BytesOf(out, outcome.first.size());
    Require(outcome == expected, "Decode16 as the naive one");
    return 0;
}
