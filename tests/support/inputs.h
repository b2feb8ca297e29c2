// Inputs in large numbers: every short text over an alphabet, and seeded random ones.
#ifndef TESTS_SUPPORT_INPUTS_H
#define TESTS_SUPPORT_INPUTS_H

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/random.h"

#if defined(__arm__) || defined(__SANITIZE_ADDRESS__) || !defined(__OPTIMIZE__)
constexpr int kRandomInputs = 100'000;  // slow programs take over a minute for a million of each
#else
constexpr int kRandomInputs = 1'000'000;
#endif

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
