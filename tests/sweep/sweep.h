// Exhaustive comparisons, cut into units that are checked one by one, in any order.
#ifndef TESTS_SWEEP_SWEEP_H
#define TESTS_SWEEP_SWEEP_H

#include <cstdint>
#include <string>
#include <vector>

namespace sweep {

// Counts what was compared and keeps the first difference.
class Checks {
public:
    // describe gives the text of a difference; it is called at most once.
    template <typename Describe>
    void Expect(bool holds, const Describe& describe) {
        ++count_;
        if (!holds && failure_.empty()) {
            failure_ = describe();
        }
    }
    bool failed() const { return !failure_.empty(); }
    const std::string& failure() const { return failure_; }
    int64_t count() const { return count_; }

private:
    int64_t count_ = 0;
    std::string failure_;
};

// The time zone has to be UTC.
struct Sweep {
    const char* name;
    const char* what;  // is compared
    int units;
    void (*check)(int unit, Checks& checks);
};

Sweep Seconds();
Sweep Calendars();
Sweep Texts();
Sweep Hex();
Sweep Dates();

inline std::vector<Sweep> All() {
    return {Hex(), Dates(), Calendars(), Texts(), Seconds()};
}

}  // namespace sweep

#endif
