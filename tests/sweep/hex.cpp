// Every pair of bytes through the functions that read hexadecimal digits.

#include <sstream>

#include "tests/sweep/sweep.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace sweep {
namespace {

constexpr int kBytes = 256;

// The value of each byte for str2Hex, which checks nothing.
int ValueOf(int byte) {
    switch (byte) {
        case 'A':
        case 'a':
            return 10;
        case 'B':
        case 'b':
            return 11;
        case 'C':
        case 'c':
            return 12;
        case 'D':
        case 'd':
            return 13;
        case 'E':
        case 'e':
            return 14;
        case 'F':
        case 'f':
            return 15;
        default:
            return byte - 48;
    }
}

bool DecodesAsNaive(const std::string& text) {
    unsigned char bytes[3] = {0x5A, 0x5A, 0x5A};
    const int count = Decode16(text.c_str(), bytes);
    const naive::Outcome expected = naive::Decode16(text.c_str(), "ZZZ");
    return count == expected.result && std::string(bytes, bytes + sizeof bytes) == expected.first;
}

void Check(int unit, Checks& checks) {
    for (int low = 0; low < kBytes; ++low) {
        const auto describe = [&] {
            std::ostringstream text;
            text << "bytes " << unit << " and " << low;
            return text.str();
        };
        checks.Expect(str2Hex(unit, low) == ((ValueOf(unit) * 16 + ValueOf(low)) & 0xFF), describe);
        // As callers pass them whose char is signed.
        const int high_signed = static_cast<signed char>(unit);
        const int low_signed = static_cast<signed char>(low);
        checks.Expect(str2Hex(high_signed, low_signed) ==
                          ((ValueOf(high_signed) * 16 + ValueOf(low_signed)) & 0xFF),
                      describe);
        const std::string pair = {static_cast<char>(unit), static_cast<char>(low)};
        checks.Expect(DecodesAsNaive(pair), describe);
        checks.Expect(DecodesAsNaive("7f" + pair), describe);
    }
}

}  // namespace

Sweep Hex() {
    return {"hex", "every pair of bytes through Decode16 and str2Hex", kBytes, Check};
}

}  // namespace sweep
