// The tool's main: the words of its command line and the serial number become shell commands and
// log lines. What mounts and unmounts is replaced as a whole; partition_list has it.

#include <unistd.h>

#include <cerrno>
#include <vector>

#include "log/log.h"
#include "platform/troption.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/trace.h"
#include "udisk/udiskdetection.h"

int ToolMain(int argc, char* argv[]) __asm__("tool_main");  // main, under the name that CMake gives

namespace {

constexpr size_t kSerialLength = 23;  // the store cuts to the size that it is given
constexpr size_t kMostWords = 9;

// What the run finds.
struct Terminal {
    bool has_serial;
    bool has_export_folder;
    int mount_result;
    int errno_of_sync;
    int errno_of_commands;  // 0: they leave it
    std::string serial;
    int clock_readings = 0;
};
Terminal* gTerminal;

void Record(const std::string& call) {
    printf("<%s>\n", call.c_str());
}

std::string Called(const std::string& call) {
    return "<" + call + ">\n";
}

}  // namespace

extern "C" {

FILE* __wrap_freopen(const char* path, const char* mode, FILE* stream) {
    Record(std::string("freopen ") + path + " " + mode + (stream == stdout ? " stdout" : ""));
    return stream;
}

int __real_system(const char* command);
int __wrap_system(const char* command) {
    if (!IsTracing()) {
        return __real_system(command);
    }
    Record(std::string("system ") + command);
    if (gTerminal->errno_of_commands != 0) {
        errno = gTerminal->errno_of_commands;
    }
    return 0;
}

int __real_access(const char* path, int mode);
int __wrap_access(const char* path, int mode) {
    if (!IsTracing()) {
        return __real_access(path, mode);
    }
    Record(std::string("access ") + path + " " + std::to_string(mode));
    if (gTerminal->has_export_folder) {
        return 0;
    }
    errno = ENOENT;
    return -1;
}

void __wrap_sync() {
    Record("sync");
    errno = gTerminal->errno_of_sync;
}

int __wrap_gettimeofday(struct timeval* now, void*) {
    now->tv_sec = ++gTerminal->clock_readings;
    now->tv_usec = 0;
    return 0;
}

int __wrap_DoMountUdisk() {
    Record("mount");
    return gTerminal->mount_result;
}

void __wrap_DoUmount() {
    Record("umount");
}

int InitOption() {
    Record("InitOption");
    return 0;
}

int LoadOptionStr(const char* key, char* value, int size) {
    const bool is_cleared = std::string(value, static_cast<size_t>(size)) ==
                            std::string(static_cast<size_t>(size), '\0');
    Record(std::string("LoadOptionStr ") + key + " " + std::to_string(size) +
           (is_cleared ? " zeroes" : ""));
    if (gTerminal->has_serial) {
        snprintf(value, static_cast<size_t>(size), "%s", gTerminal->serial.c_str());
    }
    return 0;
}
}

namespace {

struct Options {
    std::vector<std::string> letters;  // of each -d
    std::string complaint;             // of the C library; empty: none
};

Options OptionsIn(const std::vector<std::string>& words) {
    Options options;
    for (size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
        const std::string& word = words[i];
        if (word.size() < 2 || word[0] != '-') {
            continue;
        }
        if (word[1] != 'd') {
            options.complaint = std::string("orvatool: invalid option -- '") + word[1] + "'\n";
            break;
        }
        if (word.size() > 2) {
            options.letters.push_back(word.substr(2));
        } else if (++i < words.size()) {
            options.letters.push_back(words[i]);
        } else {
            options.complaint = "orvatool: option requires an argument -- 'd'\n";
        }
    }
    return options;
}

// The command as a log format. With any conversion but "%%" and "%m" it is mere text.
std::string Shown(const std::string& command, const std::string& error) {
    std::string shown;
    for (size_t at = 0; at < command.size(); ++at) {
        const std::string pair = command.substr(at, 2);
        if (pair[0] != '%') {
            shown += pair[0];
            continue;
        }
        if (pair != "%%" && pair != "%m") {
            return command;
        }
        shown += pair == "%m" ? error : "%";
        ++at;
    }
    return shown;
}

std::string Expected(const Terminal& terminal, const std::vector<std::string>& words) {
    std::string text = Called("freopen /mnt/ramdisk/output.txt w stdout");
    bool is_logging = false;
    const auto log = [&](const std::string& message) {
        text += is_logging ? LogText("Info", "main", "main", message) : "";
    };
    const Options options = OptionsIn(words);
    for (const std::string& letters : options.letters) {
        text += "Set Debug Level Message...[EIWD]\n" + Called("system cat /proc/version");
        is_logging = is_logging || letters.find('I') != std::string::npos;
    }
    if (!options.complaint.empty()) {
        return text + options.complaint + "Usage: orvatool [-d EIWD]\n";
    }
    const std::string serial = terminal.has_serial ? terminal.serial.substr(0, kSerialLength) : "";
    log("Init time:1000 ret:0");
    text += Called("InitOption") + Called("LoadOptionStr ~SerialNumber 24 zeroes");
    log("SerialNumber:" + serial);
    log("Begin time:2000");
    text += Called("mount") + Called("sync");
    if (terminal.mount_result != 0) {
        return text;
    }
    int error = terminal.errno_of_sync;
    const auto run = [&](const std::string& command) {
        text += Called("system " + command);
        error = terminal.errno_of_commands != 0 ? terminal.errno_of_commands : error;
    };
    text += Called("access /mnt/removable/tesmar_debug 0");
    if (!terminal.has_export_folder) {
        error = ENOENT;
        run("mkdir /mnt/removable/tesmar_debug -p");
    }
    const std::string command = "cp /mnt/ramdisk/output.txt /mnt/removable/tesmar_debug/" +
                                (serial.empty() ? "no-serial-number" : serial) + ".log && sync";
    log(Shown(command, strerror(error)));
    run(command);
    log(strerror(error));
    return text + Called("umount");
}

std::string Run(const std::vector<std::string>& words) {
    std::vector<std::unique_ptr<char[]>> copies;
    copies.push_back(ExactCopy("orvatool"));
    for (const std::string& word : words) {
        copies.push_back(ExactCopy(word));
    }
    std::vector<char*> argv;
    for (const auto& copy : copies) {
        argv.push_back(copy.get());
    }
    argv.push_back(nullptr);
    return Traced([&] {
        SetLogProgName("");
        SetLogLevel(0xFF, 0);
        optind = 0;  // getopt starts anew
        Require(ToolMain(static_cast<int>(copies.size()), argv.data()) == 0, "the status is 0");
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    Terminal terminal = {};
    terminal.mount_result = input.Between(0, 7) < 6 ? 0 : 1;
    terminal.has_export_folder = input.Between(0, 1) == 0;
    terminal.errno_of_sync = input.Between(0, 133);
    terminal.errno_of_commands = input.Between(0, 133);
    terminal.has_serial = input.Between(0, 7) < 7;
    terminal.serial = input.Word();
    std::vector<std::string> words;
    while (!input.IsAtEnd() && words.size() < kMostWords) {
        words.push_back(input.Word());
    }
    gTerminal = &terminal;
    RequireTrace(Run(words), Expected(terminal, words));
    gTerminal = nullptr;
    return 0;
}
