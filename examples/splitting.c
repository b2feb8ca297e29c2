// Splitting texts, and the values of keys.
#include <orvautil/trstrutils.h>
#include <stdio.h>
#include <string.h>

int main(void) {
    // Good to know: without a separator rest keeps what it held, and the byte before it is set to
    // 0. So clear rest before each call, and give it a byte in front of it that nobody needs.
    char first[32];
    char room[1 + 32] = {0};
    char* const rest = room + 1;
    SplitByChar("door=3=open", first, rest, '=');
    printf("\"%s\" and \"%s\"\n", first, rest);
    memset(room, 0, sizeof room);
    SplitByChar("no separator", first, rest, '=');
    printf("\"%s\" and \"%s\"\n", first, rest);

    // The same with sizes: what does not fit is cut. Clear value here too.
    char key[5];
    char value[16] = {0};
    SplitKeyValueByChar("serial=4711-0815", key, sizeof key, value, sizeof value, '=');
    printf("\"%s\" and \"%s\"\n", key, value);

    // Lists of keys and values. A key matches exactly: " age" is not "age".
    const char list[] = "name=Tom,age=7, size=9,note=";
    char name[8];
    int length = ExtractValue(list, "name", ',', name, sizeof name);
    printf("name: \"%s\", %d characters\n", name, length);
    printf("age: %d\n", ExtractValueInt(list, "age", ',', -1));
    printf("size: %d, \" size\": %d\n", ExtractValueInt(list, "size", ',', -1),
           ExtractValueInt(list, " size", ',', -1));
    // Good to know: 0 stands for an empty value, and for one that does not fit, which then has no
    // terminator.
    char small[2];
    length = ExtractValue(list, "name", ',', small, sizeof small);
    printf("too small: %d, \"%.2s\"\n", length, small);
    printf("missing: %d\n", ExtractValue(list, "street", ',', name, sizeof name));

    char line[] = "  front door ";
    TrimAroundSpace(line);
    Str2Upcase(line, (int)strlen(line));
    printf("\"%s\"\n", line);
    return 0;
}
