// The LOG macro, by which all of the product's own sources write.

#include "log/log_line.h"

#include <string>
#include <vector>

#include "tests/log/fresh_log.h"
#include "tests/support/log_lines.h"
#include "util/fileutils.h"

namespace {

constexpr char kLogTag[] = "tag";

std::vector<int> NumbersOf(const std::vector<LogHead>& heads) {
    std::vector<int> numbers;
    for (const LogHead& head : heads) {
        numbers.push_back(head.number);
    }
    return numbers;
}

}  // namespace

class LogMacro : public FreshLog {
protected:
    CapturedLog log_;
};

TEST_F(LogMacro, NamesTagAndFunction) {
    LOG(LOG_INFO, "message %d", 5);
    EXPECT_EQ(log_.Take(), (std::vector<LogLine>{{"Info", "tag", "TestBody", "message 5"}}));
}

TEST_F(LogMacro, GivesTheLineOfItsCaller) {
    LOG(LOG_INFO, "first");
    LOG(LOG_INFO, "second");
    const int here = __LINE__;
    EXPECT_EQ(NumbersOf(log_.TakeHeads()), (std::vector{here - 2, here - 1}));
}

TEST_F(LogMacro, NumbersTheLinesOfOneFunctionApart) {
    GetFileCountOfFolder(nullptr);
    GetFileCountOfFolder("/missing");
    GetFileCountOfFolder(nullptr);
    const std::vector<int> numbers = NumbersOf(log_.TakeHeads());
    ASSERT_EQ(numbers.size(), 3U);
    EXPECT_NE(numbers[0], numbers[1]);
    EXPECT_EQ(numbers[0], numbers[2]);
}
