// errno across a log line: "%m" names the caller's failure, and the caller keeps it.

#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "log/log.h"
#include "tests/log/fake_localtime.h"
#include "tests/log/fresh_log.h"
#include "tests/log/replaced_stdout.h"
#include "tests/support/log_lines.h"

class LogErrno : public FreshLog {
protected:
    LogErrno() {
        gLogMask = 0xFF;
        localtime_.errno_left = ENOENT;  // as on the board, where the zone file is missing
    }

    // The message of the line that format gives with errno set to number.
    std::string MessageWithErrno(const char* format, int number) {
        errno = number;
        PrintLog(LOG_INFO, "f", "g", 1, format, 0);
        const std::vector<LogLine> lines = ParseLog(out_.TakeText());
        return lines.size() == 1 ? lines[0].message : "not one line";
    }

    FakeLocaltime localtime_;
    ReplacedStdout out_;
};

TEST_F(LogErrno, ShowsTheCallersByPercentM) {
    for (const int number : {0, EPERM, ENOSPC, EIO}) {
        EXPECT_EQ(MessageWithErrno("%m", number), strerror(number));
    }
}

TEST_F(LogErrno, IsTheCallersAfterwards) {
    for (const int number : {0, EPERM, ENOSPC}) {
        MessageWithErrno("text", number);
        EXPECT_EQ(errno, number);
    }
}

TEST_F(LogErrno, IsTheSameInTwoLinesInARow) {
    errno = EROFS;
    PrintLog(LOG_INFO, "f", "g", 1, "%m");
    PrintLog(LOG_INFO, "f", "g", 2, "%m");
    const LogLine line = {"Info", "f", "g", "Read-only file system"};
    EXPECT_EQ(ParseLog(out_.TakeText()), (std::vector<LogLine>{line, line}));
}

TEST_F(LogErrno, SurvivesAStreamThatFails) {
    out_.FailWith(EIO);  // every write sets errno, the head's too
    EXPECT_EQ(MessageWithErrno("%m", ENOSPC), "No space left on device");
    EXPECT_EQ(errno, ENOSPC);
}

TEST_F(LogErrno, IsUntouchedByALineThatIsOff) {
    gLogMask = 0;
    errno = EXDEV;
    PrintLog(LOG_INFO, "f", "g", 1, "%m");
    EXPECT_EQ(errno, EXDEV);
    EXPECT_EQ(out_.TakeText(), "");
}

TEST_F(LogErrno, IsTheCallersAfterAThreadNameToo) {
    gRunMode = 1;
    EXPECT_EQ(MessageWithErrno("%m", EBUSY), "Device or resource busy");
    EXPECT_EQ(errno, EBUSY);
}
