// The replaced heap calls.

#include "tests/util/trstrutils/fake_heap.h"

#include <algorithm>

extern "C" {
void* __real_malloc(size_t size);
void __real_free(void* block);
}

namespace {

FakeHeap* current;

}  // namespace

FakeHeap::FakeHeap(int failing) : failing_(failing) {
    requests_.reserve(64);
    current = this;
}

FakeHeap::~FakeHeap() {
    current = nullptr;
}

struct FakeHeapCalls {
    static void* Allocate(FakeHeap& heap, size_t size) {
        const int number = static_cast<int>(heap.requests_.size());
        heap.requests_.push_back(size);
        if (heap.fails_all_ || number == heap.failing_) {
            return nullptr;
        }
        heap.most_live_ = std::max(heap.most_live_, ++heap.live_);
        return __real_malloc(size);
    }

    static void Release(FakeHeap& heap, void* block) {
        heap.live_ -= block != nullptr ? 1 : 0;
        __real_free(block);
    }
};

extern "C" {

void* __wrap_malloc(size_t size) {
    return current != nullptr ? FakeHeapCalls::Allocate(*current, size) : __real_malloc(size);
}

void __wrap_free(void* block) {
    if (current != nullptr) {
        FakeHeapCalls::Release(*current, block);
    } else {
        __real_free(block);
    }
}
}
