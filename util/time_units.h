// The units of time, and where tm_year counts from.
#ifndef UTIL_TIME_UNITS_H
#define UTIL_TIME_UNITS_H

#include <cstdint>

constexpr int kSecondsPerMinute = 60;
constexpr int kMinutesPerHour = 60;
constexpr int kHoursPerDay = 24;
constexpr int kSecondsPerHour = kMinutesPerHour * kSecondsPerMinute;
constexpr int kSecondsPerDay = kHoursPerDay * kSecondsPerHour;
constexpr int kMonthsPerYear = 12;  // in all three calendars
constexpr uint32_t kMsPerSecond = 1000;
constexpr uint32_t kUsPerMs = 1000;

constexpr int kTmYearBase = 1900;  // the year in which tm_year is 0

#endif
