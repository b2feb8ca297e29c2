// The main of every unit test program: the state that its tests start from.

#include <gtest/gtest.h>

#include <bit>
#include <csignal>
#include <cstdio>

#include "tests/support/dirty_stack.h"

// Words and records stand in the tests as the bytes that little-endian processors have of them.
static_assert(std::endian::native == std::endian::little);

namespace {

// What a test leaves uninitialised holds no zeros that some earlier call happened to leave.
class DirtyStackBeforeEachTest : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { DirtyStack(); }
};

}  // namespace

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::UnitTest::GetInstance()->total_test_count() == 0) {
        fprintf(stderr, "%s: there are no tests in this program\n", argv[0]);
        return 1;
    }
    // A shell starts its background jobs with these ignored; the tests expect what is usual.
    signal(SIGINT, SIG_DFL);
    signal(SIGQUIT, SIG_DFL);
    testing::UnitTest::GetInstance()->listeners().Append(new DirtyStackBeforeEachTest);
    return RUN_ALL_TESTS();
}
