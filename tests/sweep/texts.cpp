// Every text of up to five characters of the alphabets that matter through each text parser,
// against the second implementation of the parser.

#include "tests/sweep/sweep.h"
#include "tests/vectors/call.h"

namespace sweep {
namespace {

using vectors::Value;

constexpr size_t kLongest = 5;
constexpr int kRoomy = 100;  // bytes

constexpr char kDates[] = "0123456789-/. +aT\xB2";
constexpr char kClocks[] = "0123456789: APM-x\xC1";
constexpr char kMoments[] = "0123456789-T: +x";
constexpr char kBuilds[] = "AFMabeuyr 0139-+\t";
constexpr char kNumbers[] = "0123456789 -+a\t\xB2/:";
constexpr char kGroups[] = "0123456789:-a \xB2";
constexpr char kLists[] = "abA=,;129 -+\xE9";
constexpr char kWords[] = "abzAZ`{,=T \t\xE9";
constexpr char kHexDigits[] = "0123456789abcdefABCDEFgG:;?@/`";
constexpr char kAddresses[] = "0123456789abcdefABCDEFgG:-";
constexpr char kNames[] = ".jpegbmnifJPGa";

// start comes before each text, the other arguments before and after it.
struct Parser {
    const char* function;
    std::string_view alphabet;
    std::string start;
    std::vector<Value> before;
    std::vector<Value> after;
};

const std::vector<Parser>& Parsers() {
    static const std::vector<Parser> kParsers = {
        {"DeFormatDate", kDates, "", {}, {0, 0}},
        {"DeFormatDate", kDates, "", {}, {1, 1}},
        {"DeFormatDate", kDates, "", {}, {2, 2}},
        {"DeFormatDate", kDates, "", {}, {3, 0}},
        {"DeFormatDate", kDates, "", {}, {4, 1}},
        {"DeFormatDate", kDates, "", {}, {5, 2}},
        {"DeFormatDate", kDates, "", {}, {6, 0}},
        {"DeFormatDate", kDates, "", {}, {7, 1}},
        {"DeFormatDate", kDates, "", {}, {8, 2}},
        {"DeFormatDate", kDates, "", {}, {9, 0}},
        {"DeFormatDate", kDates, "07.05", {}, {8, 0}},
        {"DeFormatDate", kDates, "2024-", {}, {9, 0}},
        {"FmtDateToStandardDate", kDates, "", {}, {kRoomy, 5, 1}},
        {"FmtDateToStandardDate", kDates, "24-0", {}, {kRoomy, 0, 0}},
        {"StandardDateToFmtDate", kDates, "", {}, {kRoomy, 3, 0}},
        {"StandardDateToFmtDate", kDates, "2024", {}, {kRoomy, 7, 0}},
        {"ConvertCompileDate", kBuilds, "", {}, {kRoomy}},
        {"ConvertCompileDate", kBuilds, "May ", {}, {kRoomy}},
        {"HourTimeFormatToCurMode", kClocks, "", {}, {kRoomy, 0}},
        {"HourTimeFormatToCurMode", kClocks, "", {}, {kRoomy, 1}},
        {"HourTimeFormatTo24Mode", kClocks, "", {}, {kRoomy}},
        {"HourTimeFormatTo24Mode", kClocks, "1", {}, {4}},
        {"ParseDate", kDates, "", {}, {}},
        {"ParseDateNoYear", kDates, "", {}, {}},
        {"ParseTime", kClocks, "", {}, {}},
        {"ParseTimeNoSec", kClocks, "", {}, {}},
        {"ParseStrToTTime", kMoments, "", {}, {1, 9, 0}},
        {"ParseStrToTTime", kMoments, "", {}, {4, 2, 1}},
        {"ParseStrToTTime", kMoments, "2024-05-0", {}, {4, 9, 0}},
        {"LocalTimeToChris", kMoments, "1403-", {1}, {kRoomy, 1, 9}},
        {"LocalTimeToChris", kMoments, "45-1-01", {2}, {kRoomy, 4, 0}},
        {"ChrisToLocalTime", kMoments, "2024-", {2}, {kRoomy, 1, 9}},
        {"ChrisToLocalTime", kMoments, "", {1}, {kRoomy, 4, 9}},
        {"StrTimeToTm", kMoments, "", {}, {}},
        {"StrTimeToTm", kMoments, "2024-", {}, {}},
        {"StrTimeToTTime", kMoments, "2024-0", {}, {}},
        {"StrTimeToTTime", kMoments, "2024-05-07T", {}, {}},
        {"StrTimeToSec", kMoments, "20", {}, {}},
        {"StrTimeToSec", kMoments, "2024-05-07T08:", {}, {}},
        {"OldStrTimeToSec", kMoments, "", {}, {}},
        {"OldStrTimeToSec", kMoments, "2024-05-07T08:09:", {}, {}},
        {"TimeTimeToInt", kGroups, "", {}, {3}},
        {"ConvertStrToInt", kNumbers, "", {}, {-7}},
        {"str2int", kNumbers, "", {}, {-7}},
        {"str2int", kNumbers, "429496", {}, {-7}},
        {"SplitByChar", kWords, "", {}, {','}},
        {"SplitByChar", kWords, "", {}, {0xE9}},
        {"SplitKeyValueByChar", kWords, "", {}, {3, 4, '='}},
        {"SplitKeyValueByChar", kWords, "", {}, {kRoomy, kRoomy, 'T'}},
        {"ExtractValue", kLists, "", {}, {"a", ',', 3}},
        {"ExtractValue", kLists, "a=1", {}, {"b", 0xE9, kRoomy}},
        {"ExtractValueInt", kLists, "", {}, {"a", ';', 77}},
        {"TrimAroundSpace", kWords, "", {}, {}},
        {"Str2Upcase", kWords, "", {}, {4}},
        {"Decode16", kHexDigits, "", {}, {}},
        {"str2mac", kAddresses, "", {}, {}},
        {"str2mac", kAddresses, "1:2:3:4", {}, {}},
        {"JudgePicFile", kNames, "", {}, {}},
        {"JudgePicFile", kNames, ".", {}, {}},
    };
    return kParsers;
}

// Compares the calls of one parser with all texts that go on from another.
class Comparison {
public:
    Comparison(const Parser& parser, Checks& checks)
        : parser_(parser), function_(*vectors::Find(parser.function)), checks_(checks) {}

    void CompareAll(const std::string& text) {
        Compare(text);
        if (text.size() < parser_.start.size() + kLongest) {
            for (size_t i = 0; i < parser_.alphabet.size() && !checks_.failed(); ++i) {
                CompareAll(text + parser_.alphabet[i]);
            }
        }
    }
    void Compare(const std::string& text) {
        arguments_.Clear();
        for (const Value& value : parser_.before) {
            arguments_.Add(value);
        }
        arguments_.Add(text);
        for (const Value& value : parser_.after) {
            arguments_.Add(value);
        }
        product_.Clear();
        naive_.Clear();
        function_.product(arguments_, product_);
        function_.naive(arguments_, naive_);
        checks_.Expect(product_.text() == naive_.text(), [this] {
            return vectors::Line(function_.name, arguments_) + " = " + product_.text() + ", not " +
                   naive_.text();
        });
    }

private:
    const Parser& parser_;
    const vectors::Function& function_;
    Checks& checks_;
    vectors::Arguments arguments_;
    vectors::Outcome product_;
    vectors::Outcome naive_;
};

int CountUnits() {
    size_t units = 0;
    for (const Parser& parser : Parsers()) {
        units += parser.alphabet.size();
    }
    return static_cast<int>(units);
}

// A unit is one parser and the first character; the first of a parser has the empty text too.
void Check(int unit, Checks& checks) {
    auto at = static_cast<size_t>(unit);
    for (const Parser& parser : Parsers()) {
        if (at < parser.alphabet.size()) {
            Comparison comparison(parser, checks);
            if (at == 0) {
                comparison.Compare(parser.start);
            }
            comparison.CompareAll(parser.start + parser.alphabet[at]);
            return;
        }
        at -= parser.alphabet.size();
    }
}

}  // namespace

Sweep Texts() {
    return {"texts", "every text of up to five characters through each parser", CountUnits(),
            Check};
}

}  // namespace sweep
