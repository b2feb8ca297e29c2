// The Ethernet address: typed as text, read from an interface, set on one.

#include <net/if.h>
#include <net/if_arp.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "log/log_line.h"
#include "util/integers.h"
#include "util/owners.h"
#include "util/timeutils.h"

namespace {

constexpr const char* kLogTag = log_tag::kTimeutils;
constexpr int kMacSize = 6;
constexpr char kInterface[] = "eth0";
constexpr int kTextSize = sizeof "00:1a:2b:3c:4d:5e";
constexpr int kAttempts = 500;
constexpr unsigned int kPauseMs = 100;
constexpr int kLoggedByte = 3;  // the first one after the manufacturer's prefix

constexpr int kBase = 16;
constexpr int kLetterValue = 10;  // of A
constexpr int kMaxByte = 255;

enum { kFormText = 1, kFormFullBytes = 2 };

// The digit's value, or -1.
int HexDigitValue(char character) {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    if (character >= 'a' && character <= 'f') {
        return character - 'a' + kLetterValue;
    }
    if (character >= 'A' && character <= 'F') {
        return character - 'A' + kLetterValue;
    }
    return -1;
}

int OpenSocket() {
    return socket(AF_INET, SOCK_DGRAM, 0);
}

struct ifreq RequestFor(const char* interface) {
    struct ifreq request;
    memset(&request, 0, sizeof request);  // {} clears one member of its unions only
    snprintf(request.ifr_name, sizeof request.ifr_name, "%s", interface);
    return request;
}

// 0, or -1 with errno; mac is then what the request held, which is zeros.
int ReadMac(int socket_fd, struct ifreq request, unsigned char (&mac)[kMacSize]) {
    const int result = ioctl(socket_fd, SIOCGIFHWADDR, &request);
    memcpy(mac, request.ifr_hwaddr.sa_data, sizeof mac);
    return result;
}

int WriteMac(int socket_fd, struct ifreq request, const unsigned char* mac) {
    memcpy(request.ifr_hwaddr.sa_data, mac, kMacSize);
    return ioctl(socket_fd, SIOCSIFHWADDR, &request);
}

}  // namespace

int str2mac(const char* text, unsigned char* out) {
    if (text == nullptr) {
        return -1;
    }
    unsigned char mac[kMacSize];
    int count = 0;
    int value = 0;  // wraps: a group may have any number of digits
    for (;; ++text) {
        if (*text != ':' && *text != '\0') {
            const int digit = HexDigitValue(*text);
            if (digit < 0) {
                return -1;
            }
            value = WrapToInt32(int64_t{value} * kBase + digit);
            continue;
        }
        if (value > kMaxByte) {
            return -1;
        }
        mac[count++] = static_cast<unsigned char>(value);
        if (*text == '\0' || count == kMacSize) {
            break;
        }
        value = 0;
    }
    if (count != kMacSize) {
        return -1;
    }
    if (out != nullptr) {
        memcpy(out, mac, sizeof mac);
    }
    return 0;
}

int GetMac(void* buf, int size, int form) {
    if ((form == kFormText && size < kTextSize) || (form == kFormFullBytes && size < kMacSize)) {
        LOG(LOG_WARNING, "Buffer Length too small");
        return 0;
    }
    UniqueFd socket_fd(OpenSocket());
    unsigned char mac[kMacSize];
    const int result = ReadMac(socket_fd.Get(), RequestFor(kInterface), mac);
    socket_fd.Reset(-1);
    if (result != 0) {
        LOG(LOG_WARNING, "get mac error:%m");
        return 0;
    }
    if (buf == nullptr && size > 0) {
        return 0;
    }
    if (form == kFormText) {
        snprintf(static_cast<char*>(buf), BufferSize(size), "%.2x:%.2x:%.2x:%.2x:%.2x:%.2x", mac[0],
                 mac[1], mac[2], mac[3], mac[4], mac[5]);
    } else if (buf != nullptr) {
        memcpy(buf, mac, std::min(BufferSize(size), sizeof mac));
    }
    return 1;
}

int set_mac_addr(const char* interface, const unsigned char* mac) {
    if (interface == nullptr || mac == nullptr) {
        LOG(LOG_WARNING, "invalid address");
        return -1;
    }
    const UniqueFd socket_fd(OpenSocket());
    if (!socket_fd) {
        LOG(LOG_WARNING, "socket:%m");
        return -1;
    }
    struct ifreq request = RequestFor(interface);
    request.ifr_hwaddr.sa_family = ARPHRD_ETHER;
    int result = 0;
    for (int attempt = 1; attempt <= kAttempts; ++attempt) {
        const int set_result = WriteMac(socket_fd.Get(), request, mac);
        LOG(LOG_WARNING, "%m");  // after success too: whatever errno holds
        if (set_result != 0) {
            LOG(LOG_WARNING, "SIOCSIFHWADDR:%m");
        }
        unsigned char current[kMacSize];
        result = ReadMac(socket_fd.Get(), request, current);
        LOG(LOG_WARNING, "%m");
        if (memcmp(current, mac, sizeof current) == 0) {
            break;
        }
        LOG(LOG_WARNING, "%d :%x-%x", attempt, mac[kLoggedByte], current[kLoggedByte]);
        Trmmsleep(kPauseMs);
    }
    return result;
}
