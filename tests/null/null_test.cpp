// NULL in each pointer argument of each exported function, one at a time.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/null/cases.h"
#include "tests/util/fileutils/work_folder.h"

namespace {

std::vector<NullCase> AllCases() {
    std::vector<NullCase> all;
    for (const auto& cases : {LogCases(), ValueCases(), TextCases(), CalendarCases(), ClockCases(),
                              EthernetCases(), FileCases(), StringCases()}) {
        all.insert(all.end(), cases.begin(), cases.end());
    }
    return all;
}

std::vector<NullCase> CasesWithPointers() {
    std::vector<NullCase> cases = AllCases();
    std::erase_if(cases, [](const NullCase& tested) { return tested.nulls.empty(); });
    return cases;
}

std::string NameOf(const testing::TestParamInfo<NullCase>& info) {
    return info.param.function + info.param.variant;
}

std::set<std::string> ExportedNames() {
    std::ifstream file(EXPORTS_LIST);
    std::string text(std::istreambuf_iterator<char>(file), {});
    text = std::regex_replace(text, std::regex(R"(/\*[^*]*\*/)"), "");
    const std::regex name(R"((\w+);)");
    std::set<std::string> names;
    for (auto match = std::sregex_iterator(text.begin(), text.end(), name);
         match != std::sregex_iterator(); ++match) {
        names.insert((*match)[1]);
    }
    return names;
}

class NullPointer : public WorkFolder, public testing::WithParamInterface<NullCase> {
protected:
    NullPointer() {
        Write("file", "12345");
        std::filesystem::create_directory(Path("folder"));
        Write("folder/inside", "");
    }

    void ExpectOutcome(const std::string& expected, int which) const {
        const std::string outcome = OutcomeInChild(GetParam(), which, folder());
        if (expected == kEnded || expected == kAnything) {
            EXPECT_EQ(outcome.starts_with(kEnded), expected == kEnded) << outcome;
        } else {
            EXPECT_EQ(outcome, expected);
        }
    }
};

}  // namespace

// Without this the calls with NULL might end early for another reason.
TEST_P(NullPointer, NowhereHasTheLegalOutcome) {
    ExpectOutcome(GetParam().legal_outcome, -1);
}

TEST_P(NullPointer, InEachArgumentHasItsOutcome) {
    int which = 0;
    for (const Null& null : GetParam().nulls) {
        SCOPED_TRACE(GetParam().function + " with NULL for " + null.argument);
        ExpectOutcome(null.outcome, which++);
    }
}

INSTANTIATE_TEST_SUITE_P(Exported, NullPointer, testing::ValuesIn(CasesWithPointers()), NameOf);

TEST(NullTable, HoldsEveryExportedName) {
    std::set<std::string> missing = ExportedNames();
    EXPECT_FALSE(missing.empty()) << "nothing in " EXPORTS_LIST;
    for (const NullCase& tested : AllCases()) {
        missing.erase(tested.function);
    }
    for (const std::string& name : missing) {
        ADD_FAILURE() << name << " is missing: add NULL_CASE, NO_POINTERS or DATA_OBJECT to the "
                      << "cases of its header in tests/null";
    }
}

TEST(NullTable, LetsTwoFunctionsEndTheCaller) {
    std::set<std::string> ending;
    for (const NullCase& tested : AllCases()) {
        for (const Null& null : tested.nulls) {
            if (null.outcome == std::string(kEnded)) {
                ending.insert(tested.function + ' ' + null.argument);
            }
        }
    }
    EXPECT_EQ(ending,
              (std::set<std::string>{"DeFormatDate day", "DeFormatDate month", "DeFormatDate text",
                                     "DeFormatDate year", "StrTimeToTm rec"}));
}
