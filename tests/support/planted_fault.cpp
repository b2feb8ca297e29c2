// A program with one fault, of the kind that its argument names; `none` is a good one. What looks
// for faults while programs run must refuse each of them: else it looks at nothing.

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <thread>

namespace {

// Volatile, so that the compiler sees neither the fault nor that nothing comes of it.
volatile int gEight = 8;
volatile int gMost = INT_MAX;
void* volatile gBlock;
volatile int gShared;

void WriteBehindABlock() {
    gBlock = malloc(8);
    static_cast<char*>(gBlock)[gEight] = 1;
    free(gBlock);
}

void AskWhatWasNeverWritten() {
    gBlock = malloc(sizeof(int));
    if (*static_cast<int*>(gBlock) == gEight) {
        puts("8 by chance");
    }
    free(gBlock);
}

// Several, because the address of the last one may stay in a register.
void LoseBlocks() {
    for (int i = 0; i < gEight; ++i) {
        gBlock = malloc(8);
    }
    gBlock = nullptr;
}

void ExceedAnInt() {
    gMost = gMost + 1;
}

void WriteOnTwoThreads() {
    std::thread other([] { gShared = 1; });
    gShared = 2;
    other.join();
}

}  // namespace

int main(int argc, char** argv) {
    const struct {
        std::string_view name;
        void (*make)();
    } kFaults[] = {
        {"none", [] {}},      {"bounds", WriteBehindABlock}, {"value", AskWhatWasNeverWritten},
        {"leak", LoseBlocks}, {"overflow", ExceedAnInt},     {"race", WriteOnTwoThreads},
    };
    for (const auto& fault : kFaults) {
        if (argc == 2 && fault.name == argv[1]) {
            fault.make();
            return 0;  // also after a fault that nobody has seen
        }
    }
    fprintf(stderr, "usage: planted_fault none|bounds|value|leak|overflow|race\n");
    return 0;
}
