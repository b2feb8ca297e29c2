// The time stamp of a log line.

#include <string>
#include <vector>

#include "log/log.h"
#include "tests/log/fake_localtime.h"
#include "tests/log/fresh_log.h"
#include "tests/support/fake_clock.h"
#include "tests/support/log_lines.h"
#include "tests/support/time_zone.h"

namespace {

std::string TakeStamp(CapturedLog& log) {
    const std::vector<LogHead> heads = log.TakeHeads();
    return heads.size() == 1 ? heads[0].stamp : "not one line";
}

}  // namespace

class LogStamp : public FreshLog {
protected:
    FakeLocaltime localtime_;
};

TEST_F(LogStamp, IsLocalTime) {
    CapturedLog log;
    const FakeClock clock(1720094400);  // 2024-07-04 12:00:00 UTC
    const struct {
        const char* zone;
        const char* stamp;
    } kCases[] = {
        {"UTC0", "2024-07-04T12:00:00"},
        {kCentralEurope, "2024-07-04T14:00:00"},
        {"XYZ-5:45", "2024-07-04T17:45:00"},
        {"HST10", "2024-07-04T02:00:00"},
    };
    for (const auto& [name, stamp] : kCases) {
        const ScopedTimeZone zone(name);
        PrintLog(LOG_INFO, "f", "g", 1, "m");
        EXPECT_EQ(TakeStamp(log), stamp) << name;
    }
}

TEST_F(LogStamp, FollowsSummerTime) {
    const ScopedTimeZone zone(kCentralEurope);
    CapturedLog log;
    FakeClock clock(1711846799);  // 2024-03-31 00:59:59 UTC, the last second of winter
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeStamp(log), "2024-03-31T01:59:59");
    clock.Advance(1);
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeStamp(log), "2024-03-31T03:00:00");
}

TEST_F(LogStamp, PadsEveryField) {
    const ScopedTimeZone zone("UTC0");
    CapturedLog log;
    FakeClock clock(981173106);  // 2001-02-03 04:05:06
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeStamp(log), "2001-02-03T04:05:06");
    clock.Set(-1);
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeStamp(log), "1969-12-31T23:59:59");
}

TEST_F(LogStamp, HasNoFractionOfASecond) {
    const ScopedTimeZone zone("UTC0");
    CapturedLog log;
    const FakeClock clock(0, 999999);
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(TakeStamp(log), "1970-01-01T00:00:00");
}

TEST_F(LogStamp, KeepsFourCharactersOfTheYear) {
    CapturedLog log;
    struct tm local = {};
    local.tm_mday = 1;
    localtime_.answer = &local;
    const struct {
        int tm_year;
        const char* stamp;
    } kCases[] = {
        {9999 - 1900, "9999-01-01T00:00:00"},  {10000 - 1900, "1000-01-01T00:00:00"},
        {12345 - 1900, "1234-01-01T00:00:00"}, {999 - 1900, "0999-01-01T00:00:00"},
        {5 - 1900, "0005-01-01T00:00:00"},     {-5 - 1900, "-005-01-01T00:00:00"},
        {-1234 - 1900, "-123-01-01T00:00:00"},
    };
    for (const auto& [tm_year, stamp] : kCases) {
        local.tm_year = tm_year;
        PrintLog(LOG_INFO, "f", "g", 1, "m");
        EXPECT_EQ(TakeStamp(log), stamp) << tm_year;
    }
}

TEST_F(LogStamp, DoesNotReadTheClockForALineThatIsOff) {
    CapturedLog log;
    gLogMask = LOG_ERROR;
    PrintLog(LOG_INFO, "f", "g", 1, "m");
    EXPECT_EQ(localtime_.calls, 0);
    PrintLog(LOG_ERROR, "f", "g", 1, "m");
    EXPECT_EQ(localtime_.calls, 1);
}
