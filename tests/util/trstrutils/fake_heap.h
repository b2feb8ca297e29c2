// The heap blocks of the code under test. Link with WRAP malloc free.
#ifndef TESTS_UTIL_TRSTRUTILS_FAKE_HEAP_H
#define TESTS_UTIL_TRSTRUTILS_FAKE_HEAP_H

#include <cstddef>
#include <vector>

// While it lives, malloc records what is asked of it and can fail. Let nothing but the code under
// test allocate meanwhile.
class FakeHeap {
public:
    // Fails request number failing, counted from 0; -1: none.
    explicit FakeHeap(int failing = -1);
    ~FakeHeap();
    FakeHeap(const FakeHeap&) = delete;
    FakeHeap& operator=(const FakeHeap&) = delete;

    void Fail(bool all) { fails_all_ = all; }

    // The sizes that were asked for, in order.
    const std::vector<size_t>& requests() const { return requests_; }

    int live() const { return live_; }            // blocks that are not freed
    int most_live() const { return most_live_; }  // at any one time

private:
    friend struct FakeHeapCalls;

    int failing_;
    bool fails_all_ = false;
    std::vector<size_t> requests_;
    int live_ = 0;
    int most_live_ = 0;
};

#endif
