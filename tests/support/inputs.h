// Inputs in large numbers: every short text over an alphabet, and seeded random ones.
#ifndef TESTS_SUPPORT_INPUTS_H
#define TESTS_SUPPORT_INPUTS_H

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#ifdef __arm__
constexpr int kRandomInputs = 100'000;  // qemu-arm takes over a minute for a million of each
#else
constexpr int kRandomInputs = 1'000'000;
#endif

// The same numbers on every target, which the standard's distributions do not promise.
class Random {
public:
    explicit Random(uint32_t seed) : engine_(seed) {}

    uint32_t Next() { return static_cast<uint32_t>(engine_()); }
    int Between(int low, int high) {
        return low + static_cast<int>(Next() % static_cast<uint32_t>(high - low + 1));
    }
    char OneOf(std::string_view alphabet) { return alphabet[Next() % alphabet.size()]; }

    // Of [0, max_length] bytes.
    std::string Text(std::string_view alphabet, int max_length) {
        std::string text(static_cast<size_t>(Between(0, max_length)), '\0');
        for (char& byte : text) {
            byte = OneOf(alphabet);
        }
        return text;
    }

private:
    std::mt19937 engine_;
};

// Calls check kRandomInputs times with a seeded source, up to the first ASSERT that fails.
template <typename Check>
void CheckRandom(uint32_t seed, const Check& check) {
    Random random(seed);
    for (int i = 0; i < kRandomInputs && !testing::Test::HasFatalFailure(); ++i) {
        check(random);
    }
}

// Calls check with every text of [0, max_length] bytes from alphabet, up to the first failure.
template <typename Check>
void CheckAllTexts(std::string_view alphabet, size_t max_length, const Check& check,
                   const std::string& start = {}) {
    check(start);
    if (start.size() < max_length) {
        for (size_t i = 0; i < alphabet.size() && !testing::Test::HasFatalFailure(); ++i) {
            CheckAllTexts(alphabet, max_length, check, start + alphabet[i]);
        }
    }
}

#endif
