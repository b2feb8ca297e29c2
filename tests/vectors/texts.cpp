// Dates, clock times and records as texts.

#include "util/timeutils/texts.h"

#include "tests/util/timeutils/texts/naive_texts.h"
#include "tests/vectors/inputs.h"

namespace vectors {
namespace {

void CallNaiveSplitter(char separator, size_t count, const Arguments& a, Outcome& out) {
    const naive::Split split =
        naive::SplitNumbers(a.Text(0), separator, std::vector<int>(count, kMark));
    for (const int number : split.numbers) {
        out << number;
    }
    out.Bytes(BufferBytes().replace(0, split.bytes.size() + 1, split.bytes + '\0'));
}

using SplitTwo = void (*)(char*, int*, int*);
using SplitThree = void (*)(char*, int*, int*, int*);

void CallSplitter(SplitTwo split, const Arguments& a, Outcome& out) {
    Buffer text(a.Text(0));
    int first = kMark;
    int second = kMark;
    split(text.data(), &first, &second);
    out << first << second << text;
}

void CallSplitter(SplitThree split, const Arguments& a, Outcome& out) {
    Buffer text(a.Text(0));
    int first = kMark;
    int second = kMark;
    int third = kMark;
    split(text.data(), &first, &second, &third);
    out << first << second << third << text;
}

void CallNaiveHourText(const Arguments& a, bool to24, Outcome& out) {
    const naive::HourText made = naive::ConvertHourText(BufferBytes(a.Text(0)), a.Int(1), to24);
    out << made.result;
    out.Bytes(made.bytes);
}

}  // namespace

const std::vector<Function>& TextFunctions() {
    using namespace input;
    static const std::vector<Function> kFunctions = {
        {"FormatDate",
         {Code, Year, Month, Day},
         [](const Arguments& a, Outcome& out) {
             Buffer dst;
             out << FormatDate(dst.data(), a.Int(0), a.Int(1), a.Int(2), a.Int(3)) << dst;
         },
         [](const Arguments& a, Outcome& out) {
             const Date date = {a.Int(1), a.Int(2), a.Int(3)};
             out << 0;
             out.Bytes(naive::Put(BufferBytes(), kRoom, naive::DateText(a.Int(0), date)));
         }},
        {"DeFormatDate",
         {DateText, Code, Mode},
         [](const Arguments& a, Outcome& out) {
             int year = kMark;
             int month = kMark;
             int day = kMark;
             out << DeFormatDate(a.Text(0).c_str(), a.Int(1), a.Int(2), &year, &month, &day);
             out << year << month << day;
         },
         [](const Arguments& a, Outcome& out) {
             const Date date = naive::ReadDate(a.Text(0), a.Int(1), a.Int(2));
             out << 1 << date.year << date.month << date.day;
         }},
        {"FmtDateToStandardDate",
         {DateText, Size, Code, Mode},
         [](const Arguments& a, Outcome& out) {
             Buffer buf(a.Text(0));
             out << FmtDateToStandardDate(buf.data(), a.Int(1), a.Int(2), a.Int(3)) << buf;
         },
         [](const Arguments& a, Outcome& out) {
             out << 1;
             out.Bytes(naive::FmtDateToStandardDate(BufferBytes(a.Text(0)), a.Int(1), a.Int(2),
                                                    a.Int(3)));
         }},
        {"StandardDateToFmtDate",
         {DateText, Size, Code, Mode},
         [](const Arguments& a, Outcome& out) {
             Buffer buf(a.Text(0));
             out << StandardDateToFmtDate(buf.data(), a.Int(1), a.Int(2), a.Int(3)) << buf;
         },
         [](const Arguments& a, Outcome& out) {
             out << 1;
             out.Bytes(naive::StandardDateToFmtDate(BufferBytes(a.Text(0)), a.Int(2)));
         }},
        {"ConvertCompileDate",
         {BuildDateText, Size},
         [](const Arguments& a, Outcome& out) {
             Buffer dst;
             out << ConvertCompileDate(a.Text(0).c_str(), dst.data(), a.Int(1)) << dst;
         },
         [](const Arguments& a, Outcome& out) {
             out << 1;
             out.Bytes(naive::Put(BufferBytes(), a.Int(1), naive::CompileDate(a.Text(0))));
         }},
        {"HourTimeFormatToCurMode",
         {ClockText, Size, Flag},
         [](const Arguments& a, Outcome& out) {
             Buffer buf(a.Text(0));
             out << HourTimeFormatToCurMode(buf.data(), a.Int(1), a.Int(2)) << buf;
         },
         [](const Arguments& a, Outcome& out) { CallNaiveHourText(a, a.Int(2) != 0, out); }},
        {"HourTimeFormatTo24Mode",
         {ClockText, Size},
         [](const Arguments& a, Outcome& out) {
             Buffer buf(a.Text(0));
             out << HourTimeFormatTo24Mode(buf.data(), a.Int(1)) << buf;
         },
         [](const Arguments& a, Outcome& out) { CallNaiveHourText(a, true, out); }},
        {"ParseDate",
         {DateText},
         [](const Arguments& a, Outcome& out) { CallSplitter(ParseDate, a, out); },
         [](const Arguments& a, Outcome& out) { CallNaiveSplitter('-', 3, a, out); }},
        {"ParseTime",
         {ClockText},
         [](const Arguments& a, Outcome& out) { CallSplitter(ParseTime, a, out); },
         [](const Arguments& a, Outcome& out) { CallNaiveSplitter(':', 3, a, out); }},
        {"ParseTimeNoSec",
         {ClockText},
         [](const Arguments& a, Outcome& out) { CallSplitter(ParseTimeNoSec, a, out); },
         [](const Arguments& a, Outcome& out) { CallNaiveSplitter(':', 2, a, out); }},
        {"ParseDateNoYear",
         {DateText},
         [](const Arguments& a, Outcome& out) { CallSplitter(ParseDateNoYear, a, out); },
         [](const Arguments& a, Outcome& out) { CallNaiveSplitter('-', 2, a, out); }},
        {"TTimeToStr",
         {TmYear, Month, Day, Hour, Minute, Minute, Size, TextType, Code},
         [](const Arguments& a, Outcome& out) {
             Buffer buf;
             out << TTimeToStr(a.Record(0), buf.data(), a.Int(6), a.Int(7), a.Int(8)) << buf;
         },
         [](const Arguments& a, Outcome& out) {
             out << 0;
             out.Bytes(naive::TTimeToStr(a.Record(0), BufferBytes(), a.Int(6), a.Int(7), a.Int(8)));
         }},
        {"ParseStrToTTime",
         {DateTimeText, TextType, Code, Mode},
         [](const Arguments& a, Outcome& out) {
             struct tm rec = MarkedRecord({});
             out << ParseStrToTTime(a.Text(0).c_str(), &rec, a.Int(1), a.Int(2), a.Int(3)) << rec;
         },
         [](const Arguments& a, Outcome& out) {
             out << 0
                 << naive::ParseStrToTTime(a.Text(0), MarkedRecord({}), a.Int(1), a.Int(2),
                                           a.Int(3));
         }},
        {"TTimeToStrTime",
         {TmYear, Month, Day, Hour, Minute, Minute, Size},
         [](const Arguments& a, Outcome& out) {
             Buffer dst;
             const struct tm rec = a.Record(0);
             out << TTimeToStrTime(dst.data(), a.Int(6), &rec) << dst;
         },
         [](const Arguments& a, Outcome& out) {
             out << 1;
             out.Bytes(naive::Put(BufferBytes(), a.Int(6), naive::TimeStamp(a.Record(0))));
         }},
    };
    return kFunctions;
}

}  // namespace vectors
