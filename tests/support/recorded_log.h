// The log's lines at the moment they are written, in their order with other calls.
// Name recorded_log.cpp among the test's sources and link with WRAP PrintLog.
#ifndef TESTS_SUPPORT_RECORDED_LOG_H
#define TESTS_SUPPORT_RECORDED_LOG_H

#include <functional>
#include <string>
#include <utility>

// While it lives, every line, of whatever level, is handed over as ToText shows it before the log
// gets it.
class RecordedLog {
public:
    using Record = std::function<void(const std::string& line)>;

    explicit RecordedLog(Record record) { active_ = std::move(record); }
    ~RecordedLog() { active_ = nullptr; }
    RecordedLog(const RecordedLog&) = delete;
    RecordedLog& operator=(const RecordedLog&) = delete;

    static const Record& active() { return active_; }

private:
    inline static Record active_;
};

#endif
