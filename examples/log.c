// The log: which lines are written, and what stands in them.
#include <errno.h>
#include <orvautil/log.h>
#include <string.h>

// Only a macro knows the line of its caller.
#define LOG(level, ...) PrintLog((level), "log", __func__, __LINE__, __VA_ARGS__)

static void OpenDoor(int number) {
    LOG(LOG_INFO, "door %d opens", number);
    LOG(LOG_DEBUG, "not written: this level is off");
}

int main(void) {
    LOG(LOG_ERROR, "not written: no level is on until the program asks for it");

    SetLogProgName("door");
    SetLogLevelByStr("EWI");  // errors, warnings, information; D is debugging
    OpenDoor(3);

    // Good to know: errno is the caller's also after a line. ("%m" is the same as strerror here,
    // but -Wpedantic refuses it.)
    errno = ENOENT;
    LOG(LOG_WARNING, "cannot read the key: %s", strerror(errno));
    LOG(LOG_ERROR, "giving up: %s", strerror(errno));

    // Good to know: the log adds a newline, so this one leaves an empty line.
    LOG(LOG_INFO, "with a newline of its own\n");

    // Lines can carry the name of their thread. This prints "gRunMode:1", whatever the levels.
    const int with_names = 1;
    SetLogOption(LOG_OPT_RUNMODE, &with_names);
    RegisterLogThread("main loop");
    LOG(LOG_INFO, "written by a thread with a name");

    SetLogLevel(LOG_WARNING | LOG_INFO, 0);
    LOG(LOG_INFO, "not written any more");
    return GetLogLevel() == LOG_ERROR ? 0 : 1;
}
