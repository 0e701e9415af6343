#pragma once

#include <chrono>
#include <stdexcept>

#include "platform/local_time.h"

namespace multirename {

/// A moment that the clock on the wall shows as the given time, whatever the machine's time zone. Searched for by
/// `local_time`; not for the hours that a change to summer time leaves out.
inline FileTime moment_at(int year, unsigned month, unsigned day, int hour = 12, int minute = 0, int second = 0)
{
    using namespace std::chrono;
    constexpr std::int64_t units_per_second = 10'000'000;
    constexpr int attempts = 4;
    const auto seconds_since_1601 = [](int y, unsigned mon, unsigned d, int h, int min, int s) {
        const auto days = sys_days(std::chrono::year(y) / std::chrono::month(mon) / std::chrono::day(d)) -
            sys_days(std::chrono::year(1601) / January / 1);
        return seconds(days + hours(h) + minutes(min) + seconds(s)).count();
    };
    const std::int64_t wanted = seconds_since_1601(year, month, day, hour, minute, second);
    std::int64_t guess = wanted;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const auto moment = static_cast<FileTime>(guess * units_per_second);
        const std::optional<std::tm> shown = local_time(moment);
        if (!shown)
            break;
        const std::int64_t shown_seconds =
            seconds_since_1601(shown->tm_year + 1900, static_cast<unsigned>(shown->tm_mon + 1),
                               static_cast<unsigned>(shown->tm_mday), shown->tm_hour, shown->tm_min, shown->tm_sec);
        if (shown_seconds == wanted)
            return moment;
        guess += wanted - shown_seconds;
    }
    throw std::logic_error("The clock on the wall never shows this time");
}

} // namespace multirename
