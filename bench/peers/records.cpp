// Peers that count a record's seconds and bring its fields into range.

#include <absl/time/civil_time.h>

#include <chrono>

#include "bench/cases/records.h"
#include "bench/peers/row.h"
#include "bench/peers/rows.h"

namespace {

PEER time_t Timegm(TTime* rec) {
    return timegm(rec);
}

PEER time_t CivilSecond(TTime* rec) {
    const absl::CivilSecond civil(int64_t{rec->tm_year} + kTmYearBase, int64_t{rec->tm_mon} + 1,
                                  rec->tm_mday, rec->tm_hour, rec->tm_min, rec->tm_sec);
    rec->tm_year = static_cast<int>(civil.year() - kTmYearBase);
    rec->tm_mon = civil.month() - 1;
    rec->tm_mday = civil.day();
    rec->tm_hour = civil.hour();
    rec->tm_min = civil.minute();
    rec->tm_sec = civil.second();
    rec->tm_yday = absl::GetYearDay(absl::CivilDay(civil)) - 1;
    const auto weekday = absl::GetWeekday(civil);  // counts from Monday
    rec->tm_wday = (static_cast<int>(weekday) + 1) % 7;
    return civil - absl::CivilSecond(1970);
}

PEER time_t Chrono(TTime* rec) {
    using namespace std::chrono;
    const year_month first = year{rec->tm_year + kTmYearBase} / January + months{rec->tm_mon};
    const sys_seconds time = sys_days{first / 1} + days{rec->tm_mday - 1} + hours{rec->tm_hour} +
                             minutes{rec->tm_min} + seconds{rec->tm_sec};
    const sys_days day = floor<days>(time);
    const year_month_day date{day};
    const hh_mm_ss clock{time - day};
    rec->tm_year = static_cast<int>(date.year()) - kTmYearBase;
    rec->tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    rec->tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    rec->tm_hour = static_cast<int>(clock.hours().count());
    rec->tm_min = static_cast<int>(clock.minutes().count());
    rec->tm_sec = static_cast<int>(clock.seconds().count());
    rec->tm_yday = static_cast<int>((day - sys_days{date.year() / January / 1}).count());
    rec->tm_wday = static_cast<int>(weekday{day}.c_encoding());
    return time.time_since_epoch().count();
}

int64_t FloorDivide(int64_t value, int64_t by) {
    return value / by - (value % by < 0 ? 1 : 0);
}

int64_t DaysBeforeYear(int64_t year) {
    const int64_t before = year - 1;
    return 365 * (year - 1970) + FloorDivide(before, 4) - FloorDivide(before, 100) +
           FloorDivide(before, 400) - 477;
}

constexpr int kDaysBeforeMonth[2][13] = {
    {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365},
    {0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335, 366},
};

bool IsLeap(int64_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// The well-known way with one division for each unit: to seconds, and back into the fields.
PEER time_t Divisions(TTime* rec) {
    int64_t year = rec->tm_year + int64_t{kTmYearBase} + FloorDivide(rec->tm_mon, 12);
    const int64_t month = rec->tm_mon - 12 * FloorDivide(rec->tm_mon, 12);
    int64_t days = DaysBeforeYear(year) + kDaysBeforeMonth[IsLeap(year)][month] + rec->tm_mday - 1;
    const int64_t seconds = days * kSecondsPerDay + int64_t{rec->tm_hour} * kSecondsPerHour +
                            int64_t{rec->tm_min} * kSecondsPerMinute + rec->tm_sec;
    days = FloorDivide(seconds, kSecondsPerDay);
    const auto clock = static_cast<int>(seconds - days * kSecondsPerDay);
    year = 1970 + FloorDivide(days * 400, 146097);
    year += days >= DaysBeforeYear(year + 1) ? 1 : 0;
    year -= days < DaysBeforeYear(year) ? 1 : 0;
    rec->tm_yday = static_cast<int>(days - DaysBeforeYear(year));
    const int* const before = kDaysBeforeMonth[IsLeap(year)];
    rec->tm_mon = rec->tm_yday / 31;
    rec->tm_mon += rec->tm_yday >= before[rec->tm_mon + 1] ? 1 : 0;
    rec->tm_mday = rec->tm_yday - before[rec->tm_mon] + 1;
    rec->tm_year = static_cast<int>(year - kTmYearBase);
    rec->tm_hour = clock / kSecondsPerHour;
    rec->tm_min = clock / kSecondsPerMinute % kMinutesPerHour;
    rec->tm_sec = clock % kSecondsPerMinute;
    rec->tm_wday = static_cast<int>(days + 4 - 7 * FloorDivide(days + 4, 7));
    return seconds;
}

PEER time_t CivilSecondAlone(TTime* rec) {
    return absl::CivilSecond(int64_t{rec->tm_year} + kTmYearBase, int64_t{rec->tm_mon} + 1,
                             rec->tm_mday, rec->tm_hour, rec->tm_min, rec->tm_sec) -
           absl::CivilSecond(1970);
}

PEER time_t ChronoAlone(TTime* rec) {
    using namespace std::chrono;
    const year_month first = year{rec->tm_year + kTmYearBase} / January + months{rec->tm_mon};
    const sys_seconds time = sys_days{first / 1} + days{rec->tm_mday - 1} + hours{rec->tm_hour} +
                             minutes{rec->tm_min} + seconds{rec->tm_sec};
    return time.time_since_epoch().count();
}

template <class Case>
void AddRow() {
    Row<Case, EncodeTime>()
        .template Peer<CivilSecond>("absl CivilSecond")
        .template Peer<Chrono>("std::chrono")
        .template Peer<Divisions>("divisions")
        .template Peer<Timegm>("timegm");
}

PEER TTime* Localtime(TTime* out, time_t seconds) {
    *out = *localtime(&seconds);
    return out;
}

PEER TTime* LocaltimeR(TTime* out, time_t seconds) {
    return localtime_r(&seconds, out);
}

// Without TZ localtime looks at its zone file each time.
struct DecodeNoZone {
    static std::string Name() { return "decode_no_tz"; }
    static void Begin() {
        unsetenv("TZ");
        tzset();
    }
    static std::vector<int> Inputs() {
        return MakeInputs([](Numbers& numbers) { return numbers.Between(0, 2000000000); });
    }
    template <auto kFunction>
    static Encoded Call(int seconds) {
        Encoded result = {};
        kFunction(&result.rec, seconds);
        return result;
    }
};

}  // namespace

void AddRecordRows() {
    AddRow<EncodeUsual>();
    Row<EncodeSeconds, EncodeTime>()
        .Peer<CivilSecondAlone>("absl CivilSecond")
        .Peer<ChronoAlone>("std::chrono");
    AddRow<EncodeAny>();
    AddRow<EncodeDays<1000>>();
    AddRow<EncodeDays<100000>>();
    Row<DecodeNoZone, DecodeTime>().Peer<LocaltimeR>("localtime_r").Floor<Localtime>("localtime");
}
