#pragma once

#include <sys/resource.h>

/// Processor time of this process so far, in seconds.
inline double ProcessorSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}
