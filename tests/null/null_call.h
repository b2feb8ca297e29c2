// Calls of a function with NULL in one of its pointer arguments, each in a child of its own.
#ifndef TESTS_NULL_NULL_CALL_H
#define TESTS_NULL_NULL_CALL_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "util/timeutils.h"

// What comes of a call as one text: the result, the buffers that changed, the commands that were
// run and the log, as in "1 year=2024 $ date | Info timeutils f: message".
constexpr char kAnything[] = "any";  // depends on the machine; the call returns
// The caller was: by a signal, or by the sanitizers, which report and exit.
constexpr char kEnded[] = "ended";

struct Null {
    const char* argument;  // its name
    const char* outcome;   // of the call with NULL there
};

struct NullCase {
    std::string function;       // or another exported name
    std::string variant;        // tells cases of one function apart
    const char* legal_outcome;  // of the call without NULL
    std::vector<Null> nulls;
    std::function<std::string(int which)> call;  // -1: no argument is NULL

    NullCase As(const char* name) const {
        NullCase named = *this;
        named.variant = name;
        return named;
    }
};

std::ostream& operator<<(std::ostream& out, const NullCase& tested);

// The outcome of the call in a child whose working folder is folder, or how the child ended.
std::string OutcomeInChild(const NullCase& tested, int which, const std::string& folder);

// Legal arguments. They are made in the child and never released.
const char* Input(std::string_view text);  // no byte more than the text
char* Text(std::string_view text);         // with room for 31 characters
char* Room();                              // the same, without a text
int* Number();
int* Numbers(int first, int second);
unsigned char* Bytes();  // six
TTime* Record();
template <typename T>
T* Block();

// For the functions below.
void* NewBlock(size_t size, const void* content);
bool IsChanged(const void* block);
std::string PositionOf(const void* address, const std::vector<const void*>& blocks,
                       const std::vector<Null>& names);
std::string Shown(const char* text);
std::string Shown(const unsigned char* bytes);
std::string Shown(const int* number);
std::string Shown(const TTime* record);
std::string Shown(const void* record);

template <typename T>
T* Block() {
    const T zero = {};
    return static_cast<T*>(NewBlock(sizeof zero, &zero));
}

template <typename Function>
struct Signature;

template <typename R, typename... Args>
struct Signature<R (*)(Args...)> {
    using Result = R;
    using Arguments = std::tuple<Args...>;
    static constexpr size_t kPointers = (size_t{0} + ... + (std::is_pointer_v<Args> ? 1 : 0));
};

template <typename R, typename... Args>
struct Signature<R (*)(Args..., ...)> : Signature<R (*)(Args...)> {};

// Calls function and tells what came of it.
template <typename Function>
std::string Call(Function function, typename Signature<Function>::Arguments arguments, int which,
                 const std::vector<Null>& names) {
    std::vector<const void*> blocks;
    std::vector<std::function<std::string()>> shown;
    const auto prepare = [&](auto& argument) {
        if constexpr (std::is_pointer_v<std::remove_reference_t<decltype(argument)>>) {
            if (static_cast<int>(blocks.size()) == which) {
                argument = nullptr;
            }
            if constexpr (std::is_convertible_v<decltype(argument), const void*>) {
                blocks.push_back(argument);
                shown.push_back([argument] { return Shown(argument); });
            } else {
                blocks.push_back(nullptr);  // a function
                shown.push_back(nullptr);
            }
        }
    };
    std::apply([&](auto&... argument) { (prepare(argument), ...); }, arguments);

    std::string outcome;
    if constexpr (std::is_void_v<typename Signature<Function>::Result>) {
        std::apply(function, arguments);
        outcome = "done";
    } else if constexpr (std::is_pointer_v<typename Signature<Function>::Result>) {
        outcome = PositionOf(std::apply(function, arguments), blocks, names);
    } else {
        outcome = std::to_string(std::apply(function, arguments));
    }
    for (size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i] != nullptr && IsChanged(blocks[i])) {
            outcome += std::string(" ") + names[i].argument + '=' + shown[i]();
        }
    }
    return outcome;
}

// A case needs as many Nulls as its function has pointer arguments, in their order.
template <typename Function, typename Legal, typename... Nulls>
NullCase MakeNullCase(const char* name, Function function, Legal legal, const char* legal_outcome,
                      Nulls... nulls) {
    static_assert(sizeof...(Nulls) == Signature<Function>::kPointers,
                  "each pointer argument of the function needs a Null");
    const std::vector<Null> all = {nulls...};
    return {name, "", legal_outcome, all,
            [=](int which) { return Call<Function>(function, legal(), which, all); }};
}

template <typename Function>
NullCase MakeCaseWithoutPointers(const char* name) {
    static_assert(Signature<Function>::kPointers == 0, "has pointer arguments: it is a NULL_CASE");
    return {name, "", "", {}, nullptr};
}

template <typename Object>
NullCase MakeDataObject(const char* name) {
    static_assert(!std::is_function_v<Object>, "is a function: it is a NULL_CASE or NO_POINTERS");
    return {name, "", "", {}, nullptr};
}

// NULL_CASE(IntTimeToStrTime, (Room(), 6, 930), "0 dst=09:30", Null{"dst", "-1"})
#define NULL_CASE(function, legal_arguments, ...) \
    MakeNullCase(                                 \
        #function, &function, [] { return std::make_tuple legal_arguments; }, __VA_ARGS__)

// A function without pointer arguments has nothing to be called for.
#define NO_POINTERS(function) MakeCaseWithoutPointers<decltype(&function)>(#function)

// Nor has an exported data object.
#define DATA_OBJECT(object) MakeDataObject<decltype(object)>(#object)

#endif
