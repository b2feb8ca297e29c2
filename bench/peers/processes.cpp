// Peers for shell commands, and for the tool as a whole.

#include <fcntl.h>
#include <glib.h>
#include <spawn.h>
#include <sys/wait.h>

#include "bench/cases/files.h"
#include "bench/peers/row.h"
#include "bench/peers/rows.h"

namespace {

int Run(const char* program, char* const words[], const posix_spawn_file_actions_t* actions) {
    pid_t child;
    int status = -1;
    if (posix_spawn(&child, program, actions, nullptr, words, environ) == 0) {
        waitpid(child, &status, 0);
    }
    return status;
}

PEER int ShellBySpawn(const char* command) {
    char* const words[] = {const_cast<char*>("sh"), const_cast<char*>("-c"),
                           const_cast<char*>(command), nullptr};
    return Run("/bin/sh", words, nullptr);
}

PEER int ShellBySystem(const char* command) {
    return system(command);
}

PEER int ShellByGlib(const char* command) {
    char* words[] = {const_cast<char*>("/bin/sh"), const_cast<char*>("-c"),
                     const_cast<char*>(command), nullptr};
    int status = -1;
    g_spawn_sync(nullptr, words, nullptr, G_SPAWN_DEFAULT, nullptr, nullptr, nullptr, nullptr,
                 &status, nullptr);
    return status;
}

// The tool from start to end, with an option that it does not know: it opens its output file, reads
// its options, writes its usage and ends. Nothing is mounted or copied.
struct WholeTool {
    static constexpr bool kInOtherProcesses = true;

    static std::string Name() { return "whole_tool"; }
    static std::vector<int> Inputs() { return {0}; }
    template <auto kFunction>
    static int Call(int /*input*/) {
        return kFunction();
    }
};

template <const char* kProgram>
PEER int StartToEnd() {
    static const posix_spawn_file_actions_t actions = [] {
        posix_spawn_file_actions_t silent;
        posix_spawn_file_actions_init(&silent);
        posix_spawn_file_actions_addopen(&silent, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&silent, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        return silent;
    }();
    char* const words[] = {const_cast<char*>("tool"), const_cast<char*>("-x"), nullptr};
    return Run(kProgram, words, &actions);
}

constexpr char kTool[] = BENCH_TOOL;
constexpr char kPlainTool[] = BENCH_PLAIN_TOOL;

}  // namespace

void AddProcessRows() {
    Row<ShellCommand, systemEx>()
        .Peer<ShellBySpawn>("posix_spawn")
        .Peer<ShellBySystem>("system")
        .Peer<ShellByGlib>("g_spawn_sync")
        .Floor<ShellBySpawn>("a shell per command");
    if (access("/mnt/ramdisk", F_OK) == 0) {
        fputs("peers: whole_tool is left out: the tool would write to /mnt/ramdisk\n", stderr);
        return;
    }
    Row<WholeTool, StartToEnd<kTool>>().Peer<StartToEnd<kPlainTool>>("a C program with 90 exports");
}
