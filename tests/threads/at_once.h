// The same work on several threads at the same moment.
#ifndef TESTS_THREADS_AT_ONCE_H
#define TESTS_THREADS_AT_ONCE_H

#include <barrier>
#include <functional>
#include <thread>
#include <vector>

constexpr int kThreads = 4;
constexpr int kRounds = 50;

// Calls work with the number of each thread, many times. Before that, prepare runs on each thread,
// while no other works.
inline void AtOnce(const std::function<void(int thread)>& work, int rounds = kRounds,
                   const std::function<void(int thread)>& prepare = {}) {
    std::barrier start(kThreads);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int turn = 0; turn < kThreads; ++turn) {
                if (turn == thread && prepare) {
                    prepare(thread);
                }
                start.arrive_and_wait();
            }
            for (int i = 0; i < rounds; ++i) {
                work(thread);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

#endif
