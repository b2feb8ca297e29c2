// ParseStrToTTime, LocalTimeToChris and ChrisToLocalTime.

#include "tests/fuzz/input.h"
#include "tests/util/timeutils/calendars/naive_calendars.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

namespace {

constexpr int kBufferSize = 128;  // room for any date: type 1 knows no size

struct Arguments {
    int calendar_mode, text_type, code, size;
};

Date ToGregorian(int calendar_mode, const Date& date) {
    return calendar_mode == CALENDAR_PERSIAN   ? naive::JdToGregorian(naive::PersianToJd(date))
           : calendar_mode == CALENDAR_ISLAMIC ? naive::JdToGregorian(naive::IslamicToJd(date))
                                               : date;
}

Date FromGregorian(int calendar_mode, const Date& date) {
    return calendar_mode == CALENDAR_PERSIAN   ? naive::JdToPersian(naive::GregorianToJd(date))
           : calendar_mode == CALENDAR_ISLAMIC ? naive::JdToIslamic(naive::GregorianToJd(date))
                                               : date;
}

// Moves the date, by the formulas in doubles, between the naive reader and writer.
template <typename Rewrite, typename Move>
void CheckRewriting(const std::string& text, const Arguments& call, int parse_mode, int result,
                    const Rewrite& rewrite, const Move& move) {
    const std::string buffer = BufferWith(text, kBufferSize);
    std::string expected = buffer;
    if (call.calendar_mode != CALENDAR_GREGORIAN) {
        const TTime read = naive::ParseStrToTTime(text, {}, call.text_type, call.code, parse_mode);
        const Date date = move(call.calendar_mode, DateIn(read));
        const TTime rec = RecordOf(date, {read.tm_hour, read.tm_min, 0});
        expected = naive::TTimeToStr(rec, buffer, call.size, call.text_type, call.code);
    }
    const auto block = BlockOf(buffer);
    Require(
        rewrite(call.calendar_mode, block.get(), call.size, call.text_type, call.code) == result,
        "the result");
    Require(BytesOf(block, buffer.size()) == expected, "the bytes of the naive one");
}

void CheckParsing(const std::string& text, const Arguments& call) {
    const TTime before = MarkedRecord({0, 0, 0});
    TTime rec = before;
    Require(ParseStrToTTime(ExactCopy(text).get(), &rec, call.text_type, call.code,
                            call.calendar_mode) == 0,
            "ParseStrToTTime returns 0");
    Require(SameBytes(rec, naive::ParseStrToTTime(text, before, call.text_type, call.code,
                                                  call.calendar_mode)),
            "ParseStrToTTime as the naive one");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    Arguments call;
    call.calendar_mode = input.Between(-1, 3);
    call.text_type = input.Between(0, 5);
    call.code = input.Between(-20, 20);
    call.size = input.Between(-2, 40);
    const std::string text = input.Text(kBufferSize - 1);
    CheckParsing(text, call);
    const bool is_gregorian = call.calendar_mode == CALENDAR_GREGORIAN;
    CheckRewriting(text, call, call.calendar_mode, is_gregorian ? 1 : 0, LocalTimeToChris,
                   ToGregorian);
    CheckRewriting(text, call, CALENDAR_GREGORIAN, 1, ChrisToLocalTime, FromGregorian);
    return 0;
}
