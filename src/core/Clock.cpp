#include "core/Clock.h"

#include "core/EventLoop.h"

#include <QThread>

#include <cmath>

namespace {
constexpr float leastElapsed = 0.025F;
constexpr float secondsPerDay = 86400.0F;

Clock machineClock;
Clock *currentClock = &machineClock;
} // namespace

QDateTime Clock::Now() const
{
    return QDateTime::currentDateTime();
}

float Clock::SecondsOfDay() const
{
    return static_cast<float>(Now().time().msecsSinceStartOfDay()) / 1000.0F;
}

void Clock::SleepMilliseconds(int milliseconds)
{
    QThread::msleep(static_cast<unsigned long>(milliseconds));
}

Clock &Clock::Current()
{
    return *currentClock;
}

Clock *Clock::Replace(Clock *clock)
{
    Clock *before = currentClock;
    currentClock = clock ? clock : &machineClock;
    return before == &machineClock ? nullptr : before;
}

float ElapsedSeconds(float startTime)
{
    const float elapsed = Clock::Current().SecondsOfDay() - startTime;
    if (std::fabs(elapsed) < leastElapsed)
        return leastElapsed;
    if (elapsed >= 0.0F)
        return elapsed;
    if (elapsed >= -1.0F)
        return leastElapsed;
    return elapsed + secondsPerDay;
}

void PauseSeconds(float seconds)
{
    const float start = Clock::Current().SecondsOfDay();
    for (;;) {
        const float elapsed = ElapsedSeconds(start);
        if (elapsed >= seconds)
            return;
        YieldUntilEvent(static_cast<double>(seconds - elapsed));
    }
}
