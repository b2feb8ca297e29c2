// What the functions on Ethernet addresses share.
#ifndef UTIL_TIMEUTILS_MAC_ADDRESS_H
#define UTIL_TIMEUTILS_MAC_ADDRESS_H

constexpr int kMacSize = 6;

#endif
