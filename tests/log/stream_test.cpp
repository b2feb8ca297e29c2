// How a line reaches the standard output stream: three calls, no flush, no heap.

#include <cstdlib>
#include <string>
#include <vector>

#include "log/log.h"
#include "tests/log/fresh_log.h"
#include "tests/log/replaced_stdout.h"
#include "tests/support/fake_clock.h"
#include "tests/support/time_zone.h"

namespace {

volatile int heap_calls;  // of the product and the tests; libc has calls of its own

}  // namespace

extern "C" {

void* __real_malloc(size_t size);
void* __real_calloc(size_t count, size_t size);
void* __real_realloc(void* block, size_t size);

void* __wrap_malloc(size_t size) {
    heap_calls = heap_calls + 1;
    return __real_malloc(size);
}

void* __wrap_calloc(size_t count, size_t size) {
    heap_calls = heap_calls + 1;
    return __real_calloc(count, size);
}

void* __wrap_realloc(void* block, size_t size) {
    heap_calls = heap_calls + 1;
    return __real_realloc(block, size);
}
}

class LogStream : public FreshLog {
protected:
    LogStream() { gLogMask = 0xFF; }

    const ScopedTimeZone zone_{"UTC0"};
    const FakeClock clock_{0};
};

TEST_F(LogStream, GetsHeadMessageAndNewlineInThreeCalls) {
    ReplacedStdout out;
    PrintLog(LOG_INFO, "f", "g", 1, "message %d\n", 5);
    EXPECT_EQ(out.TakeWrites(), (std::vector<std::string>{
                                    "[:1970-01-01T00:00:00] Info [f g 1]: ", "message 5\n", "\n"}));
}

TEST_F(LogStream, IsNotFlushed) {
    ReplacedStdout out;
    out.Buffer(4096);
    PrintLog(LOG_INFO, "f", "g", 1, "message\n");
    EXPECT_EQ(out.TakeText(), "");
    fflush(stdout);
    EXPECT_EQ(out.TakeText(), "[:1970-01-01T00:00:00] Info [f g 1]: message\n\n");
}

TEST_F(LogStream, IsStandardOutputAlone) {
    FILE* const saved_stderr = stderr;
    char buffer[256] = {};
    stderr = fmemopen(buffer, sizeof buffer, "w");
    {
        const ReplacedStdout out;
        PrintLog(LOG_ERROR, "f", "g", 1, "message");
    }
    fclose(stderr);
    stderr = saved_stderr;
    EXPECT_STREQ(buffer, "");
}

TEST_F(LogStream, NeedsNoHeap) {
    heap_calls = 0;
    ReplacedStdout out;
    out.Buffer(1 << 16);
    SetLogProgName("program");
    gRunMode = 1;
    RegisterLogThread("thread");
    const int before = heap_calls;
    PrintLog(LOG_INFO, "f", "g", 1, "%s", "message");
    PrintLog(LOG_INFO, "f", "g", 1, "%20000d", 1);
    EXPECT_EQ(heap_calls, before);
}

TEST_F(LogStream, CountsHeapCallsAtAll) {
    heap_calls = 0;
    void* volatile block = malloc(1);
    free(block);
    EXPECT_EQ(heap_calls, 1);
}
