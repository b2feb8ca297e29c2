// Numbers in texts, hexadecimal digits, the checksum, sorting.
#include <orvautil/timeutils.h>
#include <orvautil/trstrutils.h>
#include <stdio.h>

int main(void) {
    // The default says that a text is no number, so take one that cannot occur.
    printf("%d %d %d\n", str2int("42", -1), str2int("42 doors", -1), str2int("4x2", -1));
    // Good to know: spaces are skipped while the value is 0, and '+' is no sign.
    printf("%d %d %d\n", str2int(" - 7", -1), str2int("0 42", -1), str2int("+42", -1));
    printf("%d %d\n", ConvertStrToInt("2024", 0), ConvertStrToInt("twenty", 0));
    printf("%d %d\n", digitvalue('7'), digitvalue('a'));

    unsigned char bytes[4];
    const int count = Decode16("1aFFx0", bytes);
    // Good to know: 0 stands for a wrong digit; the bytes before it are written all the same.
    printf("%d, %02x %02x\n", count, bytes[0], bytes[1]);
    printf("%d", Decode16("00c0Ffee", bytes));
    for (int i = 0; i < 4; ++i) {
        printf(" %02x", bytes[i]);
    }
    printf("\n%02x\n", (unsigned int)str2Hex('7', 'f'));

    // The Internet checksum. Stored into the packet as it is, not swapped, the packet's own is 0.
    unsigned short packet[] = {0x0045, 0x5400, 0x0000, 0x0000};
    packet[3] = (unsigned short)in_chksum(packet, sizeof packet);
    printf("checksum %04x, of the whole packet %04x\n", (unsigned int)packet[3],
           (unsigned int)in_chksum(packet, sizeof packet));

    int numbers[] = {5, -3, 12, 0, 5};
    MergeSort(numbers, 5);
    for (int i = 0; i < 5; ++i) {
        printf("%d%c", numbers[i], i + 1 < 5 ? ' ' : '\n');
    }
    return 0;
}
