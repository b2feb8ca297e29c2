// util/timeutils/ethernet.h with NULL.

#include "tests/null/cases.h"
#include "util/timeutils.h"

std::vector<NullCase> EthernetCases() {
    return {
        NULL_CASE(str2mac, (Input("00:1a:2b:3c:4d:5f"), Bytes()), "0 out=001a2b3c4d5f",
                  Null{"text", "-1"}, Null{"out", "0"}),
        NULL_CASE(GetMac, (Room(), 18, 1), "1 buf=changed", Null{"buf", "0"}),
        NULL_CASE(GetMac, (Room(), 6, 2), "1 buf=changed", Null{"buf", "0"}).As("Bytes"),
        NULL_CASE(GetMac, (Room(), 4, 3), "1 buf=changed", Null{"buf", "0"}).As("SomeBytes"),
        NULL_CASE(set_mac_addr, (Input("eth0"), Bytes()), kAnything,  //
                  Null{"interface", "-1 | Warning timeutils set_mac_addr: invalid address"},
                  Null{"mac", "-1 | Warning timeutils set_mac_addr: invalid address"}),
    };
}
