// Merge sort from runs of one element upwards, without recursion.

#include "util/trstrutils/merge_sort.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "log/log_line.h"
#include "util/owners.h"
#include "util/trstrutils.h"

namespace {

constexpr const char* kLogTag = log_tag::kTrstrutils;

}  // namespace

void MergeSortByMerge(int* array, int lo, int mid, int hi) {
    const size_t size = static_cast<size_t>(hi - lo + 1) * sizeof *array;
    const UniqueMemory memory(malloc(size));
    if (!memory) {
        LOG(LOG_WARNING, "Error:out of memory!");
        return;
    }
    int* const merged = static_cast<int*>(memory.Get());
    int* out = merged;
    const int* left = array + lo;
    const int* const left_end = array + mid + 1;
    const int* right = left_end;
    const int* const right_end = array + hi + 1;
    while (left < left_end && right < right_end) {
        *out++ = *left <= *right ? *left++ : *right++;  // the left one of equals: stable
    }
    out = std::copy(left, left_end, out);
    std::copy(right, right_end, out);
    memcpy(array + lo, merged, size);
}

void MergeSort(int* array, int count) {
    if (array == nullptr || count < 2) {
        return;
    }
    // Unsigned, so that doubling the width cannot overflow.
    const auto end = static_cast<unsigned int>(count);
    for (unsigned int width = 1; width < end; width *= 2) {
        for (unsigned int lo = 0; lo < end - width; lo += 2 * width) {
            const unsigned int next = std::min(lo + 2 * width, end);
            MergeSortByMerge(array, static_cast<int>(lo), static_cast<int>(lo + width - 1),
                             static_cast<int>(next - 1));
        }
    }
}
