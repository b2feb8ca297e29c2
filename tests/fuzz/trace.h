// What the product prints, and the platform calls that it makes meanwhile, as one text.
//
// Link a target that uses it with WRAP time: the log's stamp is then always kStamp.
#ifndef TESTS_FUZZ_TRACE_H
#define TESTS_FUZZ_TRACE_H

#include <functional>
#include <string>

// Runs action with all levels of the log enabled. Its standard output and standard error, and what
// the replaced calls write with printf, come back in their order.
std::string Traced(const std::function<void()>& action);

// The fuzzer itself calls what a target replaces, too: that must do what it always does.
bool IsTracing();

// A log line, with any line number.
std::string LogText(const char* level, const char* tag, const char* function,
                    const std::string& message);

// Stops the fuzzer when a traced text is another one than expected, which is made with LogText.
void RequireTrace(const std::string& traced, const std::string& expected);

#endif
