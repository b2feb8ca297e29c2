// The child, the blocks that its call gets, and what comes of it.

#include "tests/null/null_call.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ostream>

#include "tests/null/harmless_calls.h"
#include "tests/support/captured_stream.h"
#include "tests/support/log_lines.h"
#include "tests/util/fileutils/shared_record.h"

namespace {

constexpr size_t kTextRoom = 32;
constexpr int kUntouched = -777;
constexpr unsigned int kLongest_s = 60;

struct Allocated {
    const char* start;
    std::string content;  // at first
};

std::vector<Allocated> gBlocks;

struct Answer {
    char outcome[4096];
};

// The lines about entries come in the folder's order and tell of its numbers.
bool IsAboutAnEntry(const LogLine& line) {
    return line.function == "TrGetFileName" && line.level == "Info";
}

[[noreturn]] void RunInChild(const NullCase& tested, int which, const std::string& folder,
                             Answer* answer) {
    const struct rlimit no_core = {0, 0};
    setrlimit(RLIMIT_CORE, &no_core);
    for (const int number : {SIGSEGV, SIGBUS, SIGABRT}) {
        signal(number, SIG_DFL);  // not the sanitizers' handlers
    }
    alarm(kLongest_s);
    setenv("TZ", "UTC0", 1);
    setenv("NULL_TEST", "/x/", 1);
    if (chdir(folder.c_str()) != 0) {
        _exit(1);
    }
    const CapturedStream errors(stderr);
    CapturedLog log;
    std::string outcome = tested.call(which);
    for (const std::string& call : HarmlessCalls()) {
        outcome += " $ " + call;
    }
    for (const LogLine& line : log.Take()) {
        outcome += IsAboutAnEntry(line) ? "" : " | " + ToText(line);
    }
    snprintf(answer->outcome, sizeof answer->outcome, "%s", outcome.c_str());
    _exit(0);
}

const Allocated* FindBlock(const void* address) {
    for (const Allocated& block : gBlocks) {
        const auto* byte = static_cast<const char*>(address);
        if (block.start <= byte && byte <= block.start + block.content.size()) {
            return &block;
        }
    }
    return nullptr;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const NullCase& tested) {
    return out << tested.function << tested.variant;
}

std::string OutcomeInChild(const NullCase& tested, int which, const std::string& folder) {
    SharedRecord<Answer> answer;
    fflush(nullptr);  // or the child would write it again
    const pid_t child = fork();
    if (child == 0) {
        RunInChild(tested, which, folder, answer.operator->());
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) {
        return kEnded + (" by signal " + std::to_string(WTERMSIG(status)));
    }
    if (WEXITSTATUS(status) != 0) {
        return kEnded + (" with status " + std::to_string(WEXITSTATUS(status)));
    }
    return answer->outcome;
}

void* NewBlock(size_t size, const void* content) {
    char* block = static_cast<char*>(malloc(size));
    memcpy(block, content, size);
    gBlocks.push_back({block, {block, size}});
    return block;
}

const char* Input(std::string_view text) {
    return static_cast<const char*>(NewBlock(text.size() + 1, std::string(text).c_str()));
}

char* Text(std::string_view text) {
    std::string content(kTextRoom - 1, '.');
    content.replace(0, text.size() + 1, std::string(text).c_str(), text.size() + 1);
    return static_cast<char*>(NewBlock(kTextRoom, content.c_str()));
}

char* Room() {
    return static_cast<char*>(NewBlock(kTextRoom, std::string(kTextRoom - 1, '.').c_str()));
}

int* Number() {
    return static_cast<int*>(NewBlock(sizeof kUntouched, &kUntouched));
}

int* Numbers(int first, int second) {
    const int numbers[] = {first, second};
    return static_cast<int*>(NewBlock(sizeof numbers, numbers));
}

unsigned char* Bytes() {
    return static_cast<unsigned char*>(NewBlock(6, "\x00\x1a\x2b\x3c\x4d\x5e"));
}

TTime* Record() {
    TTime record = {};
    record.tm_year = 2024 - 1900;
    record.tm_mon = 5 - 1;
    record.tm_mday = 7;
    record.tm_hour = 8;
    record.tm_min = 9;
    record.tm_sec = 10;
    record.tm_wday = -1;  // not known
    return static_cast<TTime*>(NewBlock(sizeof record, &record));
}

bool IsChanged(const void* block) {
    const Allocated* found = FindBlock(block);
    return found != nullptr && memcmp(found->start, found->content.data(), found->content.size());
}

std::string PositionOf(const void* address, const std::vector<const void*>& blocks,
                       const std::vector<Null>& names) {
    for (size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i] != nullptr && FindBlock(blocks[i]) == FindBlock(address)) {
            const auto offset =
                static_cast<const char*>(address) - static_cast<const char*>(blocks[i]);
            return names[i].argument + (offset != 0 ? "+" + std::to_string(offset) : "");
        }
    }
    return address != nullptr ? "elsewhere" : "NULL";
}

std::string Shown(const char* text) {
    return std::string(text, strnlen(text, kTextRoom));
}

std::string Shown(const unsigned char* bytes) {
    std::string digits;
    for (size_t i = 0; i < FindBlock(bytes)->content.size(); ++i) {
        char pair[3];
        snprintf(pair, sizeof pair, "%02x", bytes[i]);
        digits += pair;
    }
    return digits;
}

std::string Shown(const int* number) {
    std::string numbers;
    for (size_t i = 0; i < FindBlock(number)->content.size() / sizeof *number; ++i) {
        numbers += (i > 0 ? "/" : "") + std::to_string(number[i]);
    }
    return numbers;
}

std::string Shown(const TTime* record) {
    char text[100];
    snprintf(text, sizeof text, "%d-%d-%dT%d:%d:%d", record->tm_year + 1900, record->tm_mon + 1,
             record->tm_mday, record->tm_hour, record->tm_min, record->tm_sec);
    return text;
}

std::string Shown(const void*) {
    return "changed";
}
