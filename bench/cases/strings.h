// Values of keys, splitting, and texts changed in place.
#ifndef BENCH_CASES_STRINGS_H
#define BENCH_CASES_STRINGS_H

#include <cstring>

#include "bench/case.h"
#include "util/trstrutils.h"

// Any key of a list of kKeys.
template <int kKeys>
struct ValueOfKey {
    struct Input {
        const char* list;
        std::string key;
    };

    static std::string Name() { return "value_" + std::to_string(kKeys); }
    static std::vector<Input> Inputs() {
        static const std::string list = List();
        return MakeInputs([](Numbers& numbers) -> Input {
            return {list.c_str(), Key(numbers.Between(0, kKeys - 1))};
        });
    }
    template <auto kFunction>
    static Text<24> Call(const Input& input) {
        Text<24> value;
        kFunction(input.list, input.key.c_str(), ',', value.bytes, sizeof value.bytes);
        return value;
    }

private:
    static std::string Key(int index) {
        return std::string("name").append(std::to_string(index * 7919 % 1000));
    }

    static std::string List() {
        std::string list;
        for (int i = 0; i < kKeys; ++i) {
            list.append(i > 0 ? "," : "").append(Key(i));
            list.append("=value").append(std::to_string(i));
        }
        return list;
    }
};

struct SplitKeyValue {
    struct Result {
        Text<24> key;
        Text<24> value;

        bool operator==(const Result&) const = default;
    };

    static std::string Name() { return "split_key_value"; }
    static std::vector<std::string> Inputs() {
        return MakeInputs([](Numbers& numbers) {
            return std::string(static_cast<size_t>(numbers.Between(3, 15)), 'k') + '=' +
                   std::string(static_cast<size_t>(numbers.Between(1, 20)), 'v');
        });
    }
    template <auto kFunction>
    static Result Call(const std::string& text) {
        Result result;
        kFunction(text.c_str(), result.key.bytes, sizeof result.key.bytes, result.value.bytes,
                  sizeof result.value.bytes, '=');
        return result;
    }
};

struct Trim {
    static std::string Name() { return "trim"; }
    static std::vector<Text<32>> Inputs() {
        return MakeInputs([](Numbers& numbers) {
            Text<32> text = {};
            snprintf(text.bytes, sizeof text.bytes, "%*s%.*s%*s", numbers.Between(0, 5), "",
                     numbers.Between(4, 20), "some text of a setting", numbers.Between(0, 5), "");
            return text;
        });
    }
    template <auto kFunction>
    static Text<32> Call(const Text<32>& input) {
        Text<32> text = input;
        kFunction(text.bytes);
        return text;
    }
};

struct Upcase {
    static std::string Name() { return "upcase"; }
    static std::vector<Text<32>> Inputs() {
        return MakeInputs([](Numbers& numbers) {
            Text<32> text = {};
            for (int i = 0; i < kLength; ++i) {
                text.bytes[i] = "0123456789 abcdefghijklmnoPQRSTUVWXYZ"[numbers.Between(0, 36)];
            }
            return text;
        });
    }
    template <auto kFunction>
    static Text<32> Call(const Text<32>& input) {
        Text<32> text = input;
        kFunction(text.bytes, kLength);
        return text;
    }

private:
    static constexpr int kLength = 20;
};

#endif
