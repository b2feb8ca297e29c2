// Records, seconds counts, their fixed texts, digits and numbers.

#include "util/timeutils/values.h"

#include "tests/util/timeutils/texts/naive_texts.h"
#include "tests/util/timeutils/values/naive_mktime.h"
#include "tests/util/timeutils/values/naive_seconds.h"
#include "tests/util/trstrutils/naive.h"
#include "tests/vectors/inputs.h"

namespace vectors {
namespace {

constexpr char kDate[] = "%Y-%m-%d";
constexpr char kDateTime[] = "%Y-%m-%dT%H:%M:%S";
constexpr char kClock[] = "%H:%M";

// Calls a mktime with six fields, the summer time flag, the zone and the bias.
void CallMktime(time_t (*make)(struct tm*), const Arguments& a, Outcome& out) {
    struct tm rec = a.Record(0);
    rec.tm_isdst = a.Int(6);
    _timezone = a.Int(7);
    _dstbias = a.Int(8);
    out << make(&rec) << rec;
    _timezone = 0;
    _dstbias = 0;
}

struct tm Marked() {
    struct tm rec = MarkedRecord({});
    rec.tm_year = rec.tm_mon = rec.tm_mday = kMark;
    return rec;
}

time_t NaiveEncode(struct tm rec) {
    rec.tm_isdst = -1;
    return naive::mktime_1(&rec);
}

std::string NaiveText(const struct tm& rec, std::string_view pattern) {
    if (pattern == kClock) {
        return naive::Padded(rec.tm_hour, 2) + ":" + naive::Padded(rec.tm_min, 2);
    }
    return naive::DateText(9, DateIn(rec));
}

// The whole of a cleared buffer.
void CallNaiveWriter(std::string_view pattern, const Arguments& a, Outcome& out) {
    std::string bytes = BufferBytes();
    const int size = a.Int(0);
    if (size > 0) {
        bytes.replace(0, static_cast<size_t>(size), static_cast<size_t>(size), '\0');
    }
    const struct tm rec = naive::RecordAt(a.Int(1), kZoneSeconds);
    out << 1;
    out.Bytes(naive::Put(bytes, size, NaiveText(rec, pattern)));
}

int NaiveGroups(const std::string& text, std::vector<int>& numbers) {
    size_t group = 0;
    for (size_t i = 0; i < text.size() && group < numbers.size();) {
        std::string digits;
        for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
            digits += text[i];
        }
        if (!digits.empty()) {
            numbers[group] = naive::str2int(digits, 0);  // digits alone wrap alike
        }
        for (; i < text.size() && (text[i] < '0' || text[i] > '9'); ++i) {
        }
        ++group;
    }
    return 0;
}

}  // namespace

const std::vector<Function>& ValueFunctions() {
    using namespace input;
    static const std::vector<Function> kFunctions = {
        {"mktime_1",
         {TmYear, Month, Day, Hour, Minute, Minute, Flag, Zone, Bias},
         [](const Arguments& a, Outcome& out) { CallMktime(mktime_1, a, out); },
         [](const Arguments& a, Outcome& out) { CallMktime(naive::mktime_1, a, out); }},
        {"EncodeTime",
         {TmYear, Month, Day, Hour, Minute, Minute},
         [](const Arguments& a, Outcome& out) {
             struct tm rec = a.Record(0);
             out << EncodeTime(&rec) << rec;
         },
         [](const Arguments& a, Outcome& out) {
             struct tm rec = a.Record(0);
             rec.tm_isdst = -1;
             out << naive::mktime_1(&rec) << rec;
         }},
        {"DecodeTime",
         {Number},
         [](const Arguments& a, Outcome& out) {
             struct tm rec = Marked();
             DecodeTime(&rec, a.Int(0));
             out << rec;
         },
         [](const Arguments& a, Outcome& out) { out << naive::RecordAt(a.Int(0), kZoneSeconds); }},
        {"OldEncodeTime",
         {TmYear, Month, Day, Hour, Minute, Minute},
         [](const Arguments& a, Outcome& out) {
             const struct tm rec = a.Record(0);
             out << OldEncodeTime(&rec);
         },
         [](const Arguments& a, Outcome& out) { out << naive::OldEncodeTime(a.Record(0)); }},
        {"OldDecodeTime",
         {Number},
         [](const Arguments& a, Outcome& out) {
             struct tm rec = Marked();
             OldDecodeTime(a.Int(0), &rec);
             out << rec;
         },
         [](const Arguments& a, Outcome& out) { out << naive::OldDecodeTime(a.Int(0), Marked()); }},
        {"StrTimeToTm",
         {DateText},
         [](const Arguments& a, Outcome& out) {
             struct tm rec = Marked();
             out << StrTimeToTm(&rec, a.Text(0).c_str()) << rec;
         },
         [](const Arguments& a, Outcome& out) {
             out << 1 << naive::ReadByPattern(a.Text(0), kDate, Marked());
         }},
        {"StrTimeToTTime",
         {DateTimeText},
         [](const Arguments& a, Outcome& out) {
             struct tm rec = Marked();
             out << StrTimeToTTime(&rec, a.Text(0).c_str()) << rec;
         },
         [](const Arguments& a, Outcome& out) {
             out << 1 << naive::ReadByPattern(a.Text(0), kDateTime, Marked());
         }},
        {"StrTimeToSec",
         {DateTimeText},
         [](const Arguments& a, Outcome& out) { out << StrTimeToSec(a.Text(0).c_str()); },
         [](const Arguments& a, Outcome& out) {
             out << (a.Text(0).empty()
                         ? 0
                         : NaiveEncode(naive::ReadByPattern(a.Text(0), kDateTime, {})));
         }},
        {"OldStrTimeToSec",
         {DateTimeText},
         [](const Arguments& a, Outcome& out) { out << OldStrTimeToSec(a.Text(0).c_str()); },
         [](const Arguments& a, Outcome& out) {
             out << naive::OldEncodeTime(naive::ReadByPattern(a.Text(0), kDateTime, {}));
         }},
        {"SecToHMTime",
         {TextSize, Number},
         [](const Arguments& a, Outcome& out) {
             Buffer buf;
             out << SecToHMTime(buf.data(), a.Int(0), a.Int(1)) << buf;
         },
         [](const Arguments& a, Outcome& out) { CallNaiveWriter(kClock, a, out); }},
        {"SecToYMDTime",
         {TextSize, Number},
         [](const Arguments& a, Outcome& out) {
             Buffer buf;
             out << SecToYMDTime(buf.data(), a.Int(0), a.Int(1)) << buf;
         },
         [](const Arguments& a, Outcome& out) { CallNaiveWriter(kDate, a, out); }},
        {"digitvalue",
         {Character},
         [](const Arguments& a, Outcome& out) { out << digitvalue(a.Int(0)); },
         [](const Arguments& a, Outcome& out) {
             const std::string byte(1, static_cast<char>(a.Int(0)));
             out << (byte >= "0" && byte <= "9" ? std::stoi(byte) : -1);
         }},
        {"TimeTimeToInt",
         {DateTimeText, Count},
         [](const Arguments& a, Outcome& out) {
             std::vector<int> numbers(10, kMark);
             out << TimeTimeToInt(a.Text(0).c_str(), numbers.data(), a.Int(1)) << numbers;
         },
         [](const Arguments& a, Outcome& out) {
             std::vector<int> numbers(10, kMark);
             std::vector<int> some(static_cast<size_t>(std::max(a.Int(1), 0)), kMark);
             out << (a.Int(1) == 0 ? -1 : NaiveGroups(a.Text(0), some));
             std::copy(some.begin(), some.end(), numbers.begin());
             out << numbers;
         }},
        {"IntTimeToStrTime",
         {Size, Clock},
         [](const Arguments& a, Outcome& out) {
             Buffer dst;
             out << IntTimeToStrTime(dst.data(), a.Int(0), a.Int(1)) << dst;
         },
         [](const Arguments& a, Outcome& out) {
             const std::string text =
                 naive::Padded(a.Int(1) / 100, 2) + ":" + naive::Padded(a.Int(1) % 100, 2);
             const bool has_room = a.Int(0) > 5;
             out << (has_room ? 0 : -1);
             out.Bytes(has_room ? naive::Put(BufferBytes(), a.Int(0), text) : BufferBytes());
         }},
        {"ConvertStrToInt",
         {NumberText, Number},
         [](const Arguments& a, Outcome& out) {
             out << ConvertStrToInt(a.Text(0).c_str(), a.Int(1));
         },
         [](const Arguments& a, Outcome& out) { out << naive::str2int(a.Text(0), a.Int(1)); }},
    };
    return kFunctions;
}

}  // namespace vectors
