// The line that PrintLog writes.

#include <gtest/gtest.h>

#include "log/log.h"
#include "log/state.h"
#include "tests/support/fake_clock.h"
#include "tests/support/log_lines.h"
#include "tests/support/time_zone.h"

TEST(PrintLog, WritesHeadMessageAndNewline) {
    const ScopedTimeZone zone(kCentralEurope);
    const FakeClock clock(1709644029);  // 2024-03-05 13:07:09 UTC
    CapturedLog log;
    SetLogProgName("orvatool");
    PrintLog(LOG_INFO, "udiskdetection", "DoUmount", 180, "umounted %s\n", "/mnt/removable");
    EXPECT_EQ(log.TakeText(),
              "[orvatool:2024-03-05T14:07:09] Info [udiskdetection DoUmount 180]: umounted "
              "/mnt/removable\n\n");
    SetLogProgName("");
}
