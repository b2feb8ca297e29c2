// DeFormatDate, FmtDateToStandardDate and StandardDateToFmtDate.

#include "tests/fuzz/input.h"
#include "tests/util/timeutils/texts/naive_texts.h"
#include "util/timeutils.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const int code = input.Between(-40, 40);
    const int calendar_mode = input.Between(-1, 3);
    const int buffer_size = input.Between(-2, 40);
    const std::string text = input.Text();

    Date date = {-1, -1, -1};
    Require(DeFormatDate(ExactCopy(text).get(), code, calendar_mode, &date.year, &date.month,
                         &date.day) == 1,
            "DeFormatDate returns 1");
    Require(date == naive::ReadDate(text, code, calendar_mode), "DeFormatDate as the naive one");

    const std::string buffer = BufferWith(text, buffer_size);
    const auto standard = BlockOf(buffer);
    Require(FmtDateToStandardDate(standard.get(), buffer_size, code, calendar_mode) == 1,
            "FmtDateToStandardDate returns 1");
    Require(BytesOf(standard, buffer.size()) ==
                naive::FmtDateToStandardDate(buffer, buffer_size, code, calendar_mode),
            "FmtDateToStandardDate as the naive one");

    const std::string larger = BufferWith(text, sizeof "2024-05-07");
    const auto formatted = BlockOf(larger);
    Require(StandardDateToFmtDate(formatted.get(), buffer_size, code, calendar_mode) == 1,
            "StandardDateToFmtDate returns 1");
    Require(BytesOf(formatted, larger.size()) == naive::StandardDateToFmtDate(larger, code),
            "StandardDateToFmtDate as the naive one");
    return 0;
}
