// A program of somebody else, built with what liborvautil-dev brings.
#include <orvautil/config.h>
#include <orvautil/log.h>
#include <orvautil/trstrutils.h>
#include <stdio.h>

int main(void) {
    char text[] = "  used  ";
    TrimAroundSpace(text);
    printf("%s %s\n", ORVAUTIL_VERSION, text);
    SetLogProgName("caller");
    SetLogLevel(LOG_INFO, 1);
    PrintLog(LOG_INFO, "caller", __func__, __LINE__, "errors and infos: %d", GetLogLevel());
    return 0;
}
