// mktime_1 with the exported zone globals set.

#include <gtest/gtest.h>

#include <climits>
#include <ctime>

#include "tests/util/timeutils/any_int.h"
#include "tests/util/timeutils/date_records.h"
#include "tests/util/timeutils/values/naive_mktime.h"
#include "util/timeutils.h"

namespace {

// Sets the globals while it lives; afterwards they are zero again, as at the start.
class ScopedZone {
public:
    explicit ScopedZone(int zone, int bias = 0) {
        _timezone = zone;
        _dstbias = bias;
    }
    ~ScopedZone() {
        _timezone = 0;
        _dstbias = 0;
    }
    ScopedZone(const ScopedZone&) = delete;
    ScopedZone& operator=(const ScopedZone&) = delete;
};

struct tm Second(int seconds, int summer_flag = 0) {
    struct tm rec = RecordOf({1970, 1, 1}, {0, 0, seconds});
    rec.tm_isdst = summer_flag;
    return rec;
}

struct ZoneCase {
    int zone;
    int bias;
    int seconds;
    int summer_flag;
    time_t result;
};

void ExpectResults(std::initializer_list<ZoneCase> cases) {
    for (const auto& [zone, bias, seconds, summer_flag, result] : cases) {
        const ScopedZone scope(zone, bias);
        struct tm rec = Second(seconds, summer_flag);
        EXPECT_EQ(mktime_1(&rec), result)
            << zone << ' ' << bias << ' ' << seconds << ' ' << summer_flag;
    }
}

}  // namespace

TEST(mktime_1, AddsTheZone) {
    ExpectResults({
        {3600, 0, 1000, 0, 4600},
        {-3600, 0, 5000, 0, 1400},
        {-3600, 0, 3600, 0, 0},
        {1, 0, INT_MAX - 1, 0, INT_MAX},
        {INT_MAX, 0, 0, 0, INT_MAX},
        {-INT_MAX, 0, INT_MAX, 0, 0},
    });
}

TEST(mktime_1, RefusesWhatTheZoneMovesOutOfRange) {
    ExpectResults({
        {1, 0, INT_MAX, 0, -1},
        {INT_MAX, 0, 1, 0, -1},
        {-3600, 0, 3599, 0, -1},
        {-INT_MAX, 0, INT_MAX - 1, 0, -1},
    });
}

TEST(mktime_1, TheLowestZoneIsNotItselfAnOverflow) {
    // Its negation wraps to itself, so that no count is below it; a bias can bring the sum back.
    ExpectResults({
        {INT_MIN, 0, 0, 0, -1},  // the sum is below the bias of 0
        {INT_MIN, INT_MIN, 0, 1, 0},
        {INT_MIN, INT_MIN, 5, 1, 5},
        {INT_MIN, INT_MIN, INT_MAX, 1, INT_MAX},
        {INT_MIN, INT_MIN, 5, 0, -1},
    });
}

TEST(mktime_1, TakesTheBiasOffInSummer) {
    ExpectResults({
        {0, 3600, 10000, 0, 10000},
        {0, 3600, 10000, 1, 6400},
        {0, 3600, 10000, -1, 6400},
        {0, 3600, 10000, INT_MIN, 6400},
        {0, 3600, 3600, 1, 0},
        {0, 3600, 3599, 1, -1},
        {0, 3600, 3599, 0, 3599},
        {0, -3600, 10000, 1, 13600},
        {3600, 7200, 3600, 1, 0},
        {3600, 7200, 3599, 1, -1},
    });
}

TEST(mktime_1, ANegativeBiasWrapsUnnoticed) {
    // Callers that read 64 bits see the sign too.
    ExpectResults({
        {0, -1, INT_MAX, 1, INT_MIN},
        {0, INT_MIN, 0, 1, INT_MIN},
        {0, INT_MIN, 7, 1, INT_MIN + 7},
    });
}

TEST(EncodeTime, CountsAsSummerTimeForTheBias) {
    const ScopedZone scope(0, 3600);
    struct tm rec = Second(10000);
    EXPECT_EQ(EncodeTime(&rec), 6400);
}

TEST(mktime_1, NormalisesTheRecordWithoutTheZone) {
    const ScopedZone scope(3600, 7200);
    struct tm rec = Second(86400, 1);
    EXPECT_EQ(mktime_1(&rec), 86400 + 3600 - 7200);
    EXPECT_EQ(FieldsOf(rec), (std::array{0, 0, 0, 2, 0, 70, 5, 1, 1}));
}

TEST(mktime_1, NeverReadsTheDaylightGlobal) {
    _daylight = 1;
    struct tm rec = Second(10000, 1);
    EXPECT_EQ(mktime_1(&rec), 10000);
    EXPECT_EQ(_daylight, 1);
    _daylight = 0;
}

TEST(mktime_1, NeverWritesTheZoneGlobals) {
    const ScopedZone scope(-5, 11);
    struct tm rec = Second(10000, 1);
    mktime_1(&rec);
    EncodeTime(&rec);
    EXPECT_EQ(_timezone, -5);
    EXPECT_EQ(_dstbias, 11);
    EXPECT_EQ(_daylight, 0);
}

TEST(mktime_1, AgreesWithTheNaiveOneInEveryZone) {
    Random random(4711);
    for (int i = 0; i < 5'000; ++i) {
        const ScopedZone scope(AnyInt(random), AnyInt(random));
        struct tm rec = Second(AnyInt(random), random.Between(-1, 1));
        struct tm naive_rec = rec;
        ASSERT_EQ(mktime_1(&rec), naive::mktime_1(&naive_rec)) << _timezone << ' ' << _dstbias;
        ASSERT_TRUE(SameBytes(rec, naive_rec));
    }
}
