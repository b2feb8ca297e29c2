// MergeSort.

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <numeric>
#include <string>
#include <vector>

#include "tests/support/inputs.h"
#include "tests/support/log_lines.h"
#include "tests/util/trstrutils/fake_heap.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace {

// Runs in a block of exactly the array's size.
std::vector<int> Sorted(std::vector<int> array) {
    MergeSort(array.data(), static_cast<int>(array.size()));
    return array;
}

std::vector<size_t> BytesOfMerges(int count) {
    std::vector<size_t> sizes;
    for (const naive::Merge& merge : naive::MergesOf(count)) {
        sizes.push_back(static_cast<size_t>(merge.hi - merge.lo + 1) * 4);
    }
    return sizes;
}

std::vector<int> Falling(int count) {
    std::vector<int> array(static_cast<size_t>(count));
    std::iota(array.rbegin(), array.rend(), 1);
    return array;
}

// In the order of the merges, each freed before the next.
void ExpectOneBlockPerMerge(std::vector<int> array) {
    const auto count = static_cast<int>(array.size());
    const std::vector<size_t> expected = BytesOfMerges(count);
    const FakeHeap heap;
    MergeSort(array.data(), count);
    EXPECT_EQ(heap.requests(), expected) << count;
    EXPECT_EQ(heap.live(), 0) << count;
    EXPECT_EQ(heap.most_live(), 1) << count;
}

}  // namespace

TEST(MergeSort, SortsBySignedValue) {
    EXPECT_EQ(Sorted({5, -1, 3, 3, 0}), (std::vector{-1, 0, 3, 3, 5}));
    EXPECT_EQ(Sorted({INT_MAX, INT_MIN, 0, -1, 1}), (std::vector{INT_MIN, -1, 0, 1, INT_MAX}));
}

TEST(MergeSort, LeavesAnArrayBelowTwoElementsAlone) {
    for (const int count : {1, 0, -1, INT_MIN}) {
        std::vector<int> array = {9, 5, 7};
        const FakeHeap heap;
        MergeSort(array.data(), count);
        EXPECT_EQ(array, (std::vector{9, 5, 7})) << count;
        EXPECT_TRUE(heap.requests().empty()) << count;
    }
    MergeSort(nullptr, 0);
}

TEST(MergeSort, TouchesOnlyCountElements) {
    std::vector<int> array = {4, 3, 2, 1};
    MergeSort(array.data(), 3);
    EXPECT_EQ(array, (std::vector{2, 3, 4, 1}));
}

TEST(MergeSort, SortsEveryPermutation) {
    for (int count = 2; count <= 8; ++count) {
        std::vector<int> array = Falling(count);
        std::sort(array.begin(), array.end());
        const std::vector<int> sorted = array;
        do {
            ASSERT_EQ(Sorted(array), sorted) << testing::PrintToString(array);
        } while (std::next_permutation(array.begin(), array.end()));
    }
}

TEST(MergeSort, SortsEveryArrayOfThreeValues) {
    CheckAllTexts("abc", 8, [](const std::string& text) {
        std::string sorted = text;
        std::sort(sorted.begin(), sorted.end());
        ASSERT_EQ(Sorted({text.begin(), text.end()}),
                  std::vector<int>(sorted.begin(), sorted.end()))
            << text;
    });
}

// The last merge gets two sorted runs, of every length and in every order of taking from them.
TEST(MergeSort, MergesRunsInEveryInterleaving) {
    constexpr int kLeft = 8;
    for (int right = 1; right <= kLeft; ++right) {
        const int count = kLeft + right;
        std::vector<int> sorted(static_cast<size_t>(count));
        std::iota(sorted.begin(), sorted.end(), 0);
        for (unsigned int lefts = 0; lefts < 1U << count; ++lefts) {
            if (std::popcount(lefts) != kLeft) {
                continue;
            }
            const auto is_left = [lefts](int element) { return (lefts >> element & 1) != 0; };
            std::vector<int> array;
            std::copy_if(sorted.begin(), sorted.end(), std::back_inserter(array), is_left);
            std::remove_copy_if(sorted.begin(), sorted.end(), std::back_inserter(array), is_left);
            ASSERT_EQ(Sorted(array), sorted) << testing::PrintToString(array);
        }
    }
}

TEST(MergeSort, SortsRandomArraysOfEveryLength) {
    Random random(11);
    for (int count = 0; count <= 1100; ++count) {
        std::vector<int> array(static_cast<size_t>(count));
        for (int& element : array) {
            element = static_cast<int>(random.Next());
        }
        std::vector<int> sorted = array;
        std::sort(sorted.begin(), sorted.end());
        ASSERT_EQ(Sorted(array), sorted) << count;
    }
}

TEST(MergeSort, SortsALargeArray) {
    const std::vector<int> array = Falling(1'000'003);
    const std::vector<int> sorted = Sorted(array);
    EXPECT_TRUE(std::equal(array.rbegin(), array.rend(), sorted.begin(), sorted.end()));
}

TEST(MergeSort, MergesThePairThenTheRestOfThree) {
    std::vector<int> array = {3, 2, 1};
    const FakeHeap heap;
    MergeSort(array.data(), 3);
    EXPECT_EQ(heap.requests(), (std::vector<size_t>{2 * 4, 3 * 4}));
}

TEST(MergeSort, DoublesTheRunsAndSkipsASortedRemainder) {
    std::vector<int> array = Falling(11);
    const FakeHeap heap;
    MergeSort(array.data(), 11);
    EXPECT_EQ(heap.requests(), (std::vector<size_t>{2 * 4, 2 * 4, 2 * 4, 2 * 4, 2 * 4,  // 1 left
                                                    4 * 4, 4 * 4, 3 * 4,                // none
                                                    8 * 4,                              // 3 left
                                                    11 * 4}));
}

TEST(MergeSort, TakesOneBlockPerMergeAndFreesItBeforeTheNext) {
    for (int count = 2; count <= 70; ++count) {
        ExpectOneBlockPerMerge(Falling(count));
    }
}

TEST(MergeSort, LogsAMergeWithoutMemoryAndGoesOn) {
    std::vector<int> array = {4, 3, 2, 1};
    CapturedLog log;
    {
        const FakeHeap heap(1);
        MergeSort(array.data(), 4);
        EXPECT_EQ(heap.requests(), (std::vector<size_t>{8, 8, 16}));
        EXPECT_EQ(heap.live(), 0);
    }
    EXPECT_EQ(log.Take(), (std::vector<LogLine>{{"Warning", "trstrutils", "MergeSortByMerge",
                                                 "Error:out of memory!"}}));
    EXPECT_EQ(array, (std::vector{2, 1, 3, 4}));
}

TEST(MergeSort, LeavesTheArrayAloneWithoutAnyMemory) {
    std::vector<int> array = {5, 4, 3, 2, 1};
    CapturedLog log;
    {
        FakeHeap heap;
        heap.Fail(true);
        MergeSort(array.data(), 5);
        EXPECT_EQ(heap.requests(), (std::vector<size_t>{8, 8, 16, 20}));
    }
    EXPECT_EQ(log.Take(), std::vector<LogLine>(4, {"Warning", "trstrutils", "MergeSortByMerge",
                                                   "Error:out of memory!"}));
    EXPECT_EQ(array, (std::vector{5, 4, 3, 2, 1}));
}

TEST(MergeSort, LogsNothingWhenAllGoesWell) {
    CapturedLog log;
    EXPECT_EQ(Sorted({3, 2, 1}), (std::vector{1, 2, 3}));
    EXPECT_EQ(log.TakeText(), "");
}

TEST(MergeSort, LeavesOutExactlyTheMergeWithoutMemory) {
    for (int count = 2; count <= 7; ++count) {
        const int merges = static_cast<int>(naive::MergesOf(count).size());
        std::vector<int> array = Falling(count);
        std::sort(array.begin(), array.end());
        do {
            for (int skipped = 0; skipped < merges; ++skipped) {
                std::vector<int> partly = array;
                {
                    const FakeHeap heap(skipped);
                    MergeSort(partly.data(), count);
                }
                ASSERT_EQ(partly, naive::MergeSort(array, skipped))
                    << testing::PrintToString(array) << " without merge " << skipped;
            }
        } while (std::next_permutation(array.begin(), array.end()));
    }
}

// A run that was left unmerged is not sorted, and all merges above it have to cope.
TEST(MergeSort, LeavesOutExactlyTheMergeWithoutMemoryOfManyElements) {
    Random random(12);
    for (int round = 0; round < 20'000; ++round) {
        std::vector<int> array(static_cast<size_t>(random.Between(8, 70)));
        for (int& element : array) {
            element = random.Between(-20, 20);
        }
        const int count = static_cast<int>(array.size());
        const int skipped = random.Between(0, static_cast<int>(naive::MergesOf(count).size()) - 1);
        std::vector<int> partly = array;
        {
            const FakeHeap heap(skipped);
            MergeSort(partly.data(), count);
        }
        ASSERT_EQ(partly, naive::MergeSort(array, skipped))
            << testing::PrintToString(array) << " without merge " << skipped;
    }
}

TEST(MergeSort, TakesTheBlocksOfASortedArrayToo) {
    for (int count = 2; count <= 70; ++count) {
        std::vector<int> array(static_cast<size_t>(count));
        std::iota(array.begin(), array.end(), 0);
        ExpectOneBlockPerMerge(array);
    }
}

TEST(MergeSort, LogsAMergeWithoutMemoryAlsoOfASortedArray) {
    std::vector<int> array = {1, 2, 3, 4};
    CapturedLog log;
    {
        FakeHeap heap;
        heap.Fail(true);
        MergeSort(array.data(), 4);
    }
    EXPECT_EQ(log.Take(), std::vector<LogLine>(3, {"Warning", "trstrutils", "MergeSortByMerge",
                                                   "Error:out of memory!"}));
    EXPECT_EQ(array, (std::vector{1, 2, 3, 4}));
}

TEST(MergeSort, DoesNothingForNull) {
    const FakeHeap heap;
    MergeSort(nullptr, 5);
    EXPECT_TRUE(heap.requests().empty());
}
