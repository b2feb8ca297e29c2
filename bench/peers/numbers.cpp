// Peers for checksums, sorting and hexadecimal digits.

#include <absl/strings/escaping.h>

#include <cstdlib>
#include <cstring>

#include "bench/cases/numbers.h"
#include "bench/peers/portable.h"
#include "bench/peers/row.h"
#include "bench/peers/rows.h"

// Its header belongs to a build of the whole stack.
extern "C" uint16_t inet_chksum(const void* data, uint16_t length);

namespace {

int FoldedComplement(uint64_t sum) {
    while (sum > 0xFFFF) {
        sum = (sum & 0xFFFF) + (sum >> 16);
    }
    return static_cast<uint16_t>(~sum);
}

// 32-bit sums of 16-bit words: the compiler makes vectors of them. Enough for 128 KB.
PEER int VectorisedAdds(const unsigned short* buffer, int length) {
    uint32_t sum = 0;
    for (int i = 0; i < length / 2; ++i) {
        sum += buffer[i];
    }
    return FoldedComplement(sum);
}

// 32-bit words into 64 bits; what is left over by halves.
PEER int WordAdds(const unsigned short* buffer, int length) {
    uint64_t sum = 0;
    for (; length >= 4; length -= 4, buffer += 2) {
        uint32_t word;
        memcpy(&word, buffer, sizeof word);
        sum += word;
    }
    if (length >= 2) {
        sum += *buffer;
    }
    return FoldedComplement(sum);
}

PEER int Lwip(const unsigned short* buffer, int length) {
    return inet_chksum(buffer, static_cast<uint16_t>(length));
}

// Adds that lose their carries: no checksum, but every byte is read, as fast as adding goes.
PEER int PlainAdds(const unsigned short* buffer, int length) {
    const auto* const bytes = reinterpret_cast<const unsigned char*>(buffer);
    const size_t words = static_cast<size_t>(length) / sizeof(uint64_t);
    uint64_t sum = 0;
    for (size_t i = 0; i < words; ++i) {
        uint64_t word;
        memcpy(&word, bytes + i * sizeof word, sizeof word);
        sum += word;
    }
    return static_cast<int>(sum);
}

// glibc's qsort is a merge sort too.
PEER void Qsort(int* array, int count) {
    qsort(array, static_cast<size_t>(count), sizeof *array, [](const void* a, const void* b) {
        const int left = *static_cast<const int*>(a);
        const int right = *static_cast<const int*>(b);
        return (left > right) - (left < right);
    });
}

// One heap block per merge, filled and copied back, with nothing compared.
PEER void BlockPerMerge(int* array, int count) {
    for (int width = 1; width < count; width *= 2) {
        for (int low = 0; low < count - width; low += 2 * width) {
            const auto size = static_cast<size_t>(std::min(2 * width, count - low)) * sizeof *array;
            void* const block = malloc(size);
            memcpy(block, array + low, size);
            benchmark::DoNotOptimize(block);
            memcpy(array + low, block, size);
            free(block);
        }
    }
}

PEER int AbslHex(const char* hex, unsigned char* out) {
    const std::string bytes = absl::HexStringToBytes(hex);
    memcpy(out, bytes.data(), bytes.size());
    return static_cast<int>(bytes.size());
}

constexpr int kNoDigit = -1;

constexpr std::array<signed char, 256> kDigitValues = [] {
    std::array<signed char, 256> values = {};
    values.fill(kNoDigit);
    for (int i = 0; i < 16; ++i) {
        values[static_cast<size_t>("0123456789abcdef"[i])] = static_cast<signed char>(i);
        values[static_cast<size_t>("0123456789ABCDEF"[i])] = static_cast<signed char>(i);
    }
    return values;
}();

// The well-known way: a table of all characters.
PEER int TableHex(const char* hex, unsigned char* out) {
    const auto* const digits = reinterpret_cast<const unsigned char*>(hex);
    const size_t pairs = strlen(hex) / 2;
    for (size_t i = 0; i < pairs; ++i) {
        const int byte = kDigitValues[digits[2 * i]] * 16 | kDigitValues[digits[2 * i + 1]];
        if (byte < 0) {
            return 0;
        }
        out[i] = static_cast<unsigned char>(byte);
    }
    return static_cast<int>(pairs);
}

template <int kDigits>
void AddHexRow() {
    Row<Hex<kDigits>, Decode16>()
        .template Peer<AbslHex>("absl HexStringToBytes")
        .template Peer<TableHex>("a table of digits");
}

template <int kBytes>
void AddChecksumRow() {
    Row<Checksum<kBytes>, in_chksum>()
        .template Peer<VectorisedAdds>("16-bit adds, vectorised")
        .template Peer<WordAdds>("32-bit adds into 64 bits")
        .template Peer<Lwip>("lwIP")
        .template Limit<PlainAdds>("64-bit adds that lose their carries");
}

template <class Case>
void AddSortRow() {
    Row<Case, MergeSort>()
        .template Peer<StableSort>("std::stable_sort")
        .template Peer<Qsort>("qsort")
        .template Floor<BlockPerMerge>("a heap block per merge");
}

}  // namespace

void AddNumberRows() {
    AddChecksumRow<20>();
    AddChecksumRow<64>();
    AddChecksumRow<1500>();
    AddChecksumRow<16384>();
    AddSortRow<Sort<16>>();
    AddSortRow<Sort<256>>();
    AddSortRow<Sort<4096>>();
    AddSortRow<Sort<65536>>();
    AddSortRow<Sort<4096, true>>();
    AddHexRow<12>();
    AddHexRow<1024>();
}
