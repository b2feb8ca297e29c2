// NandSetRote: where its pages stand.

#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <vector>

#include "splash/splash.h"
#include "tests/splash/fake_board.h"
#include "tests/support/captured_stream.h"

TEST(NandSetRote, KeepsItsPagesOnTheStack) {
    constexpr ptrdiff_t kStackSize = 1 << 20;
    constexpr ptrdiff_t kPagesSize = 133'120;
    const CapturedStream output(stdout);
    const FakeBoard board;
    OpenGpioNand();
    // A stack of the test's own: what the call uses of it is no longer zero.
    std::vector<char> stack(kStackSize);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstack(&attributes, stack.data(), stack.size()), 0);
    const auto set = [](void*) -> void* {
        NandSetRote("16");
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, set, nullptr), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    const auto deepest = std::find_if(stack.begin(), stack.end(), [](char c) { return c != 0; });
    EXPECT_GE(stack.end() - deepest, kPagesSize);
    EXPECT_NE(deepest, stack.begin());  // else it may have been more than there was
}
