// str2int and ConvertStrToInt, which read alike.

#include "tests/fuzz/input.h"
#include "tests/util/trstrutils/naive.h"
#include "util/timeutils.h"
#include "util/trstrutils.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const int default_value = input.Between(-128, 127);
    const std::string text = input.Text();
    const int expected = naive::str2int(text, default_value);
    Require(str2int(ExactCopy(text).get(), default_value) == expected, "str2int as the naive one");
    Require(ConvertStrToInt(ExactCopy(text).get(), default_value) == expected,
            "ConvertStrToInt as the naive one");
    return 0;
}
