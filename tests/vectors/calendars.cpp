// Calendars, and dates between them.

#include "util/timeutils/calendars.h"

#include "tests/util/timeutils/calendars/naive_calendars.h"
#include "tests/util/timeutils/calendars/naive_walk.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "tests/vectors/inputs.h"

namespace vectors {
namespace {

int NaiveGregorianDays(int year, int month) {
    return month < 1 || month > 12 ? -1 : naive::GregorianMonthDays(year, month);
}

int NaiveMonthDays(int mode, int year, int month) {
    switch (mode) {
        case 0:
            return NaiveGregorianDays(year, month);
        case 1:
            return naive::GetPersianMonthDay(year, month);
        case 2:
            return naive::GetIslamicMonthDay(year, month);
        default:
            return year;
    }
}

struct tm WithDate(struct tm rec, const Date& date) {
    rec.tm_year = Cut(int64_t{date.year} - 1900);
    rec.tm_mon = Cut(int64_t{date.month} - 1);
    rec.tm_mday = date.day;
    return rec;
}

struct tm NaiveToChris(int mode, const struct tm& rec) {
    switch (mode) {
        case 1:
            return WithDate(rec, naive::JdToGregorian(naive::PersianToJd(DateIn(rec))));
        case 2:
            return WithDate(rec, naive::JdToGregorian(naive::IslamicToJd(DateIn(rec))));
        default:
            return rec;
    }
}

struct tm NaiveToLocal(int mode, const struct tm& rec) {
    switch (mode) {
        case 1:
            return WithDate(rec, naive::JdToPersian(naive::GregorianToJd(DateIn(rec))));
        case 2:
            return WithDate(rec, naive::JdToIslamic(naive::GregorianToJd(DateIn(rec))));
        default:
            return rec;
    }
}

void CallConverter(TTime* (*convert)(int, TTime*), const Arguments& a, Outcome& out) {
    struct tm rec = a.Record(1);
    convert(a.Int(0), &rec);
    out << rec;
}

void CallTextConverter(int (*convert)(int, char*, int, int, int), const Arguments& a,
                       Outcome& out) {
    Buffer text(a.Text(1));
    out << convert(a.Int(0), text.data(), a.Int(2), a.Int(3), a.Int(4)) << text;
}

void CallNaiveTextConverter(struct tm (*convert)(int, const struct tm&), int parse_mode,
                            const Arguments& a, Outcome& out) {
    const std::string bytes = BufferBytes(a.Text(1));
    if (a.Int(0) == 0) {
        out << 1;
        out.Bytes(bytes);
        return;
    }
    const struct tm read = naive::ParseStrToTTime(a.Text(1), {}, a.Int(3), a.Int(4), parse_mode);
    out << (convert == NaiveToLocal ? 1 : 0);
    out.Bytes(naive::TTimeToStr(convert(a.Int(0), read), bytes, a.Int(2), a.Int(3), a.Int(4)));
}

}  // namespace

const std::vector<Function>& CalendarFunctions() {
    using namespace input;
    static const std::vector<Function> kFunctions = {
        {"_ytab",
         {Flag, Month},
         [](const Arguments& a, Outcome& out) {
             out << _ytab[a.Int(0) & 1][static_cast<unsigned>(a.Int(1)) % 12];
         },
         [](const Arguments& a, Outcome& out) {
             const int month = static_cast<int>(static_cast<unsigned>(a.Int(1)) % 12) + 1;
             out << naive::GregorianMonthDays((a.Int(0) & 1) == 1 ? 2024 : 2023, month);
         }},
        {"IsLeapYear",
         {Year},
         [](const Arguments& a, Outcome& out) { out << IsLeapYear(a.Int(0)); },
         [](const Arguments& a, Outcome& out) {
             out << (naive::GregorianMonthDays(a.Int(0), 2) == 29);
         }},
        {"GetMaxDaysOfGregoMonth",
         {Year, Month},
         [](const Arguments& a, Outcome& out) {
             out << GetMaxDaysOfGregoMonth(a.Int(0), a.Int(1));
         },
         [](const Arguments& a, Outcome& out) { out << NaiveGregorianDays(a.Int(0), a.Int(1)); }},
        {"GetPersianMonthDay",
         {Year, Month},
         [](const Arguments& a, Outcome& out) { out << GetPersianMonthDay(a.Int(0), a.Int(1)); },
         [](const Arguments& a, Outcome& out) {
             out << naive::GetPersianMonthDay(a.Int(0), a.Int(1));
         }},
        {"GetIslamicMonthDay",
         {Year, Month},
         [](const Arguments& a, Outcome& out) { out << GetIslamicMonthDay(a.Int(0), a.Int(1)); },
         [](const Arguments& a, Outcome& out) {
             out << naive::GetIslamicMonthDay(a.Int(0), a.Int(1));
         }},
        {"IsLeapYearByCalendar",
         {Mode, Year},
         [](const Arguments& a, Outcome& out) { out << IsLeapYearByCalendar(a.Int(0), a.Int(1)); },
         [](const Arguments& a, Outcome& out) {
             out << (a.Int(0) == 1   ? naive::IsPersianLeap(a.Int(1))
                     : a.Int(0) == 2 ? naive::IsIslamicLeap(a.Int(1))
                                     : false);
         }},
        {"GetMaxDaysOfMonth",
         {Mode, Year, Month},
         [](const Arguments& a, Outcome& out) {
             out << GetMaxDaysOfMonth(a.Int(0), a.Int(1), a.Int(2));
         },
         [](const Arguments& a, Outcome& out) {
             out << NaiveMonthDays(a.Int(0), a.Int(1), a.Int(2));
         }},
        {"LocalTmToChrisTm",
         {Mode, TmYear, Month, Day, Hour, Minute, Minute},
         [](const Arguments& a, Outcome& out) { CallConverter(LocalTmToChrisTm, a, out); },
         [](const Arguments& a, Outcome& out) { out << NaiveToChris(a.Int(0), a.Record(1)); }},
        {"ChrisTmToLocalTm",
         {Mode, TmYear, Month, Day, Hour, Minute, Minute},
         [](const Arguments& a, Outcome& out) { CallConverter(ChrisTmToLocalTm, a, out); },
         [](const Arguments& a, Outcome& out) { out << NaiveToLocal(a.Int(0), a.Record(1)); }},
        {"LocalTimeToChris",
         {Mode, DateTimeText, Size, TextType, Code},
         [](const Arguments& a, Outcome& out) { CallTextConverter(LocalTimeToChris, a, out); },
         [](const Arguments& a, Outcome& out) {
             CallNaiveTextConverter(NaiveToChris, a.Int(0), a, out);
         }},
        {"ChrisToLocalTime",
         {Mode, DateTimeText, Size, TextType, Code},
         [](const Arguments& a, Outcome& out) { CallTextConverter(ChrisToLocalTime, a, out); },
         [](const Arguments& a, Outcome& out) { CallNaiveTextConverter(NaiveToLocal, 0, a, out); }},
    };
    return kFunctions;
}

}  // namespace vectors
