// Runs the benchmarks and prints ratios: each function of ours against its peer.
//
// Benchmarks are named FUNCTION/orvatool and FUNCTION/PEER; the two stand next to each other.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

class RatioReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override {
        printf("%-28s %12s %12s %8s\n", "function / peer", "ours, ns", "peer, ns", "ratio");
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            Report(run.benchmark_name(), run.GetAdjustedCPUTime());
        }
    }

private:
    void Report(const std::string& name, double time_ns) {
        const size_t slash = name.find('/');
        const std::string peer = name.substr(slash + 1);
        if (peer == "orvatool") {
            our_time_ns_ = time_ns;
            return;
        }
        const std::string label = name.substr(0, slash) + " / " + peer;
        printf("%-28s %12.1f %12.1f %8.2f\n", label.c_str(), our_time_ns_, time_ns,
               our_time_ns_ / time_ns);
    }

    double our_time_ns_ = 0;
};

}  // namespace

int main(int argc, char* argv[]) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
