// orvatool: carries the terminal's diagnostic output off the device, on a USB disk.

#include <sys/types.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "log/log_line.h"
#include "platform/troption.h"
#include "udisk/udiskdetection.h"
#include "util/timeutils.h"

namespace {

constexpr const char* kLogTag = log_tag::kMain;
constexpr char kOutputFile[] = "/mnt/ramdisk/output.txt";
#define EXPORT_FOLDER UDISK_MOUNT_POINT "/tesmar_debug"
constexpr char kExportFolder[] = EXPORT_FOLDER;
constexpr char kMakeExportFolder[] = "mkdir " EXPORT_FOLDER " -p";
constexpr char kUnknownSerial[] = "no-serial-number";  // ".log" alone would be a hidden file
constexpr int kSerialSize = 24;
constexpr int kCommandSize = 128;

void EnableLevels(const char* letters) {
    puts("Set Debug Level Message...[EIWD]");
    (void)system("cat /proc/version");  // a failure leaves the version out, nothing else
    SetLogLevelByStr(letters);
}

// False when the command line is wrong; the usage is then written.
bool ReadOptions(int argc, char* argv[]) {
    int option;
    while ((option = getopt(argc, argv, "d:")) != -1) {
        if (option != 'd') {
            puts("Usage: orvatool [-d EIWD]");
            return false;
        }
        EnableLevels(optarg);
    }
    return true;
}

void FormCopyCommand(char (&command)[kCommandSize], const char* serial) {
    const char* name = *serial != '\0' ? serial : kUnknownSerial;
    snprintf(command, sizeof command, "cp %s %s/%s.log && sync", kOutputFile, kExportFolder, name);
}

// The command is logged as the format itself, so that "%%" and "%m" in a serial number keep their
// effect. Any other conversion would take an argument that is not there: then it is mere text.
const char* FormatOf(const char* command) {
    for (const char* c = command; *c != '\0'; ++c) {
        if (*c == '%') {
            ++c;
            if (*c != '%' && *c != 'm') {
                return "%s";
            }
        }
    }
    return command;
}

unsigned int Now() {
    return static_cast<unsigned int>(TrGetTickCount());
}

}  // namespace

int main(int argc, char* argv[]) {
    (void)freopen(kOutputFile, "w", stdout);  // a failure loses the output, nothing else
    if (!ReadOptions(argc, argv)) {
        return 0;
    }
    (void)SetLogProgName("orvatool");  // always 0
    LOG(LOG_INFO, "Init time:%u ret:%d", Now(), 0);

    char serial[kSerialSize] = {};
    (void)InitOption();  // without a store the number stays empty
    (void)LoadOptionStr("~SerialNumber", serial, sizeof serial);
    LOG(LOG_INFO, "SerialNumber:%s", serial);

    LOG(LOG_INFO, "Begin time:%u", Now());
    const int mount_result = DoMountUdisk();
    sync();
    if (mount_result != 0) {
        return 0;
    }
    if (access(kExportFolder, F_OK) != 0) {
        (void)system(kMakeExportFolder);  // a failure shows in the copy that follows
    }
    // Nothing is flushed before the copy: what the stream still holds reaches the file at the end.
    char command[kCommandSize] = {};
    FormCopyCommand(command, serial);
    LOG(LOG_INFO, FormatOf(command), command);
    (void)system(command);  // a failure shows in the next line
    LOG(LOG_INFO, "%m");
    DoUmount();
    return 0;
}
