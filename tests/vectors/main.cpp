// Gives the results of the calls in a table.
//
//   vectors product|naive <table >table   the table again, with the results of one implementation
//   vectors digests COUNT >table          a table without results: COUNT random calls per function
//   vectors calls FUNCTION COUNT >table   the same random calls of one function, one by one
//
// Comments and empty lines come out as they are.

#include <cstdio>
#include <cstdlib>

#include "tests/vectors/call.h"

namespace {

constexpr char kRandom[] = "random";

// False at the end of the input.
bool ReadLine(std::string& line) {
    line.clear();
    int c;
    while ((c = getchar()) != EOF && c != '\n') {
        line += static_cast<char>(c);
    }
    return c != EOF || !line.empty();
}

// The call with its result. Nothing is appended for what is no call.
std::string Answer(const std::string& line, bool naive) {
    if (line.empty() || line[0] == '#') {
        return line;
    }
    std::string name;
    vectors::Arguments arguments;
    if (!vectors::ParseLine(line, name, arguments)) {
        return "malformed: " + line;
    }
    const bool is_random = name == kRandom;
    const vectors::Function* const function = vectors::Find(is_random ? arguments.Text(0) : name);
    if (function == nullptr) {
        return "no such function: " + line;
    }
    const vectors::Call call = naive ? function->naive : function->product;
    if (is_random) {
        char digest[24];
        snprintf(digest, sizeof digest, "%016llx",
                 static_cast<unsigned long long>(
                     vectors::DigestOfRandomCalls(*function, call, arguments.Int(1))));
        return vectors::Line(name, arguments) + " = " + digest;
    }
    if (arguments.values().size() != function->inputs.size()) {
        return "wrong number of arguments: " + line;
    }
    vectors::Outcome out;
    call(arguments, out);
    return vectors::Line(name, arguments) + " = " + out.text();
}

void AskForDigests(int count) {
    for (const vectors::Function* const function : vectors::AllFunctions()) {
        printf("%s \"%s\" %d\n", kRandom, function->name, count);
    }
}

void AskForCalls(const vectors::Function& function, int count) {
    vectors::Arguments arguments;
    for (vectors::RandomCalls calls(function, count); calls.Next(arguments);) {
        puts(vectors::Line(function.name, arguments).c_str());
    }
}

void AnswerAll(bool naive) {
    std::string line;
    while (ReadLine(line)) {
        puts(Answer(line, naive).c_str());
    }
}

}  // namespace

int main(int argc, char** argv) {
    setenv("TZ", vectors::kZone, 1);
    const std::string word = argc > 1 ? argv[1] : "";
    if (argc == 2 && (word == "product" || word == "naive")) {
        AnswerAll(word == "naive");
        return 0;
    }
    if (argc == 3 && word == "digests") {
        AskForDigests(atoi(argv[2]));
        return 0;
    }
    if (argc == 4 && word == "calls" && vectors::Find(argv[2]) != nullptr) {
        AskForCalls(*vectors::Find(argv[2]), atoi(argv[3]));
        return 0;
    }
    fprintf(stderr,
            "usage: vectors product|naive <table, vectors digests COUNT,"
            " vectors calls FUNCTION COUNT\n");
    return 2;
}
