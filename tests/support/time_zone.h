// Another time zone for the length of a scope.
#ifndef TESTS_SUPPORT_TIME_ZONE_H
#define TESTS_SUPPORT_TIME_ZONE_H

#include <string>

// Central Europe with summer time, written out so that no zone file is needed.
constexpr char kCentralEurope[] = "CET-1CEST,M3.5.0,M10.5.0/3";

class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const char* zone);
    ~ScopedTimeZone();
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    bool had_zone_;
    std::string saved_zone_;
};

#endif
