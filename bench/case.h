// What a row of the benchmark is, for the peers on this machine and for the count on ARM alike.
//
// A case is a type with
//   Name()                 the row's name, as in bench/rows.ini
//   Inputs()               the inputs of one round: many different ones, so that neither the
//                          compiler nor the branch predictor knows what comes
//   Call<kFunction>(input) one call, with a result that can be compared
// and, where it needs them, Begin() and End() around the rounds. kFunction is a function of ours or
// one of the same signature.
#ifndef BENCH_CASE_H
#define BENCH_CASE_H

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

// Nothing may be known about a peer where it is called, as nothing is known about ours.
#define PEER [[gnu::noipa]]

constexpr int kInputs = 1024;

// The same numbers in every run and on every machine.
class Numbers {
public:
    // Every number has about the same chance; which one exactly comes does not matter.
    int Between(int low, int high) {  // [low, high]
        const auto count = static_cast<uint64_t>(int64_t{high} - low + 1);
        return static_cast<int>(low + static_cast<int64_t>(engine_() % count));
    }

private:
    std::mt19937_64 engine_{1};
};

template <class Make>
auto MakeInputs(Make make, int count = kInputs) {
    Numbers numbers;
    std::vector<decltype(make(numbers))> inputs;
    for (int i = 0; i < count; ++i) {
        inputs.push_back(make(numbers));
    }
    return inputs;
}

// A text of fixed size, compared up to its terminator.
template <size_t kSize>
struct Text {
    char bytes[kSize];

    bool operator==(const Text& other) const {
        return std::string_view(bytes) == std::string_view(other.bytes);
    }
};

// A function of the same signature that does nothing: what the round itself costs.
template <class Function>
struct Empty;

template <class Result, class... Arguments>
struct Empty<Result (*)(Arguments...)> {
    PEER static Result Call(Arguments...) { return Result(); }
};

template <class Result, class... Arguments>
struct Empty<Result (*)(Arguments..., ...)> {
    PEER static Result Call(Arguments..., ...) { return Result(); }
};

template <class Case>
void BeginRounds() {
    if constexpr (requires { Case::Begin(); }) {
        Case::Begin();
    }
}

template <class Case>
void EndRounds() {
    if constexpr (requires { Case::End(); }) {
        Case::End();
    }
}

#endif
