// An Ethernet interface behind socket, ioctl and close. Link with WRAP close ioctl select socket.
#ifndef TESTS_UTIL_TIMEUTILS_ETHERNET_FAKE_INTERFACE_H
#define TESTS_UTIL_TIMEUTILS_ETHERNET_FAKE_INTERFACE_H

#include <net/if.h>

#include <climits>
#include <set>
#include <string>
#include <vector>

// While it lives, requests on the address of an interface are answered from here, select returns
// at once, and all of them are recorded in their order: "socket 2 2 0", "get", "set",
// "sleep 0.100000", "close". A call on another descriptor than the socket's carries its number, as
// in "get on -1".
class FakeInterface {
public:
    FakeInterface() { active_ = this; }
    ~FakeInterface() { active_ = nullptr; }
    FakeInterface(const FakeInterface&) = delete;
    FakeInterface& operator=(const FakeInterface&) = delete;

    static FakeInterface* active() { return active_; }

    // The setting. An error is the errno of a failure, 0 stands for success.
    std::string address = std::string("\x00\x1A\x2B\x3C\x4D\x5E", 6);
    int socket_error = 0;
    int close_error = 0;
    int set_error = 0;
    int tries_until_set = 1;     // the address changes with this set request
    std::set<int> failing_gets;  // which get requests fail, counted from 1
    int get_error = 0;           // with this errno
    bool all_gets_fail = false;

    // What happened.
    std::vector<std::string> calls;
    std::vector<struct ifreq> sets;  // the requests as they came
    std::vector<struct ifreq> gets;

    // For the replaced calls.
    int OpenSocket(int domain, int type, int protocol);
    int Request(int fd, unsigned long request, struct ifreq* arg);
    bool Close(int fd);  // false for a descriptor of the test's own
    void Sleep(long seconds, long microseconds);

private:
    void Record(const std::string& call, int fd);

    inline static FakeInterface* active_ = nullptr;
};

#endif
