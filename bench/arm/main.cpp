// Calls one function as often as it is told, for instructions to be counted around it.
//   rounds                    the rows: name, calls in a round, ways
//   rounds ROW ours ROUNDS    the row's function
//   rounds ROW empty ROUNDS   a function of the same signature that does nothing
//   rounds ROW peer ROUNDS    its peer, if it has one here
#include <cstdlib>
#include <utility>

#include "bench/cases/log.h"
#include "bench/cases/numbers.h"
#include "bench/cases/strings.h"
#include "bench/cases/texts.h"
#include "bench/peers/portable.h"

namespace {

template <class Result>
void Keep(const Result& result) {
    asm volatile("" : : "m"(result) : "memory");
}

template <class Case, auto kFunction>
void Run(int rounds) {
    const auto inputs = Case::Inputs();
    BeginRounds<Case>();
    for (int round = 0; round < rounds; ++round) {
        for (const auto& input : inputs) {
            Keep(Case::template Call<kFunction>(input));
        }
    }
    EndRounds<Case>();
}

struct Row {
    std::string name;
    size_t (*calls)();  // in a round
    std::vector<std::pair<std::string, void (*)(int rounds)>> ways;
};

template <class Case, auto kOurs, auto... kPeer>
Row RowOf() {
    return {Case::Name(),
            [] { return Case::Inputs().size(); },
            {{"ours", Run<Case, kOurs>},
             {"empty", Run<Case, Empty<decltype(kOurs)>::Call>},
             {"peer", Run<Case, kPeer>}...}};
}

std::vector<Row> Rows() {
    return {
        RowOf<EncodeUsual, EncodeTime>(),
        RowOf<EncodeAny, EncodeTime>(),
        RowOf<EncodeDays<1000>, EncodeTime>(),
        RowOf<EncodeDays<100000>, EncodeTime>(),
        RowOf<ToCalendar<CALENDAR_PERSIAN>, ChrisTmToLocalTm>(),
        RowOf<FromCalendar<CALENDAR_PERSIAN>, LocalTmToChrisTm>(),
        RowOf<ToCalendar<CALENDAR_ISLAMIC>, ChrisTmToLocalTm>(),
        RowOf<FromCalendar<CALENDAR_ISLAMIC>, LocalTmToChrisTm>(),
        RowOf<MonthDays, GetMaxDaysOfMonth>(),
        RowOf<WriteTime, TTimeToStrTime>(),
        RowOf<WriteRecord, TTimeToStr>(),
        RowOf<WriteDate, FormatDate>(),
        RowOf<ReadDate, DeFormatDate>(),
        RowOf<HourTexts, HourTimeFormatToCurMode>(),
        RowOf<SplitDate, ParseDate>(),
        RowOf<SplitClock, TimeTimeToInt>(),
        RowOf<MoveText, ChrisToLocalTime>(),
        RowOf<ReadTime, StrTimeToTTime>(),
        RowOf<Checksum<20>, in_chksum>(),
        RowOf<Checksum<64>, in_chksum>(),
        RowOf<Checksum<1500>, in_chksum>(),
        RowOf<Sort<16>, MergeSort, StableSort>(),
        RowOf<Sort<256>, MergeSort, StableSort>(),
        RowOf<Sort<4096>, MergeSort, StableSort>(),
        RowOf<Sort<4096, true>, MergeSort, StableSort>(),
        RowOf<Hex<12>, Decode16>(),
        RowOf<Hex<1024>, Decode16>(),
        RowOf<ValueOfKey<4>, ExtractValue, ValueBy<FindByMemmem>>(),
        RowOf<ValueOfKey<32>, ExtractValue, ValueBy<FindByMemmem>>(),
        RowOf<ValueOfKey<256>, ExtractValue, ValueBy<FindByMemmem>>(),
        RowOf<SplitKeyValue, SplitKeyValueByChar>(),
        RowOf<Trim, TrimAroundSpace>(),
        RowOf<Upcase, Str2Upcase>(),
        RowOf<LogOn<Zone::kSet>, PrintLog>(),
        RowOf<LogOn<Zone::kUnset>, PrintLog>(),
        RowOf<LogOff, PrintLog>(),
    };
}

void List(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        printf("%s %zu", row.name.c_str(), row.calls());
        for (const auto& way : row.ways) {
            printf(" %s", way.first.c_str());
        }
        putchar('\n');
    }
}

}  // namespace

int main(int argc, char* argv[]) {
    const std::vector<Row> rows = Rows();
    if (argc == 1) {
        List(rows);
        return 0;
    }
    for (const Row& row : rows) {
        for (const auto& [way, run] : row.ways) {
            if (argc == 4 && row.name == argv[1] && way == argv[2]) {
                run(atoi(argv[3]));
                return 0;
            }
        }
    }
    fputs("usage: rounds [ROW ours|empty|peer ROUNDS]\n", stderr);
    return 2;
}
