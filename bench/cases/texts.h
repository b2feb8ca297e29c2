// Times and dates as texts.
#ifndef BENCH_CASES_TEXTS_H
#define BENCH_CASES_TEXTS_H

#include <cstdio>

#include "bench/cases/records.h"

using TimeText = Text<24>;

// "2024-05-07T08:09:10"
inline TimeText TextOf(const TTime& rec) {
    TimeText text;
    TTimeToStrTime(text.bytes, sizeof text.bytes, &rec);
    return text;
}

struct WriteTime {
    static std::string Name() { return "write_time"; }
    static std::vector<TTime> Inputs() { return MakeInputs(UsualRecord); }
    template <auto kFunction>
    static TimeText Call(const TTime& rec) {
        TimeText text;
        kFunction(text.bytes, sizeof text.bytes, &rec);
        return text;
    }
};

struct WriteRecord {
    static std::string Name() { return "write_record"; }
    static std::vector<TTime> Inputs() { return MakeInputs(UsualRecord); }
    template <auto kFunction>
    static TimeText Call(const TTime& rec) {
        TimeText text;
        kFunction(rec, text.bytes, sizeof text.bytes, TEXT_DATE_TIME, 0);
        return text;
    }
};

// A date and the code of its layout; all ten layouts come.
struct CodedDate {
    int code;
    int year;
    int month;
    int day;
};

inline CodedDate AnyCodedDate(Numbers& numbers) {
    return {numbers.Between(0, 9), numbers.Between(1938, 2037), numbers.Between(1, 12),
            numbers.Between(1, 31)};
}

struct WriteDate {
    static std::string Name() { return "write_date"; }
    static std::vector<CodedDate> Inputs() { return MakeInputs(AnyCodedDate); }
    template <auto kFunction>
    static Text<12> Call(const CodedDate& date) {
        Text<12> text;
        kFunction(text.bytes, date.code, date.year, date.month, date.day);
        return text;
    }
};

struct ReadDate {
    struct Input {
        int code;
        Text<12> text;
    };
    using Result = std::array<int, 3>;

    static std::string Name() { return "read_date"; }
    static std::vector<Input> Inputs() {
        return MakeInputs([](Numbers& numbers) -> Input {
            const CodedDate date = AnyCodedDate(numbers);
            return {date.code, WriteDate::Call<FormatDate>(date)};
        });
    }
    template <auto kFunction>
    static Result Call(const Input& input) {
        Result date;
        kFunction(input.text.bytes, input.code, CALENDAR_GREGORIAN, &date[0], &date[1], &date[2]);
        return date;
    }
};

// "19:45" to "07:45 PM" and the other way in turn.
struct HourTexts {
    struct Input {
        int to24;
        Text<12> text;
    };

    static std::string Name() { return "hour_texts"; }
    static std::vector<Input> Inputs() {
        int to24 = 0;
        return MakeInputs([&to24](Numbers& numbers) {
            to24 = 1 - to24;
            Input input = {to24, {}};
            snprintf(input.text.bytes, sizeof input.text.bytes, "%02d:%02d", numbers.Between(0, 23),
                     numbers.Between(0, 59));
            if (to24 != 0) {
                HourTimeFormatToCurMode(input.text.bytes, sizeof input.text.bytes, 0);
            }
            return input;
        });
    }
    template <auto kFunction>
    static Text<12> Call(const Input& input) {
        Text<12> text = input.text;
        kFunction(text.bytes, sizeof text.bytes, input.to24);
        return text;
    }
};

struct SplitDate {
    static std::string Name() { return "split_date"; }
    static std::vector<TimeText> Inputs() {
        return MakeInputs([](Numbers& numbers) {
            TimeText text = TextOf(UsualRecord(numbers));
            text.bytes[sizeof "2024-05-07" - 1] = '\0';
            return text;
        });
    }
    template <auto kFunction>
    static std::array<int, 3> Call(const TimeText& input) {
        TimeText text = input;  // the separators are overwritten
        std::array<int, 3> date;
        kFunction(text.bytes, &date[0], &date[1], &date[2]);
        return date;
    }
};

struct SplitClock {
    static std::string Name() { return "split_clock"; }
    static std::vector<TimeText> Inputs() {
        return MakeInputs([](Numbers& numbers) {
            TimeText text;
            snprintf(text.bytes, sizeof text.bytes, "%02d:%02d", numbers.Between(0, 23),
                     numbers.Between(0, 59));
            return text;
        });
    }
    template <auto kFunction>
    static std::array<int, 2> Call(const TimeText& text) {
        std::array<int, 2> clock;
        kFunction(text.bytes, clock.data(), 2);
        return clock;
    }
};

// A whole text from the Gregorian to the Persian calendar.
struct MoveText {
    static std::string Name() { return "move_text"; }
    static std::vector<TimeText> Inputs() {
        return MakeInputs([](Numbers& numbers) { return TextOf(UsualRecord(numbers)); });
    }
    template <auto kFunction>
    static TimeText Call(const TimeText& input) {
        TimeText text = input;
        kFunction(CALENDAR_PERSIAN, text.bytes, sizeof text.bytes, TEXT_DATE_TIME, 9);
        return text;
    }
};

struct ReadTime : EncodeCase {
    static std::string Name() { return "read_time"; }
    static std::vector<TimeText> Inputs() { return MoveText::Inputs(); }
    template <auto kFunction>
    static Encoded Call(const TimeText& text) {
        Encoded result = {};
        kFunction(&result.rec, text.bytes);
        return result;
    }
};

#endif
