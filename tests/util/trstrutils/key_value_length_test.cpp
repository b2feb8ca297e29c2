// ExtractValue with values beyond 16 bits.

#include <gtest/gtest.h>

#include <string>

#include "tests/support/guarded_buffer.h"
#include "util/trstrutils.h"

TEST(ExtractValue, TakesValuesOfAnyLength) {
    const std::string value(100000, 'v');
    GuardedBuffer out(100001);
    EXPECT_EQ(ExtractValue(("a=" + value).c_str(), "a", ',', out.data(), 100001), 100000);
    out.ExpectHolds(Terminated(value));
}
