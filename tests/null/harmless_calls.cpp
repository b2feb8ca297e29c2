// The clock is not set and no command is run; the Ethernet interface is there.

#include "tests/null/harmless_calls.h"

#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/time.h>

#include <cstdarg>
#include <cstring>

namespace {

std::vector<std::string> gCalls;

}  // namespace

const std::vector<std::string>& HarmlessCalls() {
    return gCalls;
}

extern "C" {

int __real_systemEx(const char* command);
int __wrap_systemEx(const char* command) {
    if (command == nullptr) {
        return __real_systemEx(nullptr);
    }
    gCalls.emplace_back(command);
    return 0;
}

int __wrap_settimeofday(const struct timeval*, const struct timezone*) {
    gCalls.emplace_back("settimeofday");
    return 0;
}

int __wrap_ioctl(int, unsigned long request, ...) {
    va_list values;
    va_start(values, request);
    auto* interface = va_arg(values, struct ifreq*);
    va_end(values);
    if (request == SIOCGIFHWADDR) {
        memcpy(interface->ifr_hwaddr.sa_data, "\x00\x1a\x2b\x3c\x4d\x5e", 6);
    }
    return 0;
}
}
