// Calls written to and read from lines.

#include "tests/vectors/call.h"

#include <algorithm>
#include <charconv>

#include "tests/support/digest.h"

namespace vectors {
namespace {

void AppendNumber(std::string& text, int64_t number) {
    char digits[24];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, number);
    text.append(digits, end);
}

void AppendQuoted(std::string& text, std::string_view bytes) {
    constexpr char kHex[] = "0123456789abcdef";
    text += '"';
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < ' ' || code > '~' || byte == '"' || byte == '\\') {
            text += {'\\', 'x', kHex[code / 16], kHex[code % 16]};
        } else {
            text += byte;
        }
    }
    text += '"';
}

void AppendList(std::string& text, const std::vector<int>& list) {
    text += '[';
    for (size_t i = 0; i < list.size(); ++i) {
        if (i > 0) {
            text += ' ';
        }
        AppendNumber(text, list[i]);
    }
    text += ']';
}

void SkipBlanks(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
}

bool TakeNumber(std::string_view& line, int64_t& number) {
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
    const bool is_number = error == std::errc();
    line.remove_prefix(static_cast<size_t>(end - line.data()));
    return is_number;
}

bool TakeQuoted(std::string_view& line, std::string& text) {
    line.remove_prefix(1);
    while (!line.empty() && line[0] != '"') {
        size_t length = 1;
        if (line[0] == '\\') {
            length = 4;
            int code = 0;
            if (line.size() < length ||
                std::from_chars(line.data() + 2, line.data() + length, code, 16).ptr !=
                    line.data() + length) {
                return false;
            }
            text += static_cast<char>(code);
        } else {
            text += line[0];
        }
        line.remove_prefix(length);
    }
    if (line.empty()) {
        return false;
    }
    line.remove_prefix(1);
    return true;
}

bool TakeList(std::string_view& line, std::vector<int>& list) {
    line.remove_prefix(1);
    for (SkipBlanks(line); !line.empty() && line[0] != ']'; SkipBlanks(line)) {
        int64_t number = 0;
        if (!TakeNumber(line, number)) {
            return false;
        }
        list.push_back(static_cast<int>(number));
    }
    if (line.empty()) {
        return false;
    }
    line.remove_prefix(1);
    return true;
}

}  // namespace

struct tm Arguments::Record(size_t first) const {
    struct tm rec = MarkedRecord({});
    rec.tm_year = Int(first);
    rec.tm_mon = Int(first + 1);
    rec.tm_mday = Int(first + 2);
    rec.tm_hour = Int(first + 3);
    rec.tm_min = Int(first + 4);
    rec.tm_sec = Int(first + 5);
    return rec;
}

Buffer::Buffer(const std::string& text) : Buffer() {
    std::copy(text.begin(), text.end(), bytes_.begin());
    bytes_.at(text.size()) = '\0';
}

void Outcome::Blank() {
    if (!text_.empty()) {
        text_ += ' ';
    }
}

Outcome& Outcome::operator<<(int64_t number) {
    Blank();
    if (number == kMark) {
        text_ += '~';
    } else {
        AppendNumber(text_, number);
    }
    return *this;
}

Outcome& Outcome::operator<<(const std::vector<int>& list) {
    Blank();
    AppendList(text_, list);
    return *this;
}

Outcome& Outcome::operator<<(const struct tm& rec) {
    for (const int field : {rec.tm_year, rec.tm_mon, rec.tm_mday, rec.tm_hour, rec.tm_min,
                            rec.tm_sec, rec.tm_isdst, rec.tm_wday, rec.tm_yday}) {
        *this << field;
    }
    return *this;
}

Outcome& Outcome::Bytes(std::string_view all) {
    return Text(all.substr(0, all.find_last_not_of(kFill) + 1));
}

Outcome& Outcome::Text(std::string_view text) {
    Blank();
    AppendQuoted(text_, text);
    return *this;
}

std::string Line(const std::string& name, const Arguments& arguments) {
    std::string line = name;
    for (const Value& value : arguments.values()) {
        line += ' ';
        switch (value.kind) {
            case Value::kNumber:
                AppendNumber(line, value.number);
                break;
            case Value::kText:
                AppendQuoted(line, value.text);
                break;
            case Value::kList:
                AppendList(line, value.list);
                break;
        }
    }
    return line;
}

bool ParseLine(std::string_view line, std::string& name, Arguments& arguments) {
    const size_t end = std::min(line.find(' '), line.size());
    name = line.substr(0, end);
    line.remove_prefix(end);
    arguments.Clear();
    for (SkipBlanks(line); !line.empty() && line[0] != '='; SkipBlanks(line)) {
        std::string text;
        std::vector<int> list;
        int64_t number = 0;
        if (line[0] == '"' && TakeQuoted(line, text)) {
            arguments.Add(text);
        } else if (line[0] == '[' && TakeList(line, list)) {
            arguments.Add(list);
        } else if (TakeNumber(line, number)) {
            arguments.Add(number);
        } else {
            return false;
        }
    }
    return true;
}

std::vector<const Function*> AllFunctions() {
    std::vector<const Function*> all;
    for (const auto* topic :
         {&ValueFunctions(), &TextFunctions(), &CalendarFunctions(), &StringFunctions()}) {
        for (const Function& function : *topic) {
            all.push_back(&function);
        }
    }
    return all;
}

const Function* Find(std::string_view name) {
    for (const Function* const function : AllFunctions()) {
        if (function->name == name) {
            return function;
        }
    }
    return nullptr;
}

bool RandomCalls::Next(Arguments& arguments) {
    if (left_ == 0) {
        return false;
    }
    --left_;
    arguments.Clear();
    for (const Input input : function_.inputs) {
        arguments.Add(input(random_));
    }
    return true;
}

uint64_t DigestOfRandomCalls(const Function& function, Call call, int count) {
    Digest digest;
    Arguments arguments;
    Outcome out;
    for (RandomCalls calls(function, count); calls.Next(arguments);) {
        out.Clear();
        call(arguments, out);
        for (const char byte : out.text()) {
            digest.Add(byte);
        }
        digest.Add('\n');
    }
    return digest.value();
}

}  // namespace vectors
