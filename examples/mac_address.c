// The Ethernet address as a text and as bytes.
#include <orvautil/timeutils.h>
#include <stdio.h>

enum { MAC_SIZE = 6, AS_TEXT = 1 };

static void Show(const unsigned char* mac) {
    for (int i = 0; i < MAC_SIZE; ++i) {
        printf("%02x%c", mac[i], i + 1 < MAC_SIZE ? ':' : '\n');
    }
}

int main(void) {
    unsigned char mac[MAC_SIZE] = {0};
    if (str2mac("00:1a:2B:3c:4D:5e", mac) == 0) {
        Show(mac);
    }
    // Good to know: a group may have one digit or none.
    if (str2mac("2:0::a:b:c", mac) == 0) {
        Show(mac);
    }
    // What cannot be read leaves the bytes as they were.
    printf("with blanks: %d\n", str2mac("00 1a 2b 3c 4d 5e", mac));
    printf("too short: %d\n", str2mac("00:1a:2b", mac));
    Show(mac);

    // The address of eth0. The text needs 18 bytes; what does not fit is not written.
    char text[sizeof "00:1a:2b:3c:4d:5e"] = "none";
    printf("a byte too few: %d, %s\n", GetMac(text, sizeof text - 1, AS_TEXT), text);
    if (GetMac(text, sizeof text, AS_TEXT) == 1) {
        fprintf(stderr, "eth0 has %s.\n", text);
    } else {
        fprintf(stderr, "There is no eth0.\n");
    }
    // set_mac_addr sets it. It needs root, and with a driver that refuses it takes 50 seconds.
    return 0;
}
