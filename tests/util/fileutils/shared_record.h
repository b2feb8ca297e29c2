// A record that a forked child fills and the test reads.
#ifndef TESTS_UTIL_FILEUTILS_SHARED_RECORD_H
#define TESTS_UTIL_FILEUTILS_SHARED_RECORD_H

#include <sys/mman.h>

// All zero at first.
template <typename Record>
class SharedRecord {
public:
    SharedRecord()
        : record_(static_cast<Record*>(mmap(nullptr, sizeof(Record), PROT_READ | PROT_WRITE,
                                            MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
    ~SharedRecord() { munmap(record_, sizeof(Record)); }
    SharedRecord(const SharedRecord&) = delete;
    SharedRecord& operator=(const SharedRecord&) = delete;

    Record* operator->() { return record_; }

private:
    Record* record_;
};

#endif
