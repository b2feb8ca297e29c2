// MergeSortByMerge, the merge step.

#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "tests/support/log_lines.h"
#include "tests/util/trstrutils/fake_heap.h"
#include "util/trstrutils/merge_sort.h"

namespace {

std::vector<int> Merged(std::vector<int> array, int lo, int mid, int hi) {
    MergeSortByMerge(array.data(), lo, mid, hi);
    return array;
}

}  // namespace

TEST(MergeSortByMerge, MergesTwoRuns) {
    EXPECT_EQ(Merged({1, 4, 6, 2, 3, 5}, 0, 2, 5), (std::vector{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(Merged({2, 1}, 0, 0, 1), (std::vector{1, 2}));
}

TEST(MergeSortByMerge, AppendsWhatIsLeftOfEitherRun) {
    EXPECT_EQ(Merged({7, 8, 9, 1, 2}, 0, 2, 4), (std::vector{1, 2, 7, 8, 9}));
    EXPECT_EQ(Merged({1, 7, 8, 9}, 0, 0, 3), (std::vector{1, 7, 8, 9}));
    EXPECT_EQ(Merged({5, 1, 2, 9}, 0, 0, 3), (std::vector{1, 2, 5, 9}));
}

TEST(MergeSortByMerge, TouchesItsRangeOnly) {
    EXPECT_EQ(Merged({9, 9, 3, 4, 1, 2, 0, 0}, 2, 3, 5), (std::vector{9, 9, 1, 2, 3, 4, 0, 0}));
}

TEST(MergeSortByMerge, ComparesSigned) {
    EXPECT_EQ(Merged({0, INT_MAX, INT_MIN, -1}, 0, 1, 3), (std::vector{INT_MIN, -1, 0, INT_MAX}));
}

// In runs that are not sorted the order shows which of two equal elements was taken.
TEST(MergeSortByMerge, TakesTheLeftOneOfEqualElements) {
    EXPECT_EQ(Merged({5, 1, 5, 7}, 0, 1, 3), (std::vector{5, 1, 5, 7}));
    EXPECT_EQ(Merged({5, 9, 5, 1}, 0, 1, 3), (std::vector{5, 5, 1, 9}));
}

TEST(MergeSortByMerge, TakesABlockForItsRangeAndFreesIt) {
    std::vector<int> array = {9, 3, 4, 1, 2, 0};
    const FakeHeap heap;
    MergeSortByMerge(array.data(), 1, 2, 4);
    EXPECT_EQ(heap.requests(), (std::vector<size_t>{4 * 4}));
    EXPECT_EQ(heap.live(), 0);
}

TEST(MergeSortByMerge, LogsAndLeavesTheRangeWithoutMemory) {
    std::vector<int> array = {3, 4, 1, 2};
    CapturedLog log;
    {
        const FakeHeap heap(0);
        MergeSortByMerge(array.data(), 0, 1, 3);
    }
    EXPECT_EQ(log.Take(), (std::vector<LogLine>{{"Warning", "trstrutils", "MergeSortByMerge",
                                                 "Error:out of memory!"}}));
    EXPECT_EQ(array, (std::vector{3, 4, 1, 2}));
}
