// Records counted in seconds, and dates between the calendars.
#ifndef BENCH_CASES_RECORDS_H
#define BENCH_CASES_RECORDS_H

#include "bench/case.h"
#include "util/time_units.h"
#include "util/timeutils.h"

struct Encoded {
    time_t seconds;
    TTime rec;

    bool operator==(const Encoded& other) const {
        const TTime& a = rec;
        const TTime& b = other.rec;
        return seconds == other.seconds && a.tm_sec == b.tm_sec && a.tm_min == b.tm_min &&
               a.tm_hour == b.tm_hour && a.tm_mday == b.tm_mday && a.tm_mon == b.tm_mon &&
               a.tm_year == b.tm_year && a.tm_wday == b.tm_wday && a.tm_yday == b.tm_yday;
    }
};

struct EncodeCase {
    template <auto kFunction>
    static Encoded Call(const TTime& input) {
        Encoded result;
        result.rec = input;
        result.seconds = kFunction(&result.rec);
        return result;
    }
};

inline TTime UsualRecord(Numbers& numbers) {
    TTime rec = {};
    rec.tm_year = numbers.Between(100, 137);
    rec.tm_mon = numbers.Between(0, 11);
    rec.tm_mday = numbers.Between(1, 28);
    rec.tm_hour = numbers.Between(0, 23);
    rec.tm_min = numbers.Between(0, 59);
    rec.tm_sec = numbers.Between(0, 59);
    return rec;
}

struct EncodeUsual : EncodeCase {
    static std::string Name() { return "encode_usual"; }
    static std::vector<TTime> Inputs() { return MakeInputs(UsualRecord); }
};

// The seconds alone, for peers that give no more; ours sets the day of the week and the year too.
struct EncodeSeconds : EncodeUsual {
    static std::string Name() { return "encode_seconds"; }
    template <auto kFunction>
    static time_t Call(const TTime& input) {
        return EncodeCase::Call<kFunction>(input).seconds;
    }
};

// Every field out of its range, on either side.
struct EncodeAny : EncodeCase {
    static std::string Name() { return "encode_any"; }
    static std::vector<TTime> Inputs() {
        return MakeInputs([](Numbers& numbers) {
            TTime rec = {};
            rec.tm_year = numbers.Between(80, 120);
            rec.tm_mon = numbers.Between(-40, 40);
            rec.tm_mday = numbers.Between(-300, 300);
            rec.tm_hour = numbers.Between(-1000, 1000);
            rec.tm_min = numbers.Between(-10000, 10000);
            rec.tm_sec = numbers.Between(-100000, 100000);
            return rec;
        });
    }
};

// A usual record, but for a day of the month that is about kDays.
template <int kDays>
struct EncodeDays : EncodeCase {
    static std::string Name() { return "encode_mday_" + std::to_string(kDays); }
    static std::vector<TTime> Inputs() {
        return MakeInputs([](Numbers& numbers) {
            TTime rec = UsualRecord(numbers);
            // Two hundred years on would be beyond 2038: counted from before 1900.
            rec.tm_year = 100 - kDays / 365;
            rec.tm_mday = numbers.Between(kDays - kDays / 100, kDays + kDays / 100);
            return rec;
        });
    }
};

struct Date {
    int tm_year;
    int tm_mon;
    int tm_mday;

    bool operator==(const Date&) const = default;
};

template <int kCalendar>
struct CalendarCase {
    template <auto kFunction>
    static Date Call(const Date& input) {
        TTime rec;
        rec.tm_year = input.tm_year;
        rec.tm_mon = input.tm_mon;
        rec.tm_mday = input.tm_mday;
        kFunction(kCalendar, &rec);
        return {rec.tm_year, rec.tm_mon, rec.tm_mday};
    }

    static std::vector<Date> GregorianDates() {
        return MakeInputs([](Numbers& numbers) -> Date {
            return {numbers.Between(0, 200), numbers.Between(0, 11), numbers.Between(1, 28)};
        });
    }

    static const char* CalendarName() {
        return kCalendar == CALENDAR_PERSIAN ? "persian" : "islamic";
    }
};

template <int kCalendar>
struct ToCalendar : CalendarCase<kCalendar> {
    using Base = CalendarCase<kCalendar>;
    static std::string Name() { return std::string("to_") + Base::CalendarName(); }
    static std::vector<Date> Inputs() { return Base::GregorianDates(); }
};

template <int kCalendar>
struct FromCalendar : CalendarCase<kCalendar> {
    using Base = CalendarCase<kCalendar>;
    static std::string Name() { return std::string("from_") + Base::CalendarName(); }
    static std::vector<Date> Inputs() {
        std::vector<Date> dates = Base::GregorianDates();
        for (Date& date : dates) {
            date = Base::template Call<ChrisTmToLocalTm>(date);
        }
        return dates;
    }
};

// The three calendars in turn.
struct MonthDays {
    struct Input {
        int calendar;
        int year;
        int month;
    };

    static std::string Name() { return "month_days"; }
    static std::vector<Input> Inputs() {
        int calendar = 0;
        return MakeInputs([&calendar](Numbers& numbers) -> Input {
            constexpr int kFirstYears[] = {1900, 1300, 1320};
            calendar = (calendar + 1) % 3;
            const int year = kFirstYears[calendar] + numbers.Between(0, 200);
            return {calendar, year, numbers.Between(1, kMonthsPerYear)};
        });
    }
    template <auto kFunction>
    static int Call(const Input& input) {
        return kFunction(input.calendar, input.year, input.month);
    }
};

#endif
