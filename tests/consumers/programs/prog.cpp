// The same program in C++20, with the language's own library.
#include <iostream>
#include <string>

#include <orvautil/fileutils.h>
#include <orvautil/log.h>
#include <orvautil/timeutils.h>
#include <orvautil/trstrutils.h>

int main() {
    TTime noon{};
    noon.tm_year = 124;
    noon.tm_mon = 1;
    noon.tm_mday = 29;
    noon.tm_hour = 12;
    const long seconds = EncodeTime(&noon);
    std::cout << "seconds " << seconds << ", weekday " << noon.tm_wday << '\n'
              << "picture " << JudgePicFile("logo.bmp") << '\n';

    Str2Upcase(nullptr, 1);  // not told: the log is still off
    SetLogProgName("prog");
    SetLogLevel(LOG_WARNING | LOG_INFO, 1);
    Str2Upcase(nullptr, 1);
    std::string text = "abc";
    Str2Upcase(text.data(), 2);
    PrintLog(LOG_INFO, "prog", __func__, __LINE__, "text %s", text.c_str());
    return 0;
}
