// The merge step of MergeSort.
#ifndef UTIL_TRSTRUTILS_MERGE_SORT_H
#define UTIL_TRSTRUTILS_MERGE_SORT_H

extern "C" {

// Merges the sorted runs [lo, mid] and [mid + 1, hi] of array. Logs and leaves the runs as they
// are when there is no memory.
void MergeSortByMerge(int* array, int lo, int mid, int hi);
}

#endif
