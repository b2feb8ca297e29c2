// The interface's state, and the replaced calls.

#include "tests/util/timeutils/ethernet/fake_interface.h"

#include <net/if_arp.h>
#include <sys/ioctl.h>
#include <sys/select.h>

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kSocket = 777;

int ResultOf(int error) {
    if (error == 0) {
        return 0;  // errno stays, as after any successful call
    }
    errno = error;
    return -1;
}

}  // namespace

void FakeInterface::Record(const std::string& call, int fd) {
    calls.push_back(fd == kSocket ? call : call + " on " + std::to_string(fd));
}

int FakeInterface::OpenSocket(int domain, int type, int protocol) {
    calls.push_back("socket " + std::to_string(domain) + ' ' + std::to_string(type) + ' ' +
                    std::to_string(protocol));
    return socket_error != 0 ? ResultOf(socket_error) : kSocket;
}

int FakeInterface::Request(int fd, unsigned long request, struct ifreq* arg) {
    const bool is_set = request == SIOCSIFHWADDR;
    if (!is_set && request != SIOCGIFHWADDR) {
        abort();
    }
    Record(is_set ? "set" : "get", fd);
    (is_set ? sets : gets).push_back(*arg);
    if (fd != kSocket) {
        return ResultOf(EBADF);
    }
    if (is_set) {
        if (static_cast<int>(sets.size()) == tries_until_set) {
            address.assign(arg->ifr_hwaddr.sa_data, address.size());
        }
        return ResultOf(set_error);
    }
    if (all_gets_fail || failing_gets.contains(static_cast<int>(gets.size()))) {
        return ResultOf(get_error);
    }
    memset(&arg->ifr_hwaddr, 0x77, sizeof arg->ifr_hwaddr);
    arg->ifr_hwaddr.sa_family = ARPHRD_ETHER;
    memcpy(arg->ifr_hwaddr.sa_data, address.data(), address.size());
    return 0;
}

bool FakeInterface::Close(int fd) {
    if (fd != kSocket) {
        return false;
    }
    Record("close", fd);
    return true;
}

void FakeInterface::Sleep(long seconds, long microseconds) {
    char call[50];
    snprintf(call, sizeof call, "sleep %ld.%06ld", seconds, microseconds);
    calls.push_back(call);
}

extern "C" {

int __wrap_socket(int domain, int type, int protocol) {
    return FakeInterface::active()->OpenSocket(domain, type, protocol);
}

// ioctl is never left to the system: the machine's own interfaces stay as they are.
int __wrap_ioctl(int fd, unsigned long request, ...) {
    va_list values;
    va_start(values, request);
    auto* const arg = va_arg(values, struct ifreq*);
    va_end(values);
    return FakeInterface::active()->Request(fd, request, arg);
}

int __real_close(int fd);
int __wrap_close(int fd) {
    FakeInterface* fake = FakeInterface::active();
    if (fake == nullptr || !fake->Close(fd)) {
        return __real_close(fd);
    }
    return ResultOf(fake->close_error);
}

int __wrap_select(int, fd_set*, fd_set*, fd_set*, struct timeval* timeout) {
    FakeInterface::active()->Sleep(timeout->tv_sec, timeout->tv_usec);
    return 0;
}
}
