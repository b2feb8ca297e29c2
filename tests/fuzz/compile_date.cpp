// ConvertCompileDate.

#include "tests/fuzz/input.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

namespace {

constexpr size_t kTextLength = 39;  // of a longer text the rest does not count

std::string Converted(const std::string& text, int size) {
    const std::string buffer = BufferOf(size);
    const auto dst = BlockOf(buffer);
    Require(ConvertCompileDate(ExactCopy(text).get(), dst.get(), size) == 1, "returns 1");
    return BytesOf(dst, buffer.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const int buffer_size = input.Between(-2, 30);
    const std::string text = input.Text();
    const std::string written = Converted(text, buffer_size);
    Require(buffer_size <= 0 || written.find('\0') != std::string::npos, "terminated");
    Require(written == Converted(text.substr(0, kTextLength), buffer_size),
            "the first 39 characters alone count");
    Require(written == naive::Put(BufferOf(buffer_size), buffer_size, naive::CompileDate(text)),
            "the digits of the naive one");
    return 0;
}
