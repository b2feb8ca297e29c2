// SyncSysTime. The system's clock is never touched here: settimeofday is always replaced.

#include <gtest/gtest.h>
#include <sys/time.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "tests/support/captured_stream.h"
#include "tests/support/dirty_stack.h"
#include "tests/support/open_descriptors.h"
#include "tests/support/recorded_log.h"
#include "tests/support/time_zone.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"

namespace {

using Calls = std::vector<std::string>;

// While it lives, the steps of SyncSysTime are recorded.
struct FakeSystem {
    FakeSystem() : log([this](const std::string& line) { Record(line); }) { active = this; }
    ~FakeSystem() { active = nullptr; }
    FakeSystem(const FakeSystem&) = delete;
    FakeSystem& operator=(const FakeSystem&) = delete;

    Calls calls;
    std::vector<int> set_errors;     // of each settimeofday: 0 for success; later ones succeed
    int get_error = 0;               // of gettimeofday
    const TTime* watched = nullptr;  // its minutes are recorded with each step
    bool runs_commands = false;

    size_t sets = 0;
    CapturedStream* output = nullptr;
    std::string printed_before;  // the output when the clock was set

    void Record(const std::string& call) {
        const bool is_watching = watched != nullptr;
        calls.push_back(is_watching ? std::to_string(watched->tm_min) + " " + call : call);
    }

    const RecordedLog log;
    inline static FakeSystem* active = nullptr;
};

std::string LogCall(const char* message) {
    return std::string("Debug timeutils SyncSysTime: ") + message;
}

// All the steps, with what is done between the two commands.
Calls StepsAround(const Calls& steps) {
    Calls calls = {LogCall("set time test by qhm begin"), "systemEx date"};
    calls.insert(calls.end(), steps.begin(), steps.end());
    calls.push_back("systemEx date");
    calls.push_back(LogCall("set time test by qhm end"));
    return calls;
}

constexpr char kSetInZone[] = "settimeofday 1715069351.000000 zone -60 1";
constexpr char kSetAlone[] = "settimeofday 1715069351.000000 no zone";

TTime KnownTime() {
    return RecordOf({2024, 5, 7}, {8, 9, 10});
}

// The call that sets the clock to rec.
std::string SetCallFor(TTime rec) {
    FakeSystem fake;
    EXPECT_EQ(SyncSysTime(&rec), 1);
    return fake.calls.size() == 6 ? fake.calls[3] : "other steps";
}

}  // namespace

extern "C" {

int __real_systemEx(const char* command);
int __wrap_systemEx(const char* command) {
    FakeSystem& fake = *FakeSystem::active;
    fake.Record(std::string("systemEx ") + command);
    return fake.runs_commands ? __real_systemEx(command) : -1;
}

int __wrap_gettimeofday(struct timeval* now, void* zone) {
    FakeSystem& fake = *FakeSystem::active;
    fake.Record("gettimeofday");
    if (fake.get_error != 0) {
        errno = fake.get_error;
        return -1;
    }
    *now = {999, 888};
    *static_cast<struct timezone*>(zone) = {-60, 1};
    return 0;
}

int __wrap_settimeofday(const struct timeval* now, const struct timezone* zone) {
    if (FakeSystem::active == nullptr) {
        abort();
    }
    FakeSystem& fake = *FakeSystem::active;
    char call[100];
    snprintf(call, sizeof call, "settimeofday %ld.%06ld", static_cast<long>(now->tv_sec),
             static_cast<long>(now->tv_usec));
    fake.Record(call + (zone == nullptr ? std::string(" no zone")
                                        : " zone " + std::to_string(zone->tz_minuteswest) + " " +
                                              std::to_string(zone->tz_dsttime)));
    if (fake.output != nullptr) {
        fake.printed_before = fake.output->Take();
    }
    const int error = fake.sets < fake.set_errors.size() ? fake.set_errors[fake.sets] : 0;
    ++fake.sets;
    errno = error != 0 ? error : EINVAL;  // what a success leaves there means nothing
    return error != 0 ? -1 : 0;
}
}

TEST(SyncSysTime, SetsTheClockOneSecondLaterBetweenTwoDates) {
    const ScopedTimeZone zone(kCentralEurope);
    FakeSystem fake;
    TTime rec = KnownTime();
    EXPECT_EQ(SyncSysTime(&rec), 1);
    EXPECT_EQ(fake.calls, StepsAround({"gettimeofday", kSetInZone}));
}

TEST(SyncSysTime, SetsTheTimeAloneWhenTheZoneIsRefusedBesideIt) {
    FakeSystem fake;
    fake.set_errors = {EINVAL};
    TTime rec = KnownTime();
    EXPECT_EQ(SyncSysTime(&rec), 1);
    EXPECT_EQ(fake.calls, StepsAround({"gettimeofday", kSetInZone, kSetAlone}));
}

TEST(SyncSysTime, TriesNothingElseAfterOtherFailures) {
    for (const int error : {EPERM, EFAULT, ENOSYS}) {
        FakeSystem fake;
        fake.set_errors = {error};
        TTime rec = KnownTime();
        EXPECT_EQ(SyncSysTime(&rec), 1);
        EXPECT_EQ(fake.calls, StepsAround({"gettimeofday", kSetInZone})) << strerror(error);
    }
}

TEST(SyncSysTime, GivesOneAlsoWhenTheClockStays) {
    FakeSystem fake;
    fake.set_errors = {EINVAL, EINVAL};
    TTime rec = KnownTime();
    EXPECT_EQ(SyncSysTime(&rec), 1);
    EXPECT_EQ(fake.calls, StepsAround({"gettimeofday", kSetInZone, kSetAlone}));
}

TEST(SyncSysTime, SetsTheClockAlsoWhenTheZoneCannotBeRead) {
    FakeSystem fake;
    fake.get_error = EFAULT;
    TTime rec = KnownTime();
    DirtyStackWith("7");
    EXPECT_EQ(SyncSysTime(&rec), 1);
    EXPECT_EQ(fake.calls, StepsAround({"gettimeofday", "settimeofday 1715069351.000000 zone 0 0"}));
}

TEST(SyncSysTime, CountsTheRecordWithoutZone) {
    for (const char* zone_text : {"UTC0", kCentralEurope, "HST10"}) {
        const ScopedTimeZone zone(zone_text);
        for (const int is_dst : {-1, 0, 1}) {
            TTime rec = KnownTime();
            rec.tm_isdst = is_dst;
            EXPECT_EQ(SetCallFor(rec), kSetInZone) << zone_text;
        }
    }
}

TEST(SyncSysTime, SetsTheStartOf1970ForRecordsThatHaveNoSeconds) {
    const char* const kStart = "settimeofday 0.000000 zone -60 1";
    EXPECT_EQ(SetCallFor(RecordOf({1969, 12, 31}, {23, 59, 59})), kStart);
    EXPECT_EQ(SetCallFor(RecordOf({1900, 1, 1})), kStart);
    EXPECT_EQ(SetCallFor(RecordOf({2038, 1, 19}, {3, 14, 8})), kStart);  // past 32 bits
    EXPECT_EQ(SetCallFor(RecordOf({1970, 1, 1})), "settimeofday 1.000000 zone -60 1");
}

TEST(SyncSysTime, WrapsAfterTheLastSecond) {
    EXPECT_EQ(SetCallFor(RecordOf({2038, 1, 19}, {3, 14, 6})),
              "settimeofday 2147483647.000000 zone -60 1");
    EXPECT_EQ(SetCallFor(RecordOf({2038, 1, 19}, {3, 14, 7})),
              "settimeofday -2147483648.000000 zone -60 1");
}

TEST(SyncSysTime, BringsTheRecordIntoRange) {
    FakeSystem fake;
    TTime rec = RecordOf({2023, 13, 1}, {24, 60, -1});
    SyncSysTime(&rec);
    // 2024-01-02 00:59:59, a Tuesday
    EXPECT_EQ(FieldsOf(rec), (std::array{59, 59, 0, 2, 0, 124, 2, 1, -1}));
    EXPECT_EQ(fake.calls[3], "settimeofday 1704157200.000000 zone -60 1");

    TTime old = RecordOf({1969, 11, 31});
    SyncSysTime(&old);
    EXPECT_EQ(DateIn(old), (Date{1969, 12, 1}));
    EXPECT_EQ(old.tm_isdst, -1);
}

TEST(SyncSysTime, CountsTheRecordAfterTheFirstDate) {
    FakeSystem fake;
    TTime rec = RecordOf({2024, 5, 7}, {8, 9, 70});
    fake.watched = &rec;
    SyncSysTime(&rec);
    EXPECT_EQ(fake.calls, (Calls{"9 " + LogCall("set time test by qhm begin"), "9 systemEx date",
                                 "10 gettimeofday", "10 settimeofday 1715069411.000000 zone -60 1",
                                 "10 systemEx date", "10 " + LogCall("set time test by qhm end")}));
}

TEST(SyncSysTime, PrintsADateBeforeAndAfterSetting) {
    const ScopedTimeZone zone("XYZ-1");
    CapturedStream output(stdout);
    FakeSystem fake;
    fake.runs_commands = true;
    fake.output = &output;
    TTime rec = KnownTime();
    const std::set<int> open = OpenDescriptors();
    EXPECT_EQ(SyncSysTime(&rec), 1);
    EXPECT_EQ(OpenDescriptors(), open);

    const auto is_a_date = [](const std::string& text) {
        return text.find("XYZ") != std::string::npos && text.find('\n') == text.size() - 1;
    };
    EXPECT_PRED1(is_a_date, fake.printed_before);
    EXPECT_PRED1(is_a_date, output.Take());
}

TEST(SyncSysTime, OfNoRecordTakesNoStep) {
    FakeSystem fake;
    EXPECT_EQ(SyncSysTime(nullptr), 1);
    EXPECT_EQ(fake.calls, Calls{});
}
