// SplitByChar and SplitKeyValueByChar.

#include "tests/fuzz/input.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace {

// The buffers have the sizes that callers must give: the whole text, and for rest a byte before it.
void CheckSplitByChar(const std::string& text, int separator) {
    naive::Outcome outcome = {0, std::string(text.size() + 1, 'f'),
                              std::string(text.size() + 2, 'r')};
    const naive::Outcome expected =
        naive::SplitByChar(text, outcome.first, outcome.second, separator);
    const auto first = BlockOf(outcome.first);
    const auto rest = BlockOf(outcome.second);
    const char* const end =
        SplitByChar(ExactCopy(text).get(), first.get(), rest.get() + 1, separator);
    outcome.result = end - (rest.get() + 1);
    outcome.first = BytesOf(first, outcome.first.size());
    outcome.second = BytesOf(rest, outcome.second.size());
    Require(outcome == expected, "SplitByChar as the naive one");
}

// A value buffer needs room for the zero at the key's length as well.
void CheckSplitKeyValueByChar(const std::string& text, int key_size, int value_size,
                              char separator) {
    const auto key_bytes = static_cast<size_t>(std::max(key_size, 0));
    const auto value_bytes = std::max(static_cast<size_t>(std::max(value_size, 0)), key_bytes);
    naive::Outcome outcome = {-1, std::string(key_bytes, 'k'), std::string(value_bytes, 'v')};
    const naive::Outcome expected = naive::SplitKeyValueByChar(
        text, outcome.first, key_size, outcome.second, value_size, separator);
    const auto key = BlockOf(outcome.first);
    const auto value = BlockOf(outcome.second);
    outcome.result = SplitKeyValueByChar(ExactCopy(text).get(), key.get(), key_size, value.get(),
                                         value_size, separator);
    outcome.first = BytesOf(key, key_bytes);
    outcome.second = BytesOf(value, value_bytes);
    Require(outcome == expected, "SplitKeyValueByChar as the naive one");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const int separator = input.Between(0, 255);
    const int key_size = input.Between(-2, 60);
    const int value_size = input.Between(-2, 60);
    const std::string text = input.Text();
    CheckSplitByChar(text, separator);
    CheckSplitKeyValueByChar(text, key_size, value_size, static_cast<char>(separator));
    return 0;
}
