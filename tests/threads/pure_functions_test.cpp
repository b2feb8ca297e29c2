// Every pure function that the headers let several threads call at once, with random calls.

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "tests/threads/at_once.h"
#include "tests/vectors/call.h"

namespace {

constexpr int kCalls = 40;

// The first three go through the C library's shared record; calls of the last set the zone's
// globals, which is not for two threads either. EncodeTime has its code.
constexpr std::string_view kNotAtOnce[] = {"DecodeTime", "SecToHMTime", "SecToYMDTime", "mktime_1"};

bool MayRunAtOnce(const vectors::Function& function) {
    return std::ranges::find(kNotAtOnce, function.name) == std::end(kNotAtOnce);
}

}  // namespace

TEST(PureFunctions, GiveEachThreadWhatTheyGiveOneAlone) {
    size_t called = 0;
    for (const vectors::Function* const function : vectors::AllFunctions()) {
        if (!MayRunAtOnce(*function)) {
            continue;
        }
        ++called;
        const uint64_t alone = DigestOfRandomCalls(*function, function->product, kCalls);
        AtOnce(
            [&](int) {
                EXPECT_EQ(DigestOfRandomCalls(*function, function->product, kCalls), alone)
                    << function->name;
            },
            1);
    }
    EXPECT_EQ(called, vectors::AllFunctions().size() - std::size(kNotAtOnce));
    EXPECT_GT(called, 40U);
}
