// What localtime does to its callers. Link with WRAP localtime.
#ifndef TESTS_LOG_FAKE_LOCALTIME_H
#define TESTS_LOG_FAKE_LOCALTIME_H

#include <ctime>

// While it lives, localtime counts its calls, answers with `answer` when that is set, and leaves
// errno at `errno_left` when that is not 0.
class FakeLocaltime {
public:
    FakeLocaltime() { active_ = this; }
    ~FakeLocaltime() { active_ = nullptr; }
    FakeLocaltime(const FakeLocaltime&) = delete;
    FakeLocaltime& operator=(const FakeLocaltime&) = delete;

    static FakeLocaltime* active() { return active_; }

    struct tm* answer = nullptr;
    int errno_left = 0;
    int calls = 0;

private:
    inline static FakeLocaltime* active_ = nullptr;
};

#endif
