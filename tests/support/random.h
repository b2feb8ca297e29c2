// Seeded random numbers and texts.
#ifndef TESTS_SUPPORT_RANDOM_H
#define TESTS_SUPPORT_RANDOM_H

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

// The same numbers on every target, which the standard's distributions do not promise.
class Random {
public:
    explicit Random(uint32_t seed) : engine_(seed) {}

    uint32_t Next() { return static_cast<uint32_t>(engine_()); }
    // Unsigned: the limits may be further apart than an int is wide.
    int Between(int low, int high) {
        const uint32_t first = static_cast<uint32_t>(low);
        return static_cast<int>(first + Next() % (static_cast<uint32_t>(high) - first + 1));
    }
    char OneOf(std::string_view alphabet) { return alphabet[Next() % alphabet.size()]; }

    // Of [0, max_length] bytes.
    std::string Text(std::string_view alphabet, int max_length) {
        std::string text(static_cast<size_t>(Between(0, max_length)), '\0');
        for (char& byte : text) {
            byte = OneOf(alphabet);
        }
        return text;
    }

private:
    std::mt19937 engine_;
};

#endif
