// Times functions of ours beside their peers.
//   peers [--benchmark_...] [ROW-REGEX]

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <regex>

#include "bench/peers/row.h"
#include "bench/peers/rows.h"

namespace {

std::regex gWanted(".*");

}  // namespace

bool IsWanted(const std::string& row) {
    return std::regex_search(row, gWanted);
}

void FailUnequal(const std::string& row, const std::string& way) {
    fprintf(stderr, "peers: %s: %s gives other results than ours\n", row.c_str(), way.c_str());
    exit(1);
}

int main(int argc, char* argv[]) {
    benchmark::Initialize(&argc, argv);
    if (argc > 1) {
        gWanted = argv[1];
    }
    AddRecordRows();
    AddCalendarRows();
    AddTimeTextRows();
    AddDateTextRows();
    AddNumberRows();
    AddStringRows();
    AddLogRows();
    AddFileRows();
    AddProcessRows();
    return benchmark::RunSpecifiedBenchmarks() > 0 ? 0 : 1;
}
