#include "core/Clock.h"

#include "core/EventLoop.h"

#include <QThread>

#include <cmath>

namespace {
constexpr float leastElapsed = 0.025F;
constexpr float secondsPerDay = 86400.0F;

constexpr qint64 millisecondsPerDay = 86'400'000;

/// The machine's own clock. The limits ask it many times during every exchange, and a question for
/// the local time goes to the file system; so it is asked once a minute how far the local time is
/// from the universal one. That changes only at whole minutes.
class MachineClock : public Clock
{
public:
    float SecondsOfDay() const override
    {
        const qint64 now = QDateTime::currentMSecsSinceEpoch();
        const qint64 minute = now / 60'000;
        if (minute != offsetMinute) {
            offsetMinute = minute;
            offset = QDateTime::fromMSecsSinceEpoch(now).offsetFromUtc() * qint64{1000};
        }
        return static_cast<float>((now + offset + millisecondsPerDay) % millisecondsPerDay)
               / 1000.0F;
    }

    qint64 EpochSeconds() const override { return QDateTime::currentSecsSinceEpoch(); }

private:
    mutable qint64 offsetMinute = -1;
    mutable qint64 offset = 0;
};

MachineClock machineClock;
Clock *currentClock = &machineClock;
} // namespace

qint64 Clock::EpochSeconds() const
{
    return Now().toSecsSinceEpoch();
}

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
