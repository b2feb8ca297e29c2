// A call of a pure function as a line of text: its name, its arguments, and what it gave.
//
//   FormatDate 11 2024 5 7 = 0 "24/05/07\x00"
//
// An argument is a number, a text in quotes or a list of numbers in brackets. After '=' stand the
// result and what was written: buffers up to the last byte that changed, ~ for a number or a field
// that was left alone.
#ifndef TESTS_VECTORS_CALL_H
#define TESTS_VECTORS_CALL_H

#include <array>
#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/random.h"
#include "tests/util/timeutils/date_records.h"

namespace vectors {

struct Value {
    enum Kind { kNumber, kText, kList };

    Value(int64_t number_given) : kind(kNumber), number(number_given) {}
    Value(int number_given) : kind(kNumber), number(number_given) {}
    Value(const char* text_given) : kind(kText), text(text_given) {}
    Value(std::string text_given) : kind(kText), text(std::move(text_given)) {}
    Value(std::vector<int> list_given) : kind(kList), list(std::move(list_given)) {}

    Kind kind;
    int64_t number = 0;
    std::string text;
    std::vector<int> list;
};

class Arguments {
public:
    void Add(Value value) { values_.push_back(std::move(value)); }
    void Clear() { values_.clear(); }
    int Int(size_t i) const { return static_cast<int>(values_.at(i).number); }
    const std::string& Text(size_t i) const { return values_.at(i).text; }
    const std::vector<int>& List(size_t i) const { return values_.at(i).list; }
    const std::vector<Value>& values() const { return values_; }

    // Six fields from the argument first on, in the order of a date text, and all others marked.
    struct tm Record(size_t first) const;

private:
    std::vector<Value> values_;
};

constexpr size_t kRoom = 128;  // of every buffer that is written
constexpr char kFill = '\xA5';

// The time zone of all calls, without summer time.
constexpr char kZone[] = "XXX-5:30";
constexpr int kZoneSeconds = 19'800;

// What a call writes to: filled, with a text and its terminator at the start where one is given.
class Buffer {
public:
    Buffer() { bytes_.fill(kFill); }
    explicit Buffer(const std::string& text);
    char* data() { return bytes_.data(); }
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(bytes_.data()); }
    std::string all() const { return {bytes_.data(), kRoom}; }

private:
    std::array<char, kRoom> bytes_;
};

// The bytes of such a buffer for the second implementations.
inline std::string BufferBytes(const std::string& text) {
    return Buffer(text).all();
}
inline std::string BufferBytes() {
    return Buffer().all();
}

// What a call gave, as text.
class Outcome {
public:
    Outcome& operator<<(int64_t number);  // ~ for the mark
    Outcome& operator<<(const std::vector<int>& list);
    Outcome& operator<<(const struct tm& rec);
    Outcome& operator<<(const Buffer& buffer) { return Bytes(buffer.all()); }
    Outcome& Bytes(std::string_view all);  // up to the last one that is no fill
    Outcome& Text(std::string_view text);  // all of it

    const std::string& text() const { return text_; }
    void Clear() { text_.clear(); }

private:
    void Blank();

    std::string text_;
};

std::string Line(const std::string& name, const Arguments& arguments);

// The name and arguments of a line up to '='. False when it is malformed.
bool ParseLine(std::string_view line, std::string& name, Arguments& arguments);

using Call = void (*)(const Arguments& arguments, Outcome& out);
using Input = Value (*)(Random& random);

// A function: what random calls pass to it, the product's call, and the second implementation's.
struct Function {
    const char* name;
    std::vector<Input> inputs;
    Call product;
    Call naive;
};

// All pure functions, by topic.
const std::vector<Function>& CalendarFunctions();
const std::vector<Function>& StringFunctions();
const std::vector<Function>& TextFunctions();
const std::vector<Function>& ValueFunctions();

const Function* Find(std::string_view name);
std::vector<const Function*> AllFunctions();

// So many random calls of a function, the same on every target. Each count has calls of its own.
class RandomCalls {
public:
    RandomCalls(const Function& function, int count)
        : function_(function), random_(static_cast<uint32_t>(count)), left_(count) {}

    // The arguments of the next call; false after the last.
    bool Next(Arguments& arguments);

private:
    const Function& function_;
    Random random_;
    int left_;
};

// A digest of what they give.
uint64_t DigestOfRandomCalls(const Function& function, Call call, int count);

}  // namespace vectors

#endif
