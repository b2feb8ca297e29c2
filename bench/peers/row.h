// One row: a function of ours beside its peers, each of the same signature. Before anything is
// timed every peer must give our results for all inputs.
#ifndef BENCH_PEERS_ROW_H
#define BENCH_PEERS_ROW_H

#include <benchmark/benchmark.h>

#include "bench/case.h"

// True when the user asked for the row.
bool IsWanted(const std::string& row);

// Ends the program with the names of a row and of a peer whose results differ from ours.
[[noreturn]] void FailUnequal(const std::string& row, const std::string& way);

template <class Case, auto kFunction>
void Time(benchmark::State& state) {
    static const auto inputs = Case::Inputs();
    BeginRounds<Case>();
    for (auto _ : state) {
        for (const auto& input : inputs) {
            benchmark::DoNotOptimize(Case::template Call<kFunction>(input));
        }
    }
    EndRounds<Case>();
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(inputs.size()));
}

template <class Case, auto kOurs>
class Row {
public:
    Row() {
        Add<kOurs>("orvatool");
        Add<Empty<decltype(kOurs)>::Call>("limit: an empty call");
    }

    // Gives equal results.
    template <auto kPeer>
    Row& Peer(const char* name) {
        if (IsWanted(Case::Name())) {
            Check<kPeer>(name);
        }
        return Add<kPeer>(name);
    }

    // What no rewriting can avoid: the calls alone that the documented behaviour names.
    template <auto kFloor>
    Row& Floor(const char* name) {
        return Add<kFloor>(std::string("floor: ") + name);
    }

    // What this machine allows, where that is more than an empty call.
    template <auto kLimit>
    Row& Limit(const char* name) {
        return Add<kLimit>(std::string("limit: ") + name);
    }

private:
    template <auto kPeer>
    void Check(const char* name) {
        BeginRounds<Case>();
        bool equal = true;
        for (const auto& input : Case::Inputs()) {
            // A result may lie in a place that the next call uses again.
            const auto ours = Case::template Call<kOurs>(input);
            equal = equal && Case::template Call<kPeer>(input) == ours;
        }
        EndRounds<Case>();
        if (!equal) {
            FailUnequal(Case::Name(), name);
        }
    }

    template <auto kFunction>
    Row& Add(const std::string& way) {
        if (IsWanted(Case::Name())) {
            auto* const timed = benchmark::RegisterBenchmark((Case::Name() + '/' + way).c_str(),
                                                             Time<Case, kFunction>);
            if constexpr (requires { Case::kInOtherProcesses; }) {
                timed->UseRealTime();
            }
        }
        return *this;
    }
};

#endif
