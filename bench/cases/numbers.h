// Checksums, sorting, hexadecimal digits.
#ifndef BENCH_CASES_NUMBERS_H
#define BENCH_CASES_NUMBERS_H

#include <cstring>

#include "bench/case.h"
#include "util/trstrutils.h"

template <int kBytes>
struct Checksum {
    using Packet = std::vector<unsigned short>;

    static std::string Name() { return "checksum_" + std::to_string(kBytes); }
    static std::vector<Packet> Inputs() {
        return MakeInputs(
            [](Numbers& numbers) {
                Packet packet(kBytes / 2);
                std::generate(packet.begin(), packet.end(), [&numbers] {
                    return static_cast<unsigned short>(numbers.Between(0, 0xFFFF));
                });
                return packet;
            },
            kBytes > 1000 ? 16 : kInputs);
    }
    template <auto kFunction>
    static int Call(const Packet& packet) {
        return kFunction(packet.data(), kBytes);
    }
};

// Each call sorts a fresh copy.
template <int kCount, bool kSorted = false>
struct Sort {
    using Array = std::vector<int>;

    static std::string Name() {
        return (kSorted ? "sort_sorted_" : "sort_") + std::to_string(kCount);
    }
    static std::vector<Array> Inputs() {
        return MakeInputs(
            [](Numbers& numbers) {
                Array array(kCount);
                std::generate(array.begin(), array.end(),
                              [&numbers] { return numbers.Between(-1000000, 1000000); });
                if (kSorted) {
                    std::sort(array.begin(), array.end());
                }
                return array;
            },
            std::clamp(65536 / kCount, 2, kInputs));
    }
    template <auto kFunction>
    static const Array& Call(const Array& input) {
        static Array array(kCount);
        memcpy(array.data(), input.data(), kCount * sizeof(int));
        kFunction(array.data(), kCount);
        return array;
    }
};

template <int kDigits>
struct Hex {
    using Bytes = std::array<unsigned char, kDigits / 2>;

    static std::string Name() { return "hex_" + std::to_string(kDigits); }
    static std::vector<std::string> Inputs() {
        return MakeInputs(
            [](Numbers& numbers) {
                std::string digits(kDigits, '0');
                for (char& digit : digits) {
                    digit = "0123456789abcdefABCDEF"[numbers.Between(0, 21)];
                }
                return digits;
            },
            kDigits > 1000 ? 64 : kInputs);
    }
    template <auto kFunction>
    static Bytes Call(const std::string& digits) {
        Bytes bytes;
        kFunction(digits.c_str(), bytes.data());
        return bytes;
    }
};

#endif
