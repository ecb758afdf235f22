#include "sweeps/TurnProbe.h"

#include "support/ObjectCount.h"

#include <algorithm>

#include <ctime>

#include <malloc.h>

namespace {
/// Between two looks at the heap, which cost some themselves.
constexpr double lookMilliseconds = 20.0;
} // namespace

double ThreadMilliseconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

TurnProbe::TurnProbe() : began(ThreadMilliseconds()), last(began), looked(began)
{
    // What others have given back is no room for what comes.
    malloc_trim(0);
    before = ObjectCount::HeapBytes();
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { look(); });
    timer.start(1);
}

void TurnProbe::look()
{
    ++turns;
    const double now = ThreadMilliseconds();
    longest = std::max(longest, now - last);
    last = now;
    if (now - looked < lookMilliseconds)
        return;
    looked = now;
    most = std::max(most, BytesNow());
    last = ThreadMilliseconds();
}

double TurnProbe::LongestMilliseconds()
{
    // The turn that is going on.
    longest = std::max(longest, ThreadMilliseconds() - last);
    return longest;
}

void TurnProbe::Forget()
{
    longest = 0.0;
    last = ThreadMilliseconds();
}

long long TurnProbe::BytesNow() const
{
    return ObjectCount::HeapBytes() - before;
}
