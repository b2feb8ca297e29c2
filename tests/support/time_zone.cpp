// Setting and restoring TZ.

#include "tests/support/time_zone.h"

#include <cstdlib>
#include <ctime>

ScopedTimeZone::ScopedTimeZone(const char* zone) {
    const char* current = getenv("TZ");
    had_zone_ = current != nullptr;
    saved_zone_ = had_zone_ ? current : "";
    setenv("TZ", zone, 1);
    tzset();
}

ScopedTimeZone::~ScopedTimeZone() {
    if (had_zone_) {
        setenv("TZ", saved_zone_.c_str(), 1);
    } else {
        unsetenv("TZ");
    }
    tzset();
}
