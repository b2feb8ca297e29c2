// HourTimeFormatToCurMode and HourTimeFormatTo24Mode.

#include "tests/fuzz/input.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

namespace {

template <typename Convert>
void Check(const std::string& buffer, int size, bool to24, const Convert& convert) {
    const naive::HourText expected = naive::ConvertHourText(buffer, size, to24);
    const auto block = BlockOf(buffer);
    Require(convert(block.get(), size) == expected.result, "the result of the naive one");
    Require(BytesOf(block, buffer.size()) == expected.bytes, "the bytes of the naive one");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const int buffer_size = input.Between(-2, 80);
    const std::string buffer = BufferWith(input.Text(), buffer_size);
    const auto to_cur_24 = [](char* buf, int n) { return HourTimeFormatToCurMode(buf, n, 1); };
    const auto to_cur_12 = [](char* buf, int n) { return HourTimeFormatToCurMode(buf, n, 0); };
    Check(buffer, buffer_size, true, HourTimeFormatTo24Mode);
    Check(buffer, buffer_size, true, to_cur_24);
    Check(buffer, buffer_size, false, to_cur_12);
    return 0;
}
