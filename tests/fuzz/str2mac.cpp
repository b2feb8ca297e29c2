// str2mac.

#include "tests/fuzz/input.h"
#include "util/timeutils.h"

namespace {

constexpr size_t kGroups = 6;
constexpr char kHexDigits[] = "0123456789abcdefABCDEF";

// Whether group is one of hexadecimal digits with a value that fits a byte. A value of more than 32
// bits loses its high ones, and one with the sign bit counts as negative, not as large.
bool IsGroup(const std::string& group, char& byte) {
    uint32_t value = 0;
    for (const char character : group) {
        const size_t digit = std::string(kHexDigits).find(character);
        if (digit == std::string::npos) {
            return false;
        }
        value = value * 16 + static_cast<uint32_t>(digit < 16 ? digit : digit - 6);
    }
    byte = static_cast<char>(value);
    return static_cast<int32_t>(value) <= 255;
}

// The address, or an empty text.
std::string NaiveAddress(const std::string& text) {
    std::string address;
    size_t start = 0;
    while (true) {
        const size_t end = std::min(text.find(':', start), text.size());
        char byte;
        if (!IsGroup(text.substr(start, end - start), byte)) {
            return "";
        }
        address += byte;
        if (address.size() == kGroups) {
            return address;
        }
        if (end == text.size()) {
            return "";
        }
        start = end + 1;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text = Input(data, size).Text();
    const auto out = BlockOf("xxxxxx");
    const int result = str2mac(ExactCopy(text).get(), reinterpret_cast<unsigned char*>(out.get()));
    const std::string written = BytesOf(out, kGroups);
    Require(result == 0 || result == -1, "0 or -1");
    if (result == -1) {
        Require(written == "xxxxxx", "nothing is written on failure");
    }
    const std::string expected = NaiveAddress(text);
    Require(result == (expected.empty() ? -1 : 0), "the result of the naive one");
    Require(result == -1 || written == expected, "the address of the naive one");
    return 0;
}
