// The replaced localtime.

#include "tests/log/fake_localtime.h"

#include <cerrno>

extern "C" {

struct tm* __real_localtime(const time_t* seconds);

struct tm* __wrap_localtime(const time_t* seconds) {
    struct tm* local = __real_localtime(seconds);
    FakeLocaltime* fake = FakeLocaltime::active();
    if (fake == nullptr) {
        return local;
    }
    ++fake->calls;
    if (fake->errno_left != 0) {
        errno = fake->errno_left;
    }
    return fake->answer != nullptr ? fake->answer : local;
}
}
