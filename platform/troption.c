// A file-backed stand-in for the terminal's option store.

#include "platform/troption.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const char kPathVariable[] = "ORVATOOL_OPTIONS";
static const char kDefaultPath[] = "/mnt/mtdblock/options.txt";
enum { kLineSize = 1024 };

static FILE* OpenStore(void) {
    const char* path = getenv(kPathVariable);
    return fopen(path != NULL ? path : kDefaultPath, "r");
}

// The value that the line gives to key, or NULL when it sets another one.
static const char* ValueInLine(const char* line, const char* key) {
    const size_t key_length = strlen(key);
    const int is_for_key = strncmp(line, key, key_length) == 0 && line[key_length] == '=';
    return is_for_key ? line + key_length + 1 : NULL;
}

int InitOption(void) {
    FILE* store = OpenStore();
    if (store == NULL) {
        return 0;
    }
    fclose(store);
    return 1;
}

int LoadOptionStr(const char* key, char* value, int size) {
    FILE* store = OpenStore();
    if (store == NULL) {
        return 0;
    }
    int found = 0;
    char line[kLineSize];
    while (!found && fgets(line, sizeof line, store) != NULL) {
        line[strcspn(line, "\r\n")] = '\0';
        const char* text = ValueInLine(line, key);
        if (text != NULL && size > 0) {
            snprintf(value, (size_t)size, "%s", text);
            found = 1;
        }
    }
    fclose(store);
    return found;
}
