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

// Two runs of numbers, each from its first one up to its end.
struct Runs {
    const int* left;
    const int* left_end;
    const int* right;
    const int* right_end;
};

// Takes the steps smallest and the steps largest numbers off sorted runs, neither of which is
// shorter than that. Both ends at once, and nothing is chosen by a branch: a processor would guess
// it wrong every other time.
void MergeBothEnds(Runs& runs, int steps, int* out, int* out_last) {
    int lefts = 0;       // taken from the left run's start; what was not came from the right run
    int last_lefts = 0;  // taken from the left run's end
    for (int i = 0; i < steps; ++i) {
        const int left = runs.left[lefts];
        const int right = runs.right[i - lefts];
        const bool takes_left = left <= right;
        out[i] = takes_left ? left : right;
        lefts += takes_left;
        const int left_last = runs.left_end[-last_lefts - 1];
        const int right_last = runs.right_end[last_lefts - i - 1];
        const bool takes_left_last = left_last > right_last;
        out_last[-i] = takes_left_last ? left_last : right_last;
        last_lefts += takes_left_last;
    }
    runs = {runs.left + lefts, runs.left_end - last_lefts, runs.right + (steps - lefts),
            runs.right_end - (steps - last_lefts)};
}

// Always takes the smaller first number, also where the runs are not sorted.
void Merge(Runs runs, int* out) {
    while (runs.left < runs.left_end && runs.right < runs.right_end) {
        // The left one of equals: stable.
        *out++ = *runs.left <= *runs.right ? *runs.left++ : *runs.right++;
    }
    out = std::copy(runs.left, runs.left_end, out);
    std::copy(runs.right, runs.right_end, out);
}

// The step below, faster through runs that are sorted; the right one is then not longer than the
// left one. Returns whether there was memory. Named alike, because the log line shows the name.
bool MergeSortByMerge(int* array, int lo, int mid, int hi, bool are_sorted) {
    const size_t size = static_cast<size_t>(hi - lo + 1) * sizeof *array;
    const UniqueMemory memory(malloc(size));
    if (!memory) {
        LOG(LOG_WARNING, "Error:out of memory!");
        return false;
    }
    Runs runs = {array + lo, array + mid + 1, array + mid + 1, array + hi + 1};
    if (are_sorted && array[mid] <= array[mid + 1]) {
        return true;
    }
    int* const merged = static_cast<int*>(memory.Get());
    const int steps = are_sorted ? hi - mid : 0;
    MergeBothEnds(runs, steps, merged, merged + (hi - lo));
    Merge(runs, merged + steps);
    memcpy(array + lo, merged, size);
    return true;
}

}  // namespace

void MergeSortByMerge(int* array, int lo, int mid, int hi) {
    (void)MergeSortByMerge(array, lo, mid, hi, false);  // logged there
}

void MergeSort(int* array, int count) {
    if (array == nullptr || count < 2) {
        return;
    }
    bool are_sorted = true;  // the runs, until a merge finds no memory
    // Unsigned, so that doubling the width cannot overflow.
    const auto end = static_cast<unsigned int>(count);
    for (unsigned int width = 1; width < end; width *= 2) {
        for (unsigned int lo = 0; lo < end - width; lo += 2 * width) {
            const unsigned int next = std::min(lo + 2 * width, end);
            are_sorted &=
                MergeSortByMerge(array, static_cast<int>(lo), static_cast<int>(lo + width - 1),
                                 static_cast<int>(next - 1), are_sorted);
        }
    }
}
