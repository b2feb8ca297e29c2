// A cut of each exhaustive comparison; `script/sweep` runs them whole.

#include "tests/sweep/sweep.h"

#include <gtest/gtest.h>

#include "tests/support/random.h"
#include "tests/support/time_zone.h"

namespace {

// Some units in seeded random order, the first and the last among them.
void ExpectAgrees(const sweep::Sweep& sweep, int units) {
    const ScopedTimeZone zone("UTC0");
    Random random(4711);
    sweep::Checks checks;
    sweep.check(0, checks);
    sweep.check(sweep.units - 1, checks);
    for (int i = 2; i < units && !checks.failed(); ++i) {
        sweep.check(random.Between(0, sweep.units - 1), checks);
    }
    EXPECT_EQ(checks.failure(), "");
    EXPECT_GE(checks.count(), units);
}

}  // namespace

TEST(Sweep, OfSecondsAgreesInSomeHours) {
    ExpectAgrees(sweep::Seconds(), 4);
}

TEST(Sweep, OfCalendarsAgreesInSomeYears) {
    ExpectAgrees(sweep::Calendars(), 40);
}

TEST(Sweep, OfTextsAgreesForSomeFirstCharacters) {
    ExpectAgrees(sweep::Texts(), 3);
}

TEST(Sweep, OfHexAgreesForEveryPairOfBytes) {
    sweep::Checks checks;
    for (int unit = 0; unit < sweep::Hex().units; ++unit) {
        sweep::Hex().check(unit, checks);
    }
    EXPECT_EQ(checks.failure(), "");
    EXPECT_EQ(checks.count(), 4 * 256 * 256);
}

TEST(Sweep, OfDatesAgreesInSomeYears) {
    ExpectAgrees(sweep::Dates(), 6);
}

TEST(Sweep, KeepsTheFirstDifference) {
    sweep::Checks checks;
    checks.Expect(true, [] { return "none"; });
    EXPECT_FALSE(checks.failed());
    checks.Expect(false, [] { return "first"; });
    checks.Expect(false, [] { return "second"; });
    EXPECT_EQ(checks.failure(), "first");
    EXPECT_EQ(checks.count(), 3);
}
