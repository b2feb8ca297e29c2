// Numbers: checksum, sorting, reading.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <vector>

#include "util/trstrutils.h"

namespace {

constexpr int kPacketWords = 750;  // an Ethernet frame
constexpr int kSortedNumbers = 1000;

std::vector<int> RandomNumbers(int count) {
    std::mt19937 random(1);
    std::vector<int> numbers(static_cast<size_t>(count));
    for (int& number : numbers) {
        number = static_cast<int>(random());
    }
    return numbers;
}

std::vector<unsigned short> RandomPacket() {
    std::vector<unsigned short> packet;
    for (const int number : RandomNumbers(kPacketWords)) {
        packet.push_back(static_cast<unsigned short>(number));
    }
    return packet;
}

void Checksum(benchmark::State& state) {
    const auto packet = RandomPacket();
    for (auto _ : state) {
        benchmark::DoNotOptimize(in_chksum(packet.data(), 2 * kPacketWords));
    }
}
BENCHMARK(Checksum)->Name("in_chksum/orvatool");

void ChecksumFoldingEachWord(benchmark::State& state) {
    const auto packet = RandomPacket();
    for (auto _ : state) {
        unsigned int sum = 0;
        for (const unsigned short word : packet) {
            sum += word;
            sum = (sum & 0xFFFF) + (sum >> 16);
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(ChecksumFoldingEachWord)->Name("in_chksum/fold each word");

void Sort(benchmark::State& state) {
    const auto numbers = RandomNumbers(kSortedNumbers);
    for (auto _ : state) {
        auto copy = numbers;
        MergeSort(copy.data(), kSortedNumbers);
        benchmark::DoNotOptimize(copy.data());
    }
}
BENCHMARK(Sort)->Name("MergeSort/orvatool");

void StableSort(benchmark::State& state) {
    const auto numbers = RandomNumbers(kSortedNumbers);
    for (auto _ : state) {
        auto copy = numbers;
        std::stable_sort(copy.begin(), copy.end());
        benchmark::DoNotOptimize(copy.data());
    }
}
BENCHMARK(StableSort)->Name("MergeSort/std::stable_sort");

void ReadNumber(benchmark::State& state) {
    for (auto _ : state) {
        const char* text = "-1234567";
        benchmark::DoNotOptimize(text);
        benchmark::DoNotOptimize(str2int(text, 0));
    }
}
BENCHMARK(ReadNumber)->Name("str2int/orvatool");

void Strtol(benchmark::State& state) {
    for (auto _ : state) {
        const char* text = "-1234567";
        benchmark::DoNotOptimize(text);
        benchmark::DoNotOptimize(strtol(text, nullptr, 10));
    }
}
BENCHMARK(Strtol)->Name("str2int/strtol");

}  // namespace
