// Runs one of several equal parts of a sweep.
//
//   sweep            the names of all sweeps
//   sweep NAME PART PARTS
//
// Shows its progress on standard error. At the end it prints what was compared and how often; the
// exit status is 1 after the first difference.

#include <cstdio>
#include <cstdlib>

#include "tests/sweep/sweep.h"

namespace {

bool Run(const sweep::Sweep& sweep, int part, int parts) {
    constexpr int kSteps = 20;
    sweep::Checks checks;
    int shown = 0;
    for (int unit = part; unit < sweep.units && !checks.failed(); unit += parts) {
        sweep.check(unit, checks);
        const auto step = static_cast<int>(int64_t{unit} * kSteps / sweep.units);
        if (step > shown) {
            shown = step;
            fprintf(stderr, "%s, part %d of %d: %d %%\n", sweep.name, part + 1, parts,
                    step * 100 / kSteps);
        }
    }
    if (checks.failed()) {
        fprintf(stderr, "%s differs: %s\n", sweep.name, checks.failure().c_str());
        return false;
    }
    printf("%s\t%lld\n", sweep.what, static_cast<long long>(checks.count()));
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    setenv("TZ", "UTC0", 1);
    for (const sweep::Sweep& sweep : sweep::All()) {
        if (argc == 1) {
            puts(sweep.name);
        } else if (argc == 4 && std::string(argv[1]) == sweep.name) {
            return Run(sweep, atoi(argv[2]) - 1, atoi(argv[3])) ? 0 : 1;
        }
    }
    if (argc > 1) {
        fprintf(stderr, "usage: sweep [NAME PART PARTS]\n");
        return 2;
    }
    return 0;
}
