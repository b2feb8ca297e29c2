// DoUmount.

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "tests/udisk/fake_terminal.h"
#include "udisk/udiskdetection.h"

TEST(DoUmount, LogsByTheResult) {
    const struct {
        int result;
        const char* line;
    } kCases[] = {
        {-1, "Warning udiskdetection DoUmount: umounted /mnt/removable failed!\\n"},
        {0, "Info udiskdetection DoUmount: umounted /mnt/removable successfully!\\n"},
        {1, "Warning udiskdetection DoUmount: umounted state Unknown!\\n"},
        {-2, "Warning udiskdetection DoUmount: umounted state Unknown!\\n"},
        {INT_MAX, "Warning udiskdetection DoUmount: umounted state Unknown!\\n"},
    };
    FakeTerminal terminal;
    for (const auto& [result, line] : kCases) {
        terminal.umount_result = result;
        terminal.calls.clear();
        DoUmount();
        EXPECT_EQ(terminal.calls, (std::vector<std::string>{"umount /mnt/removable", line}));
    }
}
